#pragma once

#include <string>

#include "desk/host.h"
#include "installation/installation.h"
#include "tabs/import_tab.h"

namespace oravin {

/// Gives an imported ship another name: in its catalogue record (of both its parts), in the records of the stock ships
/// that are changed to it, in its line of `shipsData.txt`, and in its block of `shipstats.def` where that bears the old
/// name.
///
/// The name is taken without the blanks at its ends. One that a ship bears already gives the box "The ship name '...'
/// has the same name as an existing ship."; another ship's is the same without regard to case too, since two records
/// that differ by case alone are the two parts of one ship. A name that is empty, longer than a record's field, or that
/// the ship list cannot hold has a box of its own. Where there is no list, or none of its lines is that ship's, a box
/// says so and the rename holds all the same; a list that cannot be used refuses it.
///
/// The ship's own record is written last: a rename that was stopped can be done again.
///
/// @param index in the catalogue
/// @return whether the ship bears the new name; the lists of ships are to be filled anew then
bool RenameImported(Host& host, Installation& installation, int index, const std::string& newName);

/// Renames the ship whose name was edited in lstImported; `edited.refused` says afterwards that the old name stays.
/// @return as RenameImported
bool lstImported_AfterLabelEdit(Host& host, ImportTab& tab, Installation& installation);

}  // namespace oravin
