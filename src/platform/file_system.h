#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/file_types.h"

/// The file system's own rules, system by system. Every path is a Windows path of the core (see native_path.h); every
/// size and offset is in bytes. A procedure that can fail returns the system's reason in plain words, empty when it
/// succeeded.
namespace oravin::platform {

std::string OpenNative(const std::string& path, OpenFor purpose, NativeFile& file);
/// Opens `name` in a folder for replacing. The name is taken as it is spelled, without a look at the folder's others.
std::string OpenSpelledNative(const std::string& folder, const std::string& name, NativeFile& file);
/// Reads up to `bytes.size()` bytes at `offset`; `count` tells how many there were before the file's end.
std::string ReadNative(NativeFile file, std::uint64_t offset, std::span<std::uint8_t> bytes, std::size_t& count);
std::string WriteNative(NativeFile file, std::uint64_t offset, std::span<const std::uint8_t> bytes);
std::string LengthNative(NativeFile file, std::uint64_t& length);
/// Cuts a file that is open for writing to a length, or lets it grow by zeros.
std::string SetLengthNative(NativeFile file, std::uint64_t length);
/// Waits until the file's bytes are on the disk.
std::string FlushNative(NativeFile file);
/// Lets the system begin to bring bytes to the disk that were just written: the flush at the end then has less to wait
/// for. A hint, which a system that knows none passes over.
void StartFlushNative(NativeFile file, std::uint64_t offset, std::uint64_t count);
std::string CloseNative(NativeFile file);
/// Waits until the bytes of several closed files are on the disk; in one go where the system can do that.
std::string FlushMany(const std::vector<std::string>& paths);

std::string EraseNative(const std::string& path);
/// Renames a file; a file that bears the new name already is replaced in the same step.
std::string RenameNative(const std::string& from, const std::string& to);
/// The same inside one folder, with both names taken as they are spelled.
std::string RenameSpelledNative(const std::string& folder, const std::string& from, const std::string& to);
/// Makes one folder; one that is there already is no failure.
std::string MakeFolderNative(const std::string& path);

/// What the file system says of one path, without the name. A path that ends in a backslash stands for a folder alone.
LookUp LookAt(const std::string& path);
/// The same with identity and number of names, which cost some systems an open file.
LookUp LookCloselyAt(const std::string& path);
/// The name of a file or folder as it is spelled on disk; of one that is not there, as the path spells it. The folder
/// is searched for it, which LookAt does without.
std::string SpellingOf(const std::string& path);
/// The files and folders of one folder.
Listing ListNative(const std::string& folder);

/// True when both paths lead to one and the same existing file, by whatever names.
bool IsSameFile(const std::string& a, const std::string& b);

/// Tells whether an existing file can be changed now: it is neither read-only nor held open by another program.
std::string WhyNotWritable(const std::string& path);
/// Tells whether files can be made in an existing folder.
std::string WhyNoNewFiles(const std::string& folder);
/// The bytes that this user may still write on the disk of an existing folder; nothing when the system does not say.
std::optional<std::uint64_t> FreeSpace(const std::string& folder);

}  // namespace oravin::platform
