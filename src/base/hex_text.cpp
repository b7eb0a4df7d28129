#include "base/hex_text.h"

#include <algorithm>

#include "base/text.h"

namespace oravin {

namespace {

constexpr int nibbles = 8;

int NibbleOf(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

}  // namespace

bool HexToByteArray(std::string& text, std::array<std::uint8_t, 4>& bytes) {
  text = UpperCase(Trim(text));
  bytes.fill(0);
  const int length = static_cast<int>(std::min<std::size_t>(text.size(), nibbles));
  for (int place = nibbles - 1; place >= nibbles - length; --place) {
    const int nibble = NibbleOf(text[text.size() - static_cast<std::size_t>(nibbles - place)]);
    if (nibble < 0) return false;
    const int shifted = place % 2 == 0 ? nibble * 16 : nibble;
    std::uint8_t& byte = bytes.at(static_cast<std::size_t>(place / 2));
    byte = static_cast<std::uint8_t>(byte + shifted);
  }
  return true;
}

std::string DecToHex(std::uint32_t number) {
  std::string hex;
  do {
    hex.insert(hex.begin(), "0123456789ABCDEF"[number % 16]);
    number /= 16;
  } while (number != 0);
  return hex;
}

std::array<std::uint8_t, 4> DecToByteArray(std::uint64_t number) {
  std::string hex = DecToHex(static_cast<std::uint32_t>(number));
  std::array<std::uint8_t, 4> bytes{};
  HexToByteArray(hex, bytes);
  std::reverse(bytes.begin(), bytes.end());
  return bytes;
}

}  // namespace oravin
