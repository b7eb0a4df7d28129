#pragma once

#include <cstdint>
#include <string>

#include "archive/archive_table.h"
#include "files/file.h"
#include "files/whole_file.h"

namespace oravin {

/// What a stored (not compressed) entry is written with behind its own bytes: those that follow it in the archive, and
/// zeros past the archive's end. This is meant; extraction in the archive's tab is the way to the exact bytes.
inline constexpr std::uint64_t storedExcess = 50000;

/// Writes one entry of the archive to a file: unpacked where it is compressed, else its bytes and storedExcess more.
/// @param destination the file's whole path
/// @return the 16-bit signature at the entry's start
/// @throws FileError when the entry does not lie inside the archive, is damaged, or a file fails; then the
///   destination is as it was
std::uint32_t UnpackEntry(Files& files, const std::string& hogPath, const std::string& destination, std::uint32_t size,
                          std::uint32_t offset);

/// The same, together with other files: the destination takes its name when these are committed (CommitWhole).
std::uint32_t AddUnpacked(Files& files, WholeFiles& together, const std::string& hogPath,
                          const std::string& destination, std::uint32_t size, std::uint32_t offset);

/// True when a file holds exactly what UnpackEntry would write for an entry.
/// @throws FileError as UnpackEntry
bool SameAsUnpacked(Files& files, const std::string& hogPath, const std::string& path, std::uint32_t size,
                    std::uint32_t offset);

/// An entry's content in memory: unpacked where it is compressed, else exactly its own bytes without storedExcess.
/// @param hog the archive, open for reading
/// @param most the greatest size as stored, in bytes, that is still read
/// @throws FileError when the entry is larger, does not lie inside the archive, is damaged, or cannot be read
Bytes ContentOf(File& hog, const HogEntry& entry, std::uint64_t most);

/// The same as UnpackEntry writes it: a stored entry is followed by storedExcess more bytes.
Bytes UnpackedContent(File& hog, const HogEntry& entry, std::uint64_t most);

/// The most bytes that UnpackEntry may write for an entry, read from its first bytes.
std::uint64_t UnpackedSize(File& hog, std::uint32_t size, std::uint32_t offset);

}  // namespace oravin
