#include "base/text.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace oravin {

namespace {

// The characters of the bytes 0x80 to 0x9F; the five that Windows-1252 leaves undefined map to the control codes.
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

constexpr char32_t replacementCharacter = 0xFFFD;

constexpr std::size_t longestPresentable = 120;

char FromCode(char32_t code) {
  if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) return static_cast<char>(code);
  for (std::size_t i = 0; i < upperPage.size(); ++i) {
    if (upperPage.at(i) == code) return static_cast<char>(0x80 + i);
  }
  return substituteCharacter;
}

char32_t ToCode(char c) {
  const std::uint8_t byte = Byte(c);
  if (c == substituteCharacter) return replacementCharacter;
  return byte >= 0x80 && byte < 0xA0 ? upperPage.at(byte - 0x80U) : char32_t{byte};
}

/// Decodes the character at `at`. An invalid byte becomes a replacement character.
char32_t TakeCharacter(std::string_view utf8, std::size_t& at) {
  const std::uint8_t lead = Byte(utf8[at++]);
  if (lead < 0x80) return lead;
  const std::size_t more = lead < 0xC0 || lead >= 0xF8 ? 0 : lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
  if (more == 0 || utf8.size() - at < more) return replacementCharacter;
  char32_t code = lead & (0x3FU >> more);
  for (std::size_t i = 0; i < more; ++i) {
    const std::uint8_t byte = Byte(utf8[at + i]);
    if ((byte & 0xC0U) != 0x80) return replacementCharacter;
    code = code << 6U | (byte & 0x3FU);
  }
  // An overlong form is not valid UTF-8.
  constexpr std::array<char32_t, 4> least = {0, 0x80, 0x800, 0x10000};
  if (code < least.at(more)) return replacementCharacter;
  at += more;
  return code;
}

bool IsPageCharacter(char c) {
  const char32_t code = ToCode(c);
  return code >= 0x20 && code != 0x7F && (code < 0x80 || code > 0x9F) && code != replacementCharacter;
}

}  // namespace

char UpperChar(char c) {
  const std::uint8_t byte = Byte(c);
  if (byte >= 'a' && byte <= 'z') return static_cast<char>(byte - 0x20);
  if (byte >= 0xE0 && byte != 0xF7 && byte != 0xFF) return static_cast<char>(byte - 0x20);
  if (byte == 0x9A || byte == 0x9C || byte == 0x9E) return static_cast<char>(byte - 0x10);
  return byte == 0xFF ? static_cast<char>(0x9F) : c;
}

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
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
  for (const char c : text) AppendUtf8(utf8, ToCode(c));
  return utf8;
}

std::string FromUtf8(std::string_view utf8) {
  std::string text;
  for (std::size_t at = 0; at < utf8.size();) text += FromCode(TakeCharacter(utf8, at));
  return text;
}

bool IsCodePageText(std::string_view text) { return std::all_of(text.begin(), text.end(), IsPageCharacter); }

std::string Presentable(std::string_view text) {
  const std::string_view dots = "...";
  const std::size_t half = (longestPresentable - dots.size()) / 2;
  std::string shown(text);
  if (text.size() > longestPresentable) shown.replace(half, text.size() - 2 * half, dots);
  std::replace_if(
      shown.begin(), shown.end(), [](char c) { return !IsPageCharacter(c); }, '?');
  return shown;
}

}  // namespace oravin
