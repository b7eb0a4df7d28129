#pragma once

#include <functional>
#include <map>
#include <string>
#include <unordered_map>

#include "archive/entry_path.h"
#include "files/file.h"

namespace oravin {

/// A folder that files are extracted to, and the folders below it that were looked into. Each folder is listed once, so
/// that it does not matter how many files there are.
struct Destination {
  struct Item {
    std::string spelling;  ///< as it is on disk
    bool folder = false;
    bool ours = false;  ///< written, or made, in this extraction
  };
  struct Folder {
    std::string path;                                  ///< ends in a backslash, spelled as on disk
    std::unordered_multimap<std::string, Item> items;  ///< by upper-cased name; each spelling is one
  };
  std::string path;                       ///< ends in a backslash
  std::string spared;                     ///< a file that is never written over: the archive itself
  std::map<std::string, Folder> folders;  ///< by upper-cased path below the destination; "" is the destination
};

/// @param path an existing folder, ending in a backslash
Destination DestinationAt(Files& files, const std::string& path, const std::string& spared);

/// Tells why an entry cannot be written: its name, something of another kind that stands in its place, or an entry of
/// that name that was written before. Makes and writes nothing.
/// @return the reason in words; empty when it can be written
std::string WhyNotExtracted(Files& files, const Destination& destination, const EntryPath& entry);

/// Writes an entry's file whole: beside its name at first, which it takes when all of it is written. Makes the folders
/// that are missing. A file that is replaced has its successor on the disk first.
/// @param write puts the bytes into the file it is given
/// @throws FileError, or whatever `write` throws; then the file is as it was
void WriteExtracted(Files& files, Destination& destination, const EntryPath& entry,
                    const std::function<void(File& file)>& write);

/// Deletes the file that WriteExtracted would replace, where there is one, and nothing else. Folders that are missing
/// are not made.
/// @param entry one that can be written (WhyNotExtracted)
/// @throws FileError when the file cannot be deleted
void EraseExtracted(Files& files, Destination& destination, const EntryPath& entry);

}  // namespace oravin
