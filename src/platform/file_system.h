#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/file_types.h"

/// The file system's operations, with one body per system. Paths are Windows paths of the core (see native_path.h);
/// sizes and offsets are in bytes. A procedure that can fail returns the system's reason in plain words, empty on
/// success.
namespace oravin::platform {

std::string OpenNative(const std::string& path, OpenFor purpose, NativeFile& file);
/// Opens `name` in a folder for replacing, with exactly this spelling; does not search the folder.
std::string OpenSpelledNative(const std::string& folder, const std::string& name, NativeFile& file);
/// Reads up to `bytes.size()` bytes at `offset`; `count` gets the number of bytes read.
std::string ReadNative(NativeFile file, std::uint64_t offset, std::span<std::uint8_t> bytes, std::size_t& count);
std::string WriteNative(NativeFile file, std::uint64_t offset, std::span<const std::uint8_t> bytes);
std::string LengthNative(NativeFile file, std::uint64_t& length);
/// Truncates a file that is open for writing to a length, or extends it with zeros.
std::string SetLengthNative(NativeFile file, std::uint64_t length);
/// Waits until the file's bytes are on the disk.
std::string FlushNative(NativeFile file);
/// Starts to write cached bytes to the disk, so that the final flush waits less. A hint, ignored by systems without it.
void StartFlushNative(NativeFile file, std::uint64_t offset, std::uint64_t count);
std::string CloseNative(NativeFile file);
/// Waits until the bytes of several closed files are on the disk; with one flush if the system supports it.
std::string FlushMany(const std::vector<std::string>& paths);

std::string EraseNative(const std::string& path);
/// Renames a file; atomically replaces an existing one.
std::string RenameNative(const std::string& from, const std::string& to);
/// The same inside one folder, with exactly these spellings of the names.
std::string RenameSpelledNative(const std::string& folder, const std::string& from, const std::string& to);
/// Creates one folder; an existing one is not a failure.
std::string MakeFolderNative(const std::string& path);

/// What is at a path, without its spelling on disk. A path that ends in a backslash matches only a folder.
LookUp LookAt(const std::string& path);
/// The same with identity and number of links, for which some systems must open the file.
LookUp LookCloselyAt(const std::string& path);
/// The name of a file or folder as spelled on disk; if it is missing, as spelled in the path. Unlike LookAt it searches
/// the folder.
std::string SpellingOf(const std::string& path);
/// The files and folders of one folder.
Listing ListNative(const std::string& folder);

/// True if both paths name the same existing file.
bool IsSameFile(const std::string& a, const std::string& b);

/// Why an existing file cannot be changed now: it is read-only or open in another program. Empty if it can.
std::string WhyNotWritable(const std::string& path);
/// Why files cannot be created in an existing folder. Empty if they can.
std::string WhyNoNewFiles(const std::string& folder);
/// Free bytes for this user on the disk of an existing folder; nothing if the system does not say.
std::optional<std::uint64_t> FreeSpace(const std::string& folder);

}  // namespace oravin::platform
