#pragma once

#include "app/main.h"

namespace oravin {

/// Enables the editing features: builds the catalogue, unpacks the stock models into the game's ships folder, disguises
/// their names in the archive's table and sets up the statistics. Asks first; whatever can stop it stops it before the
/// first change. On an enabled installation every changed ship is put back first.
///
/// @throws ProgramEnd for a ship list whose number of ships is not positive; after ImportTexture's box for a full cache
///   when that lacks slots for the add-on ships' textures and their companions
void cmdEnable_Click(Main& main);

}  // namespace oravin
