#pragma once

#include <optional>
#include <vector>

#include "desk/controls.h"
#include "desk/host.h"
#include "installation/installation.h"

namespace oravin {

/// The pictures of the ship kinds in the window's image list.
inline constexpr int stockImage = 2;
inline constexpr int otherStockImage = 3;
inline constexpr int importedFighterImage = 5;
inline constexpr int importedCapitalImage = 6;

/// The controls of the "Switcher" tab.
struct SwitcherTab {
  ListView swapOrgList;  ///< the stock ships that can be changed, and what they are changed to
  ListView swapToList;   ///< the ships that they can be changed to
  Button cmdSwap;
  Button cmdUnswap;
  Button cmdUnswapAll;
  Button cmdToggle;
  Button cmdEnable;
  Button cmdDisable;
};

/// The tab as it looks before a catalogue is loaded, with nothing to switch.
SwitcherTab NewSwitcherTab();

/// True when an imported ship's model is a capital ship's. One whose model is missing counts as a fighter.
bool IsImportedCapital(Host& host, const Installation& installation, const ShipRecord& ship);

/// The picture of an imported ship.
int ImageOfImported(bool capital);

/// What the models of the ships say of their class: whether they are capital ships, by the ships' indices. Nothing for
/// a ship that was not asked for.
using ModelClasses = std::vector<std::optional<bool>>;

/// Fills the two lists with the capital ships, or with the fighters. A two-part ship is one item; imported ships are
/// only listed to change to. An item's key is "s" and the ship's index counted from 1. No row is selected then.
/// @return the classes that were read, for whoever needs them in the same moment
ModelClasses DisplaySwitcher(Host& host, SwitcherTab& tab, const Installation& installation, bool capitalShips);

/// Enables what can be used on what is selected: "----->" with exactly one row selected in each list, "<-----" with one
/// row of a changed ship in swapOrgList.
void EnableSwitcherControls(SwitcherTab& tab, const Installation& installation);

/// Shows the other kind of ships than the first item's (of the first ship, when nothing is listed), and turns the
/// caption round.
void cmdToggle_Click(Host& host, SwitcherTab& tab, const Installation& installation);

/// Starts the game folder's model viewer with the model of the selected ship; nothing happens where the game folder has
/// none.
void ViewModel(Files& files, const ListView& list, const Installation& installation);

}  // namespace oravin
