#pragma once

#include <cstddef>

#include "desk/host.h"
#include "installation/installation.h"

namespace oravin {

/// Writes the attachment table of a ship's original model into its model in the game's ships folder.
///
/// The original of a stock ship is in the archive, wherever that holds it now: a patch may have moved it since the
/// catalogue was built. While the ship is changed, the table goes into the model of the ship that replaces it as well.
/// The original of an imported ship is its backup, the model's name with the extension ".bak" in the same folder, else
/// its copy among the add-ons. A variant whose table has the same form gets the table too, as it had the same changes.
///
/// A table goes only into a model with the same number of attachments at the same file positions. Otherwise a box says
/// that the backup is too different, and nothing is written. Without an original, the box "No suitable original can be
/// found" titled "RestoreWeapons"; an archive that is missing or cannot be read has a box titled "UnpackFile()".
/// @param number the ship's index in the catalogue
/// @return whether the weapons are those of the original now
bool RestoreWeapons(Host& host, const Installation& installation, std::size_t number);

}  // namespace oravin
