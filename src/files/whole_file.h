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

/// Files as a whole. A file that is written whole is written beside itself first, flushed to the disk and then renamed
/// over the old one: there is no moment without it. Every failure is a FileError.
namespace oravin {

/// What the name of a file bears at its end while it is being written. Whatever is left over from a run that was cut
/// short can be told by it (EraseLeftovers).
inline constexpr const char* besideSuffix = ".oravin-new";

/// Reads a whole file.
/// @param most the greatest length in bytes that is still read; a longer file is an error
Bytes ReadWhole(Files& files, const std::string& path, std::uint64_t most);

/// Writes a whole file.
void WriteWhole(Files& files, const std::string& path, std::span<const std::uint8_t> bytes);

/// Writes a whole file, piece by piece: `write` puts the pieces into the temporary file it is given.
void WriteBeside(Files& files, const std::string& path, const std::function<void(File& file)>& write);

/// Several files that are written whole together: they are flushed in one go and only then take their names.
struct WholeFiles {
  std::vector<std::string> paths;
  std::set<std::string> spelled;  ///< of these, the ones that AddNew has added
};

/// Writes one more of them beside its name.
void AddWhole(Files& files, WholeFiles& together, const std::string& path,
              const std::function<void(File& file)>& write);

/// The same for a file of which the caller knows that its folder has none of that name, in whatever spelling. Nobody
/// looks for one, so that it does not matter how full the folder is.
void AddNew(Files& files, WholeFiles& together, const std::string& path, const std::function<void(File& file)>& write);

/// Flushes them and renames each over the old file of its name.
void CommitWhole(Files& files, WholeFiles& together);

/// Gives up the files behind the first `keep` ones: what was written beside is deleted.
void DropWhole(Files& files, WholeFiles& together, std::size_t keep);

/// Copies bytes from one open file to another, in blocks. The system begins to bring them to the disk while the rest is
/// being copied.
void CopyBytes(File& from, std::uint64_t fromOffset, File& to, std::uint64_t toOffset, std::uint64_t count);

/// Puts the content of a whole file into an open one, from its beginning on.
void CopyInto(File& to, const std::string& from);

/// Copies a whole file, in blocks.
void CopyWhole(Files& files, const std::string& from, const std::string& to);

void EraseFile(Files& files, const std::string& path);

/// Deletes a temporary file that may be there; that it could not be deleted is passed over.
void EraseIfThere(Files& files, const std::string& path);

/// Renames a file, over another one where that is there.
void RenameOver(Files& files, const std::string& from, const std::string& to);

/// The same inside one folder, with both names taken as they are spelled.
void RenameSpelled(Files& files, const std::string& folder, const std::string& from, const std::string& to);

/// Makes a folder where it is missing; the folder above must be there.
void MakeFolder(Files& files, const std::string& path);

/// Makes the folders of a path that are missing.
/// @param folder ends in a backslash
void MakeFolders(Files& files, const std::string& folder);

/// True when both files can be read and hold the same bytes.
bool SameContent(Files& files, const std::string& a, const std::string& b);

/// The first name that is not there yet for an old version to be kept under: `base` + ".old", ".old2", ".old3", ...
std::string FreeOldName(Files& files, const std::string& base);

/// Erases what a run that was cut short left half-written in one folder (not in the folders below it).
void EraseLeftovers(Files& files, const std::string& folder);

}  // namespace oravin
