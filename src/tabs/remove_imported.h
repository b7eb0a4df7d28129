#pragma once

#include <functional>
#include <string>

#include "tabs/import_tab.h"
#include "tabs/swap.h"

namespace oravin {

/// Fills every list of ships anew.
using RefillLists = std::function<void()>;

/// Removes the ships that are selected in lstImported, after two questions: whether to, and whether their textures go
/// too. Both are asked before the first change, and then it is made sure that everything can be written; a list
/// `shipsData.txt` that cannot be used refuses the removal.
///
/// Stock ships that are changed to one of them are put back. Their models go from the game's ships folder with their
/// ".bak", their textures from the cache, unless a ship that stays needs these. Their lines go from `shipsData.txt`.
/// Their add-on files are not deleted but moved to a folder with the ship's name below `addons\removed\`; a bitmap only
/// together with its texture, and when no other ship names it. Their blocks of `shipstats.def` are filled with zeros.
/// At last they leave the catalogue, where the indices of the others are set anew.
///
/// The catalogue lists the ships until all the rest is gone: a removal that failed or was stopped can be done again and
/// does what is left, and "Disable / Restore" can undo it at any time. Each failure has the error trap's box.
///
/// @param refill called after the ships have left the catalogue, before "Removal Complete" is shown; and after a
///   removal that came to an end half-way
/// @return whether they were removed
bool cmdRemoveShips_Click(SwapDesk& desk, ImportTab& tab, const RefillLists& refill);

/// Selects every imported ship and removes them.
bool cmdRemoveAll_Click(SwapDesk& desk, ImportTab& tab, const RefillLists& refill);

/// The name of a folder for a ship's files: the ship's name with "_" for every character that no folder's name can
/// have or that FileExists does not take (codes above 127), and for a dot at its end; "_" before a name that the system
/// keeps for a device.
std::string FolderNameFor(const std::string& shipName);

}  // namespace oravin
