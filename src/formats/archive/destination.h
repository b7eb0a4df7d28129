#pragma once

#include <functional>
#include <map>
#include <string>
#include <unordered_map>

#include "archive/entry_path.h"
#include "files/file.h"

namespace oravin {

/// A folder that files are extracted to, and what is known of its subfolders. Each folder is listed only once, so that
/// the time per file does not grow with the number of files.
struct Destination {
  struct Item {
    std::string spelling;  ///< as it is on disk
    bool folder = false;
    bool ours = false;  ///< written, or made, in this extraction
  };
  struct Folder {
    std::string path;                                  ///< ends in a backslash, spelled as on disk
    std::unordered_multimap<std::string, Item> items;  ///< by upper-case name; one item for each spelling
  };
  std::string path;                       ///< ends in a backslash
  std::string spared;                     ///< a file that is never overwritten: the archive itself
  std::map<std::string, Folder> folders;  ///< by upper-case path below the destination; "" is the destination
};

/// @param path an existing folder, ending in a backslash
/// @param spared a file that is never overwritten
Destination DestinationAt(Files& files, const std::string& path, const std::string& spared);

/// Why an entry cannot be written: its name is not allowed, a folder or a protected file is in its place, or an entry
/// of that name was written before. Changes nothing.
/// @return the reason in words; empty when it can be written
std::string WhyNotExtracted(Files& files, const Destination& destination, const EntryPath& entry);

/// Writes an entry's file to a temporary file and renames it when it is complete. Makes missing folders. Before an
/// older file is replaced, the new one is flushed to the disk.
/// @param write puts the bytes into the file it is given
/// @throws FileError, or what `write` throws; then the file is as it was
void WriteExtracted(Files& files, Destination& destination, const EntryPath& entry,
                    const std::function<void(File& file)>& write);

/// Deletes the file that WriteExtracted would replace, if there is one. Makes no folders.
/// @param entry one that can be written (WhyNotExtracted)
/// @throws FileError when the file cannot be deleted
void EraseExtracted(Files& files, Destination& destination, const EntryPath& entry);

}  // namespace oravin
