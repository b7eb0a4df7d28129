#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include "catalogue/installation.h"
#include "desk/host.h"

namespace oravin {

/// Writes an entry of the game's archive as a file: the caller hands it in, as archives are not this room's business.
/// It says itself what goes wrong; then no file is there.
/// @param folder,name of the file to write
/// @param size,offset of the entry's data in the archive, in bytes
using UnpackModel =
    std::function<void(const std::string& folder, const std::string& name, std::uint32_t size, std::uint32_t offset)>;

/// The file in the program folder that a stock model is unpacked to for a moment.
inline constexpr const char* temporaryModel = "tmpweapn";

/// The model that the game flies as a ship's variant: beside the ship's, with "t_" before its name.
std::string VariantOf(const Installation& installation, const ShipRecord& ship);

/// Puts the attachment table of a ship's original model back into its model in the game's ships folder.
///
/// The original of a stock ship is in the archive, where the record's HogOffset and HogSize say; while the ship is
/// changed, the table goes into the model of the ship that replaces it as well. The original of an imported ship is its
/// backup, the model's name with the extension ".bak" in the same folder, else its copy among the add-ons. A variant
/// whose table has the same form gets the table too, as it had the same changes.
///
/// A table goes only into a model with the same number of attachments at the same file positions. Otherwise a box says
/// that the backup is too different, and nothing is written. Without an original, the box "No suitable original can be
/// found" titled "RestoreWeapons".
/// @param number the ship's index in the catalogue
/// @return whether the weapons are those of the original now
bool RestoreWeapons(Host& host, const Installation& installation, std::size_t number, const UnpackModel& unpack);

}  // namespace oravin
