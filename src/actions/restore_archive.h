#pragma once

#include <string>

#include "catalogue/ship_record.h"
#include "desk/host.h"
#include "installation/model_entry.h"

namespace oravin {

/// Undoes in the archive and in the game's ships folder what enabling did, ship by ship.
///
/// A stock ship's name is put back in the archive's table, in the spelling that the table's backup has at the same
/// position, else in the catalogue's; only where the position still bears it. Its loose model and its ".org" are
/// deleted. An add-on ship's loose model is deleted, and its ".bak" where that holds the same as the add-on. When the
/// add-on is no longer among the add-ons, the person is asked once whether imported ships shall be deleted, and they
/// are deleted with their ".bak" whatever the answer is: that is meant. Names that were passed over are named in one
/// box at the end.
///
/// @param hogPath the live archive; without it the box "Error - hog not found" titled "RestoreHog", and nothing is done
/// @param shipsFolder the game's ships folder
/// @param addOnFolder the program's folder of add-on models
/// @param backup the table's backup; may be empty
/// @return false when a file could not be changed or deleted (its box was shown): then the catalogue is still needed
bool RestoreHog(Host& host, std::string hogPath, const std::string& shipsFolder, const std::string& addOnFolder,
                const Ships& ships, const HogTable& backup);

/// The same where there is no catalogue: every name that the table's backup knows and that stands disguised at the same
/// position is put back, and that name's loose model and ".org" are deleted.
bool RestoreHogByBackup(Host& host, std::string hogPath, const std::string& shipsFolder, const HogTable& backup);

}  // namespace oravin
