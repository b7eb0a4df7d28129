#pragma once

#include <span>
#include <string>
#include <vector>

#include "desk/host.h"
#include "installation/installation.h"
#include "lists/ship_list.h"

namespace oravin {

/// Reads the ship list of the program folder.
///
/// A missing list gives the box "shipsData.txt not found" with the critical icon. A number of ships that is not
/// positive gives "Error in shipsData.txt file" with the critical icon, and the program ends (ProgramEnd). Other errors
/// give the error trap's box.
/// @return the ships; none when the list cannot be used
std::vector<ListedShip> LoadShipList(Host& host, const Installation& installation);

/// Saves a ship list (ReplaceShipList).
///
/// Boxes, after which the old list is unchanged: one titled "Ship list" for ships that could not be read back
/// (WhyUnreadable), and the error trap's for a disk that fails.
/// @param path the list's whole path
/// @return whether it was saved
bool SaveShipList(Host& host, const std::string& path, std::span<const ListedShip> ships);

}  // namespace oravin
