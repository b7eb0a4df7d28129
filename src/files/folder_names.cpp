#include "files/folder_names.h"

#include "base/text.h"
#include "files/look_up.h"

namespace oravin {

FolderNames NamesIn(Files& files, const std::string& folder) {
  FolderNames names;
  for (const FileFacts& item : ListFolder(files, folder).items) {
    if (item.folder || item.hidden || item.system) continue;
    const FolderNames::Item here{item.name, item.length};
    const auto [known, fresh] = names.items.emplace(UpperCase(item.name), here);
    // Of several spellings the first in byte order counts, as in platform/native_path.h.
    if (!fresh && here.spelling < known->second.spelling) known->second = here;
  }
  return names;
}

const FolderNames::Item* FindIn(const FolderNames& names, const std::string& name) {
  const auto found = names.items.find(UpperCase(name));
  return found == names.items.end() ? nullptr : &found->second;
}

}  // namespace oravin
