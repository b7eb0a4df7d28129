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

/// Which kind of ships the switcher's lists show.
enum class ShipsShown { fighters, capitalShips };

/// The controls of the "Switcher" tab.
struct SwitcherTab {
  ShipsShown shown = ShipsShown::fighters;
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

/// Whether the ships' models are capital ships, by the ships' indices; nothing for a ship whose model was not read.
using ModelClasses = std::vector<std::optional<bool>>;

/// Fills the two lists with the fighters or with the capital ships. A two-part ship is one item; imported ships are
/// only listed to change to. A row's item is the ship's index. No row is selected then.
/// @return the classes that were read, so that other lists need not read the models again
ModelClasses DisplaySwitcher(Host& host, SwitcherTab& tab, const Installation& installation, ShipsShown kind);

/// Sets `shown`, and the caption of cmdToggle, which offers the other kind.
void ShowKind(SwitcherTab& tab, ShipsShown kind);

/// Shows in the second column of the ship's row what the ship is changed to now.
void ShowMark(SwitcherTab& tab, const Installation& installation, int target);

/// Empties the second column.
void ClearMarks(SwitcherTab& tab);

/// Enables what can be used on what is selected: "----->" with exactly one row selected in each list, "<-----" with one
/// row of a changed ship in swapOrgList.
void EnableSwitcherControls(SwitcherTab& tab, const Installation& installation);

/// Fills the lists with the other kind of ships than the first item's (of the first ship, when nothing is listed).
/// Intentional: `shown` becomes the other kind whatever is listed, so the two may differ where there are no ships of
/// one kind.
void cmdToggle_Click(Host& host, SwitcherTab& tab, const Installation& installation);

/// Starts the game folder's model viewer with the model of the selected ship; nothing happens where the game folder has
/// none.
void ViewModel(Files& files, const ListView& list, const Installation& installation);

}  // namespace oravin
