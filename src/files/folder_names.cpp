#include "files/folder_names.h"

#include "base/text.h"
#include "platform/file_system.h"

namespace oravin {

FolderNames NamesIn(const std::string& folder) {
  FolderNames names;
  const auto items = platform::ListNative(folder);
  if (!items) return names;
  for (const platform::FileFacts& item : *items) {
    if (item.folder || item.hidden || item.system) continue;
    const FolderNames::Item here{item.name, item.length};
    const auto [known, fresh] = names.items.emplace(UpperCase(item.name), here);
    // Of several spellings the first in byte order is taken, as where a path is looked up (platform/native_path.h).
    if (!fresh && here.spelling < known->second.spelling) known->second = here;
  }
  return names;
}

const FolderNames::Item* FindIn(const FolderNames& names, const std::string& name) {
  const auto found = names.items.find(UpperCase(name));
  return found == names.items.end() ? nullptr : &found->second;
}

std::uint64_t LengthIn(const FolderNames& names, const std::string& name) {
  const FolderNames::Item* item = FindIn(names, name);
  return item == nullptr ? 0 : item->length;
}

}  // namespace oravin
