#pragma once

#include <optional>
#include <string>

#include "desk/host.h"
#include "installation/installation.h"
#include "tabs/stats_tab.h"

namespace oravin {

/// Reads the statistics of the selected ship and shows them in shipStatsList, those that differ from its defaults in
/// bold, and in the chart. Boxes are those of GetShipsStats; then the list is empty.
void DisplayShipStats(Host& host, StatsTab& tab, const Installation& installation);

/// Reads the weapons and the class of the selected ship's model in the game's ships folder and shows them, a pair in
/// one row. A missing model gives the box "Error - Path not found". The attachment that was selected stays selected
/// where it is still listed.
void DisplayWeapons(Host& host, StatsTab& tab, const Installation& installation);

/// Reads the class of the selected ship's model and shows it.
void DisplayClass(Host& host, StatsTab& tab, const Installation& installation);

/// A class in words: "Capital ship", "Fighter with a cloaking device", "Fighter"; empty for none.
std::string ClassText(const std::optional<ShipClass>& shipClass);

/// Shows the ship that was clicked in shipEditingList.
void shipEditingList_ItemClick(Host& host, StatsTab& tab, const Installation& installation);

/// Shows the selected ship anew, after anything else may have changed the game's files. Nothing without one.
void ShowShipAgain(Host& host, StatsTab& tab, const Installation& installation);

/// Empties everything that shows the selected ship.
void ClearShip(StatsTab& tab);

/// Marks the attachment whose row was clicked in shipWeaponsList.
void shipWeaponsList_ItemClick(StatsTab& tab);

}  // namespace oravin
