#pragma once

#include <cstdint>
#include <string>

#include "catalogue/ship_record.h"
#include "desk/host.h"

namespace oravin {

/// UnpackEntry into a folder, with boxes titled "UnpackFile()": "Error - Path(s) not found" when the folder or the
/// archive is missing, and the error trap's.
/// @param hogPath,folder trimmed in place; a backslash is appended to the folder
/// @return the signature, 4347 for a compressed entry; 0 when nothing was written
std::uint32_t UnpackFile(Host& host, std::string& hogPath, std::string& folder, const std::string& name,
                         std::uint32_t size, std::uint32_t offset);

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

}  // namespace oravin
