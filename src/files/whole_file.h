#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "base/bytes.h"
#include "files/file.h"

/// Whole files. A file is written to a temporary file, flushed to the disk and renamed over the old one, so that a
/// complete file exists at every moment. Every failure is a FileError.
namespace oravin {

/// Suffix of temporary files. EraseLeftovers finds those of interrupted runs by it.
inline constexpr const char* besideSuffix = ".oravin-new";

/// Reads a whole file.
/// @param most size limit in bytes; a longer file is an error
Bytes ReadWhole(Files& files, const std::string& path, std::uint64_t most);

/// Writes a whole file.
void WriteWhole(Files& files, const std::string& path, std::span<const std::uint8_t> bytes);

/// Writes a whole file in parts: `write` writes them to the given temporary file.
void WriteBeside(Files& files, const std::string& path, const std::function<void(File& file)>& write);

/// Several whole files that are flushed together and then renamed.
struct WholeFiles {
  std::vector<std::string> paths;
  std::set<std::string> spelled;  ///< those added by AddNew
};

/// Writes the temporary file of one more file.
void AddWhole(Files& files, WholeFiles& together, const std::string& path,
              const std::function<void(File& file)>& write);

/// The same for a file that does not exist in any spelling, as the caller must know. The folder is not searched, so its
/// size does not matter.
void AddNew(Files& files, WholeFiles& together, const std::string& path, const std::function<void(File& file)>& write);

/// Flushes all temporary files and renames each over the old file.
void CommitWhole(Files& files, WholeFiles& together);

/// Drops all files after the first `keep` ones and deletes their temporary files.
void DropWhole(Files& files, WholeFiles& together, std::size_t keep);

/// Copies bytes between open files, in blocks. Starts writing to the disk during the copy.
void CopyBytes(File& from, std::uint64_t fromOffset, File& to, std::uint64_t toOffset, std::uint64_t count);

/// Copies the content of a whole file to the start of an open one.
void CopyInto(File& to, const std::string& from);

/// Copies a whole file, in blocks.
void CopyWhole(Files& files, const std::string& from, const std::string& to);

void EraseFile(Files& files, const std::string& path);

/// Deletes a temporary file if it exists; failures are ignored.
void EraseIfThere(Files& files, const std::string& path);

/// Renames a file and replaces an existing one.
void RenameOver(Files& files, const std::string& from, const std::string& to);

/// The same inside one folder, with exactly these spellings of the names.
void RenameSpelled(Files& files, const std::string& folder, const std::string& from, const std::string& to);

/// Creates a folder if it is missing; its parent must exist.
void MakeFolder(Files& files, const std::string& path);

/// Makes the folders of a path that are missing.
/// @param folder ends in a backslash
void MakeFolders(Files& files, const std::string& folder);

/// True if both files can be read and have the same content.
bool SameContent(Files& files, const std::string& a, const std::string& b);

/// The first free name for a backup: `base` + ".old", ".old2", ".old3", ...
std::string FreeOldName(Files& files, const std::string& base);

/// Deletes temporary files of interrupted runs in one folder (not in its subfolders).
void EraseLeftovers(Files& files, const std::string& folder);

}  // namespace oravin
