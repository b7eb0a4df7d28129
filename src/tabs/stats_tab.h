#pragma once

#include <optional>
#include <string>
#include <vector>

#include "actions/edit_weapons.h"
#include "desk/controls.h"
#include "installation/installation.h"
#include "stats/ship_stats.h"
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
  Label lblShipClass;  ///< the selected ship's class

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

  // Of the selected ship, as they were read last; tabs/stats_show.h makes the lists and captions from them.
  std::optional<ShipStats> stats;
  std::optional<ShipStats> defaults;
  ModelWeapons weapons;
  std::optional<ShipClass> shipClass;

  std::optional<RememberedShip> remembered;  ///< whether it can be used, RememberedShipIn says
};

/// The tab before a catalogue is loaded.
StatsTab NewStatsTab();

/// Fills the tab's list of ships from the catalogue: every ship once, a two-part ship by its first record. The selected
/// ship stays selected; without one nothing is shown of a ship. Without a catalogue the remembered ship is forgotten.
void DisplayShipEdit(StatsTab& tab, const Ships& ships);

/// The index of the selected ship; -1 when none is selected.
int SelectedShip(const StatsTab& tab);

/// The index of the remembered ship; -1 when there is none, or when the catalogue now has another ship there.
int RememberedShipIn(const StatsTab& tab, const Ships& ships);

/// The index of the attachment that the selected row of shipWeaponsList shows.
std::optional<std::size_t> SelectedAttachment(const StatsTab& tab);

/// Enables the controls that can be used on the selected ship and weapon.
void EnableStatsControls(StatsTab& tab, const Ships& ships);

/// Enables the weapon menus when a weapon is selected.
void EnableWeaponMenus(StatsTab& tab);

}  // namespace oravin
