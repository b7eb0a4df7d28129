#pragma once

#include <cstdint>
#include <string>

#include "catalogue/ship_record.h"
#include "desk/host.h"
#include "files/file.h"
#include "files/whole_file.h"
#include "hog/Hog.h"

namespace oravin {

/// What a stored (not compressed) entry is written with behind its own bytes: those that follow it in the archive, and
/// zeros past the archive's end. This is meant; extraction in the archive's tab is the way to the exact bytes.
inline constexpr std::uint64_t storedExcess = 50000;

/// Writes one entry of the archive to a file: unpacked where it is compressed, else its bytes and storedExcess more.
/// @param destination the file's whole path
/// @return the 16-bit signature at the entry's start
/// @throws RunTimeError when the entry does not lie inside the archive, is damaged, or a file fails; then the
///   destination is as it was
std::uint32_t UnpackEntry(Files& files, const std::string& hogPath, const std::string& destination, std::uint32_t size,
                          std::uint32_t offset);

/// The same, together with other files: the destination takes its name when these are committed (CommitWhole).
std::uint32_t AddUnpacked(Files& files, WholeFiles& together, const std::string& hogPath,
                          const std::string& destination, std::uint32_t size, std::uint32_t offset);

/// True when a file holds exactly what UnpackEntry would write for an entry.
/// @throws RunTimeError as UnpackEntry
bool SameAsUnpacked(Files& files, const std::string& hogPath, const std::string& path, std::uint32_t size,
                    std::uint32_t offset);

/// An entry's content in memory: unpacked where it is compressed, else exactly its own bytes without storedExcess.
/// @param hog the archive, open for reading
/// @param most the greatest size as stored, in bytes, that is still read
/// @throws RunTimeError when the entry is larger, does not lie inside the archive, is damaged, or cannot be read
Bytes ContentOf(File& hog, const HogEntry& entry, std::uint64_t most);

/// UnpackEntry into a folder, with boxes titled "UnpackFile()": "Error - Path(s) not found" when the folder or the
/// archive is missing, and the error trap's.
/// @param hogPath,folder trimmed in place; a backslash is appended to the folder
/// @return the signature, 4347 for a compressed entry; 0 when nothing was written
std::uint32_t UnpackFile(Host& host, std::string& hogPath, std::string& folder, const std::string& name,
                         std::uint32_t size, std::uint32_t offset);

/// UnpackFile for a ship's stock model, wherever the archive holds it now (LiveEntryOf): a patch may have moved or
/// replaced it since the catalogue was built.
/// @return false when the archive does not hold the model, or holds nothing under its name; then there was no box
bool UnpackStockModel(Host& host, const std::string& hogPath, const std::string& folder, const std::string& name,
                      const ShipRecord& ship);

/// Writes a ship's stock model into the game's ships folder, after making sure that the archive still lists that ship
/// where the catalogue says (LiveEntryOf). Where it is nowhere, a box says so.
/// @param model the file name to write it under
/// @param nowhere becomes true when the archive can be read and does not have the model
/// @return whether the model was written
bool UnpackShip(Host& host, const std::string& gamePath, const ShipRecord& ship, const std::string& model,
                bool* nowhere = nullptr);

/// Writes every stock ship's model into the game's ships folder and disguises its name in the archive's table.
///
/// Of a two-part ship the first part's model is written under both names: that is meant. A name is disguised only where
/// the table's position still bears it and the loose model is there; what was passed over is named in one box. A folder
/// that is missing gives "Error - Invalid Path", and the program ends.
void UnpackSetup(Host& host, std::string& gamePath, const Ships& ships);

/// The most bytes that UnpackEntry may write for an entry, read from its first bytes.
std::uint64_t UnpackedSize(File& hog, std::uint32_t size, std::uint32_t offset);

}  // namespace oravin
