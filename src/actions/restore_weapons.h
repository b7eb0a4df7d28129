#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "desk/host.h"
#include "installation/installation.h"

namespace oravin {

/// Writes a ship's stock model, as the game's archive holds it now, as a file: the caller hands it in, as archives are
/// not this room's business. What goes wrong has its box; then no file is there.
/// @param folder,name of the file to write
/// @return false when the archive does not hold the model; then there was no box
using UnpackModel = std::function<bool(const std::string& folder, const std::string& name, const ShipRecord& ship)>;

/// The file in the program folder that a stock model is unpacked to for a moment.
inline constexpr const char* temporaryModel = "tmpweapn";

/// The model that the game flies as a ship's variant: beside the ship's, with "t_" before its name.
std::string VariantOf(const Installation& installation, const ShipRecord& ship);

/// Puts the attachment table of a ship's original model back into its model in the game's ships folder.
///
/// The original of a stock ship is in the archive, wherever that holds it now: a patch may have moved it since the
/// catalogue was built. While the ship is changed, the table goes into the model of the ship that replaces it as well.
/// The original of an imported ship is its backup, the model's name with the extension ".bak" in the same folder, else
/// its copy among the add-ons. A variant whose table has the same form gets the table too, as it had the same changes.
///
/// A table goes only into a model with the same number of attachments at the same file positions. Otherwise a box says
/// that the backup is too different, and nothing is written. Without an original, the box "No suitable original can be
/// found" titled "RestoreWeapons".
/// @param number the ship's index in the catalogue
/// @return whether the weapons are those of the original now
bool RestoreWeapons(Host& host, const Installation& installation, std::size_t number, const UnpackModel& unpack);

}  // namespace oravin
