#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>

#include "files/files.h"

namespace oravin {

/// The files of one folder by name, listed once: for actions that ask for many names of the same folder. Hidden and
/// system files do not count, as in FileExists.
struct FolderNames {
  struct Item {
    std::string spelling;  ///< as it is on disk
    std::uint64_t length;  ///< in bytes
  };
  std::unordered_map<std::string, Item> items;  ///< by upper-cased name
};

/// Lists a folder; one that is missing has no files. Of several spellings of one name the first in byte order is taken.
FolderNames NamesIn(Files& files, const std::string& folder);

/// A file of the folder, without regard to case; null when it is not there.
const FolderNames::Item* FindIn(const FolderNames& names, const std::string& name);

/// Its length in bytes; 0 when it is not there.
std::uint64_t LengthIn(const FolderNames& names, const std::string& name);

}  // namespace oravin
