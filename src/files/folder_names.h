#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>

#include "files/files.h"

namespace oravin {

/// The files of one folder by name, listed once: for actions that look up many names in one folder. Hidden and system
/// files are left out, as in FileExists.
struct FolderNames {
  struct Item {
    std::string spelling;  ///< on disk
    std::uint64_t length;  ///< in bytes
  };
  std::unordered_map<std::string, Item> items;  ///< by upper-cased name
};

/// Lists a folder; a missing one has no files. Of several spellings of one name the first in byte order counts.
FolderNames NamesIn(Files& files, const std::string& folder);

/// A file of the folder, without regard to case; null if missing.
const FolderNames::Item* FindIn(const FolderNames& names, const std::string& name);

}  // namespace oravin
