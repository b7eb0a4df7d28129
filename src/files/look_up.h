#pragma once

#include <cstdint>
#include <string>

/// What is on the disk under a path.
namespace oravin {

/// True when the path names an existing file: its characters have codes 32 to 127, its last one is none of `\`, `:` and
/// `.`, and a listing for it returns a name. Hidden and system files do not count; a path with `*` or `?` in its last
/// part counts when anything matches. Trims the path.
bool FileExists(std::string& path);
bool FileExists(std::string&& path);

/// True when the path names an existing folder. Trims the path.
bool FolderExists(std::string& path);
bool FolderExists(std::string&& path);

/// The length of a file in bytes; 0 where there is none.
std::uint64_t FileLength(const std::string& path);

}  // namespace oravin
