#include "files/look_up.h"

#include <algorithm>

#include "base/text.h"
#include "files/path.h"
#include "platform/file_system.h"

namespace oravin {

namespace {

bool AnyFileMatches(const std::string& path) {
  const std::size_t slash = path.find_last_of("\\:");
  const std::string folder = slash == std::string::npos ? ".\\" : path.substr(0, slash + 1);
  const std::string pattern = slash == std::string::npos ? path : path.substr(slash + 1);
  const auto items = platform::ListNative(folder);
  return items && std::any_of(items->begin(), items->end(), [&](const platform::FileFacts& item) {
           return !item.folder && !item.hidden && !item.system && MatchesPattern(item.name, pattern);
         });
}

}  // namespace

bool FileExists(std::string& path) {
  TrimInPlace(path);
  if (!IsPrintableText(path)) return false;
  const char last = path.back();
  if (last == '\\' || last == ':' || last == '.') return false;
  if (path.find_first_of("*?") != std::string::npos) return AnyFileMatches(path);
  const auto facts = platform::FactsOf(path);
  return facts && !facts->folder && !facts->hidden && !facts->system;
}

bool FolderExists(std::string& path) {
  TrimInPlace(path);
  if (!IsPrintableText(path)) return false;
  if (path.find_first_of("*?") != std::string::npos) return false;
  const auto facts = platform::FactsOf(path.back() == '\\' ? path : path + '\\');
  return facts && facts->folder;
}

std::uint64_t FileLength(const std::string& path) {
  const auto facts = platform::FactsOf(path);
  return facts ? facts->length : 0;
}

bool FileExists(std::string&& path) { return FileExists(path); }
bool FolderExists(std::string&& path) { return FolderExists(path); }

}  // namespace oravin
