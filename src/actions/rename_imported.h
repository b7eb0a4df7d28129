#pragma once

#include <string>

#include "desk/host.h"
#include "installation/installation.h"

namespace oravin {

/// Gives an imported ship another name: in its catalogue record (of both its parts), in the records of the stock ships
/// that are swapped to it, in its line of `shipsData.txt`, and in its block of `shipstats.def` where that has the old
/// name.
///
/// Spaces at the ends of the name do not count. A name that a ship has already gives the message box "The ship name
/// '...' has the same name as an existing ship."; another ship's name is refused in any letter case, since two records
/// whose names differ by case alone are the two parts of one ship. A name that is empty, longer than a record's field,
/// or that the ship list cannot hold has a message box of its own. Where there is no list, or it does not list the
/// ship, a message box says so and the ship is renamed all the same; a list that cannot be used refuses the rename.
///
/// The ship's own record is written last: a rename that was stopped can be repeated.
///
/// @param index in the catalogue
/// @return whether the ship has the new name; the lists of ships have to be filled anew then
bool RenameImported(Host& host, Installation& installation, int index, const std::string& newName);

}  // namespace oravin
