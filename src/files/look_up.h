#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "files/files.h"
#include "platform/file_types.h"

/// Looks at the disk. Nothing is changed.
namespace oravin {

using platform::FileFacts;
using platform::Listing;
using platform::LookUp;
using platform::Presence;

/// True when the trimmed path names an existing file: its characters have codes 32 to 127, its last one is none of `\`,
/// `:` and `.`, and a listing for it returns a name. Hidden and system files do not count; a path with `*` or `?` in
/// its last part counts when anything matches. False also where the system cannot say: what keeps, plans, deletes or
/// restores files asks FileIsThere or VisibleFileIsThere.
bool FileExists(Files& files, std::string_view path);

/// Does nothing if FileExists.
/// @throws FileError of kind `missing` otherwise
void RequireFile(Files& files, const std::string& path);

/// True if the trimmed path names an existing folder.
bool FolderExists(Files& files, std::string_view path);

/// As FileExists, but hidden and system files count.
/// @throws FileError where the system cannot say
bool FileIsThere(Files& files, std::string_view path);

/// As FileExists.
/// @throws FileError where the system cannot say
bool VisibleFileIsThere(Files& files, std::string_view path);

/// As FolderExists.
/// @throws FileError where the system cannot say
bool FolderIsThere(Files& files, std::string_view path);

/// The length of a file in bytes; 0 where there is none.
/// @throws FileError where the system cannot say
std::uint64_t LengthOrThrow(Files& files, const std::string& path);

/// As LookFor and ListFolder.
/// @throws FileError where the system cannot say
LookUp LookOrThrow(Files& files, const std::string& path);
Listing ListOrThrow(Files& files, const std::string& folder);

/// The length of a file in bytes; 0 where there is none.
std::uint64_t FileLength(Files& files, const std::string& path);

/// What is at a path: nothing, a file or folder, a hidden one, or unknown because the system could not say.
LookUp LookFor(Files& files, const std::string& path);

/// The same with the file's identity and number of links, for which some systems must open the file.
LookUp LookCloselyFor(Files& files, const std::string& path);

/// The files and folders of one folder, including hidden ones.
Listing ListFolder(Files& files, const std::string& folder);

/// The name of a file or folder as spelled on disk; if it is missing, as spelled in the path.
std::string SpellingOf(Files& files, const std::string& path);

/// True if both paths name the same existing file.
bool IsSameFile(Files& files, const std::string& a, const std::string& b);

/// Why an existing file cannot be changed now: it is read-only or open in another program. Empty if it can.
std::string WhyNotWritable(Files& files, const std::string& path);

/// Why files cannot be created in an existing folder. Empty if they can.
std::string WhyNoNewFiles(Files& files, const std::string& folder);

/// Free bytes for this user on the disk of an existing folder; nothing if the system does not say.
std::optional<std::uint64_t> FreeSpace(Files& files, const std::string& folder);

}  // namespace oravin
