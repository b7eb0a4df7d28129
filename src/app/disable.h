#pragma once

#include "app/main.h"

namespace oravin {

/// "Disable / Restore": puts the archive's names, the ships folder, the statistics and the texture cache back, deletes
/// the catalogue and returns the player's own models. Asks first. Without a catalogue it works by the backup of the
/// archive's table and block by block.
void cmdDisable_Click(Main& main);

}  // namespace oravin
