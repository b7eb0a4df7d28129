#pragma once

#include "actions/remove_imported.h"
#include "actions/swap_ships.h"
#include "app/main.h"

/// Shows on the tabs what actions have changed.
namespace oravin {

/// Fills every list of ships from the catalogue; the switcher shows the fighters.
void FillLists(Main& main);

/// The same, but the switcher shows the kind of ships that it showed before.
void RefillShipLists(Main& main);

/// Empties every list of ships.
void EmptyLists(Main& main);

/// Shows a swap or an unswap: the target's mark in the switcher and, after the last step, the stats tab's ships.
void ShowChanges(Main& main, const SwapResult& result);

/// Shows that all ships were unswapped: no mark in the switcher, and the stats tab's ships.
void ShowAllUnswapped(Main& main);

/// Shows a removal: every list of ships is filled anew, and the stats tab keeps the ship that it shows and the one that
/// it remembers.
void ShowChanges(Main& main, const RemovalResult& result);

}  // namespace oravin
