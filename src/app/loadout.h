#pragma once

#include "app/main.h"

namespace oravin {

/// Makes the companion textures that imported ships lack. Where all have theirs nothing is read but the cache's table,
/// and no box comes. The maps (`gloadconv.dat`) are learned from the game's own textures where they are missing.
void SetUpLoadouts(Main& main);

}  // namespace oravin
