#pragma once

#include "app/main.h"

namespace oravin {

/// Has the maps of the companions (`gloadconv.dat`) ready, whether or not a ship needs them now: where the file is
/// missing, it is learned from the game's own textures. When that cannot be done, or the file cannot be used, one box
/// says why.
/// @return whether there are maps; false without a box when there is no cache
bool ReadyLoadoutMaps(Main& main);

/// Makes the companion textures that imported ships lack. Where all have theirs nothing is read but the cache's table,
/// and no box comes. The maps must be ready.
void SetUpLoadouts(Main& main);

}  // namespace oravin
