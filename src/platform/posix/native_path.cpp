#include "platform/native_path.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "platform/posix/wine_prefix.h"

namespace oravin::platform {

namespace {

bool Exists(const std::string& path) {
  struct stat facts;
  return lstat(path.c_str(), &facts) == 0;
}

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool SameName(const std::string& a, const char* b) {
  std::size_t i = 0;
  for (; i < a.size() && b[i] != '\0'; ++i) {
    if (Lower(a[i]) != Lower(b[i])) return false;
  }
  return i == a.size() && b[i] == '\0';
}

/// The spelling on disk of `name` in `folder`, or `name` itself if missing. An exact match wins, else the first match
/// in byte order, so that the result does not depend on the order of the listing.
std::string SpellingOnDisk(const std::string& folder, const std::string& name) {
  if (Exists(folder + name)) return name;
  DIR* listing = opendir(folder.empty() ? "." : folder.c_str());
  if (listing == nullptr) return name;
  std::string found;
  while (const dirent* item = readdir(listing)) {
    if (!SameName(name, static_cast<const char*>(item->d_name))) continue;
    const std::string spelled = static_cast<const char*>(item->d_name);
    if (found.empty() || spelled < found) found = spelled;
  }
  closedir(listing);
  return found.empty() ? name : found;
}

bool HasDrive(const std::string& path) {
  return path.size() >= 2 && path[1] == ':' && Lower(path[0]) >= 'a' && Lower(path[0]) <= 'z';
}

/// The folder of a drive letter, ending in a slash; empty if there is none.
std::string DriveRoot(char letter) {
  const char drive = Lower(letter);
  if (drive == 'z') return "/";
  const std::string link = WinePrefix() + "/dosdevices/" + drive + ":";
  return Exists(link) ? link + "/" : std::string();
}

}  // namespace

std::string ToNativePath(const std::string& windowsPath) {
  std::string native;
  std::size_t at = 0;
  if (HasDrive(windowsPath)) {
    native = DriveRoot(windowsPath[0]);
    if (native.empty()) return {};
    at = 2;
  } else if (!windowsPath.empty() && (windowsPath[0] == '\\' || windowsPath[0] == '/')) {
    native = "/";
  }
  // One slash between names; a drive's root already ends in one.
  std::string rest;
  for (const char c : windowsPath.substr(at)) {
    const char mark = c == '\\' ? '/' : c;
    const char before = !rest.empty() ? rest.back() : native.empty() ? '\0' : native.back();
    if (mark != '/' || before != '/') rest += mark;
  }
  // Most paths, or at least their folders, have the spelling on disk: one look instead of one per folder.
  if (Exists(native + rest)) return native + rest;
  const std::size_t slash = rest.find_last_of('/');
  if (slash != std::string::npos && slash + 1 < rest.size() && Exists(native + rest.substr(0, slash + 1))) {
    native += rest.substr(0, slash + 1);
    return native + SpellingOnDisk(native, rest.substr(slash + 1));
  }
  std::size_t begin = 0;
  while (begin < rest.size()) {
    std::size_t end = rest.find('/', begin);
    if (end == std::string::npos) end = rest.size();
    const std::string name = rest.substr(begin, end - begin);
    if (!name.empty()) native += SpellingOnDisk(native, name);
    if (end < rest.size() && !name.empty()) native += '/';
    begin = end + 1;
  }
  return native;
}

std::string ToWindowsPath(const std::string& path) {
  if (path.empty() || HasDrive(path) || path.find('\\') != std::string::npos) return path;
  std::string native = path;
  if (native[0] != '/') {
    std::error_code failure;
    native = (std::filesystem::current_path(failure) / native).string();
  }
  native = std::filesystem::path(native).lexically_normal().string();
  for (char& c : native) {
    if (c == '/') c = '\\';
  }
  return "Z:" + native;
}

}  // namespace oravin::platform
