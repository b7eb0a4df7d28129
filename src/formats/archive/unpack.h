#pragma once

#include <cstdint>
#include <string>

#include "archive/archive_table.h"
#include "files/file.h"
#include "files/whole_file.h"

namespace oravin {

/// How many bytes UnpackEntry writes after a stored (not compressed) entry's own: those that follow it in the archive,
/// and zeros past the archive's end. Intentional: models are unpacked this way; the Hog Editor extracts the exact
/// bytes.
inline constexpr std::uint64_t storedExcess = 50000;

/// True when an entry's bytes lie inside the archive. Only then may they be read.
bool LiesInside(const File& hog, const HogEntry& entry);

/// True when an entry's bytes start with the signature of compressed data. The entry must lie inside the archive.
/// @throws FileError
bool IsCompressed(File& hog, const HogEntry& entry);

/// Writes one entry of the archive to a file: unpacked if it is compressed, else its bytes and storedExcess more.
/// @param destination the file's whole path
/// @return the 16-bit signature at the entry's start
/// @throws FileError when the entry does not lie inside the archive (kind `outside`), is damaged, or a file fails; then
///   the destination is as it was
std::uint32_t UnpackEntry(Files& files, const std::string& hogPath, const std::string& destination, std::uint32_t size,
                          std::uint32_t offset);

/// The same, together with other files: the destination gets its name when they are committed (CommitWhole).
std::uint32_t AddUnpacked(Files& files, WholeFiles& together, const std::string& hogPath,
                          const std::string& destination, std::uint32_t size, std::uint32_t offset);

/// True when a file holds exactly what UnpackEntry would write for an entry.
/// @throws FileError as UnpackEntry
bool SameAsUnpacked(Files& files, const std::string& hogPath, const std::string& path, std::uint32_t size,
                    std::uint32_t offset);

/// An entry's content in memory: unpacked if it is compressed, else exactly its own bytes without storedExcess.
/// @param hog the archive, open for reading
/// @param most the limit for the size as stored, in bytes
/// @throws FileError when the entry is larger, does not lie inside the archive (kind `outside`), is damaged, or cannot
///   be read
Bytes ContentOf(File& hog, const HogEntry& entry, std::uint64_t most);

/// The same as UnpackEntry writes it: a stored entry is followed by storedExcess more bytes.
Bytes UnpackedContent(File& hog, const HogEntry& entry, std::uint64_t most);

/// An upper limit of the bytes that UnpackEntry writes for an entry, read from its first bytes.
std::uint64_t UnpackedSize(File& hog, std::uint32_t size, std::uint32_t offset);

}  // namespace oravin
