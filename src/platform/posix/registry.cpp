#include "platform/registry.h"

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <vector>

#include "platform/posix/wine_prefix.h"

// Both files are text:
//
//   REGEDIT4                                        WINE REGISTRY Version 2
//                                                   [Software\\Maker\\Product] 1700000000
//   [HKEY_LOCAL_MACHINE\Software\Maker\Product]     #time=1da1b2c3d4e5f60
//   @="default value"                               @="default value"
//   "Value"="text"                                  "Value"="text"
//
// In values a backslash and a quote are escaped by a backslash; in a Wine file also in a key's path, and keys are
// relative to HKEY_LOCAL_MACHINE. Keys and value names are case-insensitive.

namespace oravin::platform {

namespace {

namespace fs = std::filesystem;

constexpr const char* storeHeading = "REGEDIT4";

std::string Lowered(std::string text) {
  for (char& c : text) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return text;
}

/// Normal form of a key's path: lower case, single backslashes, none at the end.
std::string PlainKey(const std::string& key) {
  std::string plain;
  for (const char c : Lowered(key)) {
    if (c == '\\' && (plain.empty() || plain.back() == '\\')) continue;
    plain += c;
  }
  if (!plain.empty() && plain.back() == '\\') plain.pop_back();
  return plain;
}

std::string Quoted(const std::string& text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '\\' || c == '"') quoted += '\\';
    quoted += c;
  }
  return quoted + '"';
}

/// Reads the quoted text at `at` and advances `at` past its closing quote. Nothing if it is not quoted text.
std::optional<std::string> Unquoted(const std::string& line, std::size_t& at) {
  if (at >= line.size() || line[at] != '"') return std::nullopt;
  std::string text;
  for (++at; at < line.size(); ++at) {
    if (line[at] == '"') {
      ++at;
      return text;
    }
    if (line[at] == '\\' && at + 1 < line.size()) ++at;
    text += line[at];
  }
  return std::nullopt;
}

/// The key of a line such as `[Software\\Maker] 123`, in normal form; empty for any other line.
std::string KeyOfLine(const std::string& line) {
  const std::size_t end = line.rfind(']');
  if (line.empty() || line[0] != '[' || end == std::string::npos) return {};
  return PlainKey(line.substr(1, end - 1));
}

/// True if the line sets the value `name`; `equals` gets the position of its `=`.
bool SetsValue(const std::string& line, const std::string& name, std::size_t& equals) {
  if (name.empty()) {
    equals = 1;
    return line.starts_with("@=");
  }
  std::size_t at = 0;
  const std::optional<std::string> found = Unquoted(line, at);
  equals = at;
  return found && Lowered(*found) == Lowered(name) && at < line.size() && line[at] == '=';
}

std::optional<std::string> ReadFrom(const std::string& path, const std::string& key, const std::string& value) {
  std::ifstream file(path, std::ios::binary);
  const std::string wanted = PlainKey(key);
  bool inside = false;
  for (std::string line; std::getline(file, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (!line.empty() && line[0] == '[') {
      inside = KeyOfLine(line) == wanted;
      continue;
    }
    std::size_t equals = 0;
    if (!inside || !SetsValue(line, value, equals)) continue;
    std::size_t at = equals + 1;
    return Unquoted(line, at);
  }
  return std::nullopt;
}

std::string OwnStore() {
  const std::string chosen = Environment("XDG_CONFIG_HOME");
  return (chosen.empty() ? Environment("HOME") + "/.config" : chosen) + "/oravin/registry.reg";
}

/// Writes the lines to a temporary file, flushes it and renames it over the store.
bool ReplaceStore(const std::string& path, const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  const std::string beside = path + ".new";
  const int file = open(beside.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (file < 0) return false;
  const bool written = write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size()) && fsync(file) == 0;
  const bool closed = close(file) == 0;
  if (written && closed && rename(beside.c_str(), path.c_str()) == 0) return true;
  unlink(beside.c_str());
  return false;
}

}  // namespace

std::optional<std::string> RegReadString(const std::string& root, const std::string& key, const std::string& value) {
  if (auto own = ReadFrom(OwnStore(), root + "\\" + key, value)) return own;
  const std::string wine = WinePrefix() + "/system.reg";
  if (auto plain = ReadFrom(wine, key, value)) return plain;
  constexpr std::string_view software = "software\\";
  if (!Lowered(key).starts_with(software)) return std::nullopt;
  return ReadFrom(wine, "Software\\Wow6432Node\\" + key.substr(software.size()), value);
}

bool RegWriteString(const std::string& root, const std::string& key, const std::string& value,
                    const std::string& text) {
  const std::string path = OwnStore();
  std::error_code failure;
  fs::create_directories(fs::path(path).parent_path(), failure);
  std::vector<std::string> lines;
  std::ifstream file(path, std::ios::binary);
  // Do not overwrite a store that cannot be read: its other lines would be lost.
  if (!file && fs::exists(path, failure)) return false;
  for (std::string line; std::getline(file, line);) lines.push_back(line);
  if (lines.empty()) lines = {storeHeading};

  const std::string setting = (value.empty() ? "@" : Quoted(value)) + "=" + Quoted(text);
  const std::string wanted = PlainKey(root + "\\" + key);
  std::size_t at = 0;
  while (at < lines.size() && KeyOfLine(lines[at]) != wanted) ++at;
  if (at == lines.size()) {
    lines.insert(lines.end(), {"", "[" + root + "\\" + key.substr(0, key.find_last_not_of('\\') + 1) + "]"});
    at = lines.size() - 1;
  }
  for (++at; at < lines.size() && (lines[at].empty() || lines[at][0] != '['); ++at) {
    std::size_t equals = 0;
    if (!SetsValue(lines[at], value, equals)) continue;
    lines[at] = setting;
    return ReplaceStore(path, lines);
  }
  while (at > 0 && at <= lines.size() && lines[at - 1].empty()) --at;
  lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(std::min(at, lines.size())), setting);
  return ReplaceStore(path, lines);
}

}  // namespace oravin::platform
