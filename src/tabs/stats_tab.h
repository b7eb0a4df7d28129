#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "desk/controls.h"
#include "desk/host.h"
#include "installation/installation.h"
#include "models/attachments.h"
#include "tabs/stats_chart.h"
#include "tabs/top_view.h"

namespace oravin {

/// An item of a menu's control array.
struct TypeItem {
  int Index = 0;  ///< in the control array: the type code that the item stands for
  MenuItem item;
};

/// The ship that Copy remembers for Paste.
struct RememberedShip {
  int index = -1;    ///< in the catalogue
  std::string name;  ///< the trimmed ShipName
};

/// The columns of shipStatsList; the value is what is edited in place.
enum StatsColumn : std::size_t { statsValueColumn, statsLabelColumn };

/// The controls of the "Ship Stats / Guns" tab, and what it shows.
struct StatsTab {
  Label lblShips;
  ListView shipEditingList;
  Label lblShipClass;  ///< what the selected ship's class byte says

  ListView shipStatsList;  ///< a row's item is its number from 0; bold where the value is not the default
  Button cmdRestoreShipStats;
  Button cmdRestoreAllStats;

  Label lblWeapons;
  Label Label2;
  ListView shipWeaponsList;  ///< a row's item is the attachment's index
  CheckBox chkHasCloak;
  Button cmdRestoreWeapons;

  MenuItem pldStatsPopUp;  ///< the menu of shipStatsList; its items are these three, a separator before the third
  MenuItem pldStatsCopy;
  MenuItem pldStatsPaste;
  MenuItem pldStatsRestoreDefault;

  MenuItem pldWeaponPopUp;  ///< the menu of shipWeaponsList; its items are these three, each with a submenu
  MenuItem pldChangeToGun;
  std::vector<TypeItem> pldGunType;
  MenuItem pldChangeToExtGun;
  std::vector<TypeItem> pldExtGunType;
  MenuItem pldChangeToMissile;
  std::vector<TypeItem> pldMissileType;
  int clickedType = 0;  ///< the Index of the submenu's item that was clicked last

  Button cmdEnable2;
  Button CmdDisable2;

  StatsChart chart;
  TopView topView;

  ShpAttachments attachments;  ///< of the selected ship's model, as they were read for the list
  WeaponPairs pairs;
  std::optional<RememberedShip> remembered;
};

/// The tab as it looks before a catalogue is loaded.
StatsTab NewStatsTab();

/// Fills the tab's list of ships from the catalogue: every ship once, a two-part ship by its first record. The ship
/// that was selected stays selected. Without a catalogue the remembered ship is forgotten, and without a selected ship
/// nothing is shown of one.
void DisplayShipEdit(StatsTab& tab, const Ships& ships);

/// The index of the selected ship; -1 when none is selected.
int SelectedShip(const StatsTab& tab);

/// The index of the remembered ship; -1 when there is none, or when the catalogue has another ship there by now.
int RememberedShipIn(const StatsTab& tab, const Ships& ships);

/// The index of the attachment that the selected row of shipWeaponsList shows.
std::optional<std::size_t> SelectedAttachment(const StatsTab& tab);

/// Enables what can be used on what is selected.
void EnableStatsControls(StatsTab& tab);

/// Empties everything that shows the selected ship.
void ClearShip(StatsTab& tab);

}  // namespace oravin
