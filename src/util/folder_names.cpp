#include "util/folder_names.h"

#include "platform/file_system.h"
#include "util/text.h"

namespace oravin {

FolderNames NamesIn(const std::string& folder) {
  FolderNames names;
  const auto items = platform::ListNative(folder);
  if (!items) return names;
  for (const platform::FileFacts& item : *items) {
    if (!item.folder && !item.hidden && !item.system) names.lengths.emplace(UpperCase(item.name), item.length);
  }
  return names;
}

std::optional<std::uint64_t> LengthIn(const FolderNames& names, const std::string& name) {
  const auto found = names.lengths.find(UpperCase(name));
  return found == names.lengths.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace oravin
