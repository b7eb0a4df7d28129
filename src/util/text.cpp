#include "util/text.h"

#include <array>
#include <cstdint>

namespace oravin {

namespace {

// The characters of the bytes 0x80 to 0x9F; the five that Windows-1252 leaves free map to the control codes.
constexpr std::array<char16_t, 32> upperPage = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::uint8_t Byte(char c) { return static_cast<std::uint8_t>(c); }

char LowerChar(char c) {
  const std::uint8_t byte = Byte(c);
  if (byte >= 'A' && byte <= 'Z') return static_cast<char>(byte + 0x20);
  if (byte >= 0xC0 && byte <= 0xDE && byte != 0xD7) return static_cast<char>(byte + 0x20);
  if (byte == 0x8A || byte == 0x8C || byte == 0x8E) return static_cast<char>(byte + 0x10);
  return byte == 0x9F ? static_cast<char>(0xFF) : c;
}

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

void AppendUtf8(std::string& out, char32_t code) {
  if (code < 0x80) {
    out += static_cast<char>(code);
  } else if (code < 0x800) {
    out += static_cast<char>(0xC0 | (code >> 6));
    out += static_cast<char>(0x80 | (code & 0x3F));
  } else {
    out += static_cast<char>(0xE0 | (code >> 12));
    out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (code & 0x3F));
  }
}

char FromCode(char32_t code) {
  if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) return static_cast<char>(code);
  for (std::size_t i = 0; i < upperPage.size(); ++i) {
    if (upperPage.at(i) == code) return static_cast<char>(0x80 + i);
  }
  return '?';
}

}  // namespace

char UpperChar(char c) {
  const std::uint8_t byte = Byte(c);
  if (byte >= 'a' && byte <= 'z') return static_cast<char>(byte - 0x20);
  if (byte >= 0xE0 && byte != 0xF7 && byte != 0xFF) return static_cast<char>(byte - 0x20);
  if (byte == 0x9A || byte == 0x9C || byte == 0x9E) return static_cast<char>(byte - 0x10);
  return byte == 0xFF ? static_cast<char>(0x9F) : c;
}

std::string Trim(std::string_view text) { return std::string(Trimmed(text)); }

void TrimInPlace(std::string& text) {
  if (text.empty() || (text.front() != ' ' && text.back() != ' ')) return;
  text = Trim(text);
}

std::string UpperCase(std::string_view text) {
  std::string upper(text);
  for (char& c : upper) c = UpperChar(c);
  return upper;
}

std::string LowerCase(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = LowerChar(c);
  return lower;
}

bool SameName(std::string_view a, std::string_view b) {
  a = Trimmed(a);
  b = Trimmed(b);
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (UpperChar(a[i]) != UpperChar(b[i])) return false;
  }
  return true;
}

std::string Grouped(unsigned long long number) {
  std::string digits = std::to_string(number);
  for (std::size_t at = digits.size(); at > 3; at -= 3) digits.insert(at - 3, ",");
  return digits;
}

std::string Listed(const std::vector<std::string>& names) {
  constexpr std::size_t most = 20;
  std::string text;
  for (std::size_t i = 0; i < names.size() && i < most; ++i) text += "\n" + names[i];
  if (names.size() > most) text += "\nand " + std::to_string(names.size() - most) + " more";
  return text;
}

std::string AllListed(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += "\n" + name;
  return text;
}

std::string ToUtf8(std::string_view text) {
  std::string utf8;
  utf8.reserve(text.size());
  for (const char c : text) {
    const std::uint8_t byte = Byte(c);
    AppendUtf8(utf8, byte >= 0x80 && byte < 0xA0 ? upperPage.at(byte - 0x80U) : char32_t{byte});
  }
  return utf8;
}

std::string FromUtf8(std::string_view utf8) {
  std::string text;
  for (std::size_t at = 0; at < utf8.size();) {
    const std::uint8_t lead = Byte(utf8[at]);
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    char32_t code = length == 1 ? lead : lead & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length && at + i < utf8.size(); ++i) code = (code << 6) | (Byte(utf8[at + i]) & 0x3FU);
    text += FromCode(code);
    at += length;
  }
  return text;
}

}  // namespace oravin
