#pragma once

#include <string>

#include "desk/host.h"

/// Ship model files (`*.shp`). The class byte stands at the absolute offset 26: 1, 3 and 5 mark a capital ship, 2 a
/// fighter that carries a cloaking device, 0 a fighter without one.
namespace oravin {

/// True when the model's class byte is that of a capital ship. A file that cannot be read that far gives false without
/// a word; a missing one a box titled "IsCapitalShip".
bool IsCapitalShip(Host& host, std::string path);

/// True when the model's class byte is 2. As IsCapitalShip, with the title "IsCloaked".
bool IsCloaked(Host& host, std::string path);

/// Writes 2 into the class byte when it is not 2, else 0; a capital ship's byte becomes 2 as well. The boxes bear the
/// title "IsCloaked"; that is meant.
void ToggleCloak(Host& host, std::string path);

}  // namespace oravin
