#include "files/path.h"
#include "files/look_up.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

#include "base/text.h"

namespace oravin {

namespace {

constexpr int firstPrintable = 32;
constexpr int lastPrintable = 127;

/// The length of the path's extension without the dot, 1 to 3; 0 if none of the last four characters starts one.
std::size_t ExtensionLength(std::string_view path) {
  const std::string_view tail = path.substr(path.size() - std::min<std::size_t>(path.size(), 4));
  // The dot must be one of the first three of four characters; of a shorter path, one that is not the last.
  for (std::size_t i = 0; i + 1 < tail.size(); ++i) {
    if (tail[i] == '.') return tail.size() - i - 1;
  }
  return 0;
}

/// True for a digit in Windows' port names: 0 to 9, and superscript one, two and three.
bool IsPortNumber(std::string_view digit) {
  if (digit.size() == 1 && digit[0] >= '0' && digit[0] <= '9') return true;
  // As Windows-1252 and as UTF-8: on Windows a name that is valid UTF-8 is read as UTF-8
  // (platform/windows/wide_text.h).
  static constexpr std::array<std::string_view, 6> superscripts = {"\xB9",     "\xB2",     "\xB3",
                                                                   "\xC2\xB9", "\xC2\xB2", "\xC2\xB3"};
  return std::find(superscripts.begin(), superscripts.end(), digit) != superscripts.end();
}

/// True for a reserved device name of Windows, with any extension. Spaces before the dot do not count.
bool IsDeviceName(std::string_view name) {
  const std::string base = UpperCase(Trim(name.substr(0, name.find('.'))));
  static constexpr std::array<std::string_view, 6> devices = {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
  if (std::find(devices.begin(), devices.end(), base) != devices.end()) return true;
  const bool port = base.starts_with("COM") || base.starts_with("LPT");
  return port && IsPortNumber(std::string_view(base).substr(3));
}

std::size_t LastBeforeEnd(std::string_view path, const char* characters) {
  return path.size() < 2 ? std::string_view::npos : path.find_last_of(characters, path.size() - 2);
}

}  // namespace

bool IsPrintableText(std::string_view text) {
  text = Trimmed(text);
  return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) {
    const int code = static_cast<std::uint8_t>(c);
    return code >= firstPrintable && code <= lastPrintable;
  });
}

std::string AddBackslash(std::string_view path) {
  std::string folder = Trim(path);
  if (!folder.empty() && folder.back() != '\\') folder += '\\';
  return folder;
}

std::string ParentFolder(std::string_view path) {
  path = Trimmed(path);
  const std::size_t slash = LastBeforeEnd(path, "\\");
  return slash == std::string_view::npos ? std::string() : std::string(path.substr(0, slash + 1));
}

std::string FileNameOf(std::string_view path) {
  path = Trimmed(path);
  const std::size_t mark = LastBeforeEnd(path, "\\:");
  return mark == std::string_view::npos ? std::string() : std::string(path.substr(mark + 1));
}

std::string ExtensionOf(std::string_view path) {
  path = Trimmed(path);
  return LowerCase(path.substr(path.size() - ExtensionLength(path)));
}

std::string ChangeExtension(std::string_view path, std::string_view extension) {
  path = Trimmed(path);
  if (path.empty()) return {};
  const std::size_t length = ExtensionLength(path);
  return std::string(path.substr(0, path.size() - (length == 0 ? 0 : length + 1))) + std::string(Trimmed(extension));
}

bool IsPlainFileName(std::string_view name) {
  if (name.empty() || name.back() == '.' || name.back() == ' ' || name.front() == ' ') return false;
  if (std::any_of(name.begin(), name.end(), [](char c) {
        const int code = static_cast<std::uint8_t>(c);
        return code < firstPrintable || code == lastPrintable ||
               std::string_view("\\/:*?\"<>|").find(c) != std::string_view::npos;
      })) {
    return false;
  }
  return !IsDeviceName(name);
}

bool MatchesPattern(std::string_view name, std::string_view pattern) {
  // ".*" at the end of a pattern also matches no extension, as on Windows.
  if (pattern.ends_with(".*") && name.find('.') == std::string_view::npos) pattern.remove_suffix(2);
  std::size_t at = 0;
  std::size_t in = 0;
  std::size_t star = std::string_view::npos;
  std::size_t resume = 0;
  while (at < name.size()) {
    if (in < pattern.size() && pattern[in] == '*') {
      star = in++;
      resume = at;
    } else if (in < pattern.size() && (pattern[in] == '?' || UpperChar(pattern[in]) == UpperChar(name[at]))) {
      ++at;
      ++in;
    } else if (star != std::string_view::npos) {
      in = star + 1;
      at = ++resume;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', in) == std::string_view::npos;
}

}  // namespace oravin
