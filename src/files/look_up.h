#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "files/files.h"
#include "platform/file_types.h"

/// Looks at the disk: what is there under a path, and what could be done with it. Nothing is changed.
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

/// Goes on only where FileExists.
/// @throws FileError of the kind `missing`
void RequireFile(Files& files, const std::string& path);

/// True when the trimmed path names an existing folder.
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

/// What is there under a path, told apart: nothing, a file or folder, a hidden one, or that the system could not say.
LookUp LookFor(Files& files, const std::string& path);

/// The same with the file's identity and its number of names, which cost some systems an open file.
LookUp LookCloselyFor(Files& files, const std::string& path);

/// The files and folders of one folder, hidden ones too.
Listing ListFolder(Files& files, const std::string& folder);

/// The name of a file or folder as it is spelled on disk; of one that is not there, as the path spells it.
std::string SpellingOf(Files& files, const std::string& path);

/// True when both paths lead to one and the same existing file, by whatever names.
bool IsSameFile(Files& files, const std::string& a, const std::string& b);

/// Tells why an existing file cannot be changed now: it is read-only or held open by another program. Empty where it
/// can.
std::string WhyNotWritable(Files& files, const std::string& path);

/// Tells why files cannot be made in an existing folder. Empty where they can.
std::string WhyNoNewFiles(Files& files, const std::string& folder);

/// The bytes that this user may still write on the disk of an existing folder; nothing when the system does not say.
std::optional<std::uint64_t> FreeSpace(Files& files, const std::string& folder);

}  // namespace oravin
