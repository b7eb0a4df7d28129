#pragma once

#include "desk/host.h"
#include "installation/installation.h"

namespace oravin {

/// Has the maps of the companions (`gloadconv.dat`) ready, whether or not a ship needs them now: where the file is
/// missing, it is learned from the game's own textures. When that cannot be done, or the file cannot be used, one
/// message box says why.
/// @return whether there are maps; false without a message box when there is no cache
bool ReadyLoadoutMaps(Host& host, const Installation& installation);

/// Makes the companion textures that imported ships lack. Where none is missing, only the cache's table is read, and no
/// message box is shown. The maps must be ready.
void SetUpLoadouts(Host& host, const Installation& installation);

}  // namespace oravin
