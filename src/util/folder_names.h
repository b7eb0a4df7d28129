#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>

namespace oravin {

/// The files of one folder by name, listed once: for actions that ask for many names of the same folder. Hidden and
/// system files do not count, as in FileExists.
struct FolderNames {
  std::unordered_map<std::string, std::uint64_t> lengths;  ///< by upper-cased name, in bytes
};

/// Lists a folder; one that is missing has no files.
FolderNames NamesIn(const std::string& folder);

/// The length of a file of the folder, without regard to case; nothing when it is not there.
std::optional<std::uint64_t> LengthIn(const FolderNames& names, const std::string& name);

}  // namespace oravin
