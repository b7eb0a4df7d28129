#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "desk/host.h"
#include "installation/installation.h"
#include "tabs/stats_tab.h"
#include "tabs/switcher_tab.h"

/// A swap makes the game fly one ship, the source, in place of a stock ship, the target: the target's model and
/// statistics are replaced by the source's, and its catalogue record remembers it. The stock model is kept beside under
/// its name with the extension ".org", the stock statistics in `shipstats.def`; an unswap puts both back.
///
/// A ship whose model is nowhere, neither loose nor in the archive, has nothing to move aside: a swap stops there,
/// after the catalogue was written. An unswap that finds no model leaves none: the other ship's is deleted, and one
/// that is not the same any more is kept in `backup\ships\`.
///
/// Nothing is rolled back: a failure in a later step leaves the records that were written.
namespace oravin {

/// Closes what other tabs hold open; called before files are changed.
using CloseOthers = std::function<void()>;

/// The records and tabs that a swap touches.
struct SwapDesk {
  Host& host;
  Installation& installation;
  StatsTab& statsTab;
  CloseOthers closeOthers;
};

/// True when the catalogue's file is there; otherwise the box "Error - ships.dat not found - Reinstall" has been shown.
bool CatalogueThere(Host& host, const Installation& installation, const char* title);

/// Makes the ship selected in swapToList fly in place of the one selected in swapOrgList. Silently nothing unless
/// exactly one row is selected in each, when both ships have one name, or when the target is changed to that ship
/// already. Without a catalogue file the box "Error - ships.dat not found - Reinstall".
void cmdSwap_Click(SwapDesk& desk, SwitcherTab& tab);

/// Puts the ship selected in swapOrgList back. Silently nothing without exactly one selected row, or when the ship is
/// not changed.
void cmdUnSwap_Click(SwapDesk& desk, SwitcherTab& tab);

/// Puts every changed ship back, in the order of the catalogue.
void cmdUnswapAll_Click(SwapDesk& desk, SwitcherTab& tab);

/// The same as the two handlers, by the ships' names and without the lists: the first ship of that trimmed, upper-cased
/// name. A name that no ship has does nothing.
void SwapShip(SwapDesk& desk, const std::string& targetName, const std::string& sourceName);
void UnswapShip(SwapDesk& desk, const std::string& targetName);

/// The same as UnswapShip by the ship's index in the catalogue, for ships that share their name with others.
/// @return false when something went wrong, of which a box has told
bool UnswapAt(SwapDesk& desk, int target);

/// Unswaps and swaps the pairs of (target, source) names in list order; a pair whose target is blank is passed over.
void SwapPairs(SwapDesk& desk, const std::vector<std::pair<std::string, std::string>>& pairs);

}  // namespace oravin
