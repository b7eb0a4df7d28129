#pragma once

#include <string>

#include "desk/host.h"
#include "installation/installation.h"

namespace oravin {

/// Unpacks a ship's stock model into the game's ships folder, wherever the archive holds it now (LiveEntryOf). A
/// message box says so if the archive does not hold it.
/// @param model the file name to write it under
/// @param nowhere becomes true when the archive can be read and does not hold the model
/// @return whether the model was written
bool UnpackShip(Host& host, const Installation& installation, const ShipRecord& ship, const std::string& model,
                bool* nowhere = nullptr);

/// Unpacks every stock ship's model into the game's ships folder and disguises its name in the archive's table.
///
/// Intentional: both parts of a two-part ship get the first part's model. A name is disguised only if the table still
/// has it at the ship's place and the loose model is there; one message box lists the others. Without the game folder,
/// "Error - Invalid Path" is shown and the program ends.
void UnpackSetup(Host& host, const Installation& installation);

}  // namespace oravin
