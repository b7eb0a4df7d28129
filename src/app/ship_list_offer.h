#pragma once

#include <string>

#include "app/main.h"

namespace oravin {

/// Offers to make the ship list of a program folder that has none, from the game's own files. On Yes the list is
/// drafted and shown in its form until the user saves or cancels it.
/// @param game,program folders, ending in a backslash
/// @return whether the program folder has a ship list now
bool OfferShipList(Main& main, const std::string& game, const std::string& program);

}  // namespace oravin
