#include "base/hex_text.h"

#include <charconv>
#include <string_view>

#include "base/bytes.h"
#include "base/text.h"

namespace oravin {

bool HexToByteArray(std::string& text, std::array<std::uint8_t, 4>& bytes) {
  text = UpperCase(Trim(text));
  const std::string_view digits = std::string_view(text).substr(text.size() > 8 ? text.size() - 8 : 0);
  std::uint32_t number = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number, 16);
  PutBigEndian32(bytes.data(), number);
  return read.ptr == digits.data() + digits.size();
}

std::string DecToHex(std::uint32_t number) {
  std::array<char, 8> digits{};
  return UpperCase({digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), number, 16).ptr});
}

std::array<std::uint8_t, 4> DecToByteArray(std::uint64_t number) {
  std::array<std::uint8_t, 4> bytes{};
  PutLittleEndian32(bytes.data(), static_cast<std::uint32_t>(number));
  return bytes;
}

}  // namespace oravin
