#pragma once

#include <string>

#include "desk/host.h"
#include "installation/installation.h"
#include "tabs/stats_tab.h"

namespace oravin {

/// Shows the statistics of the selected ship in shipStatsList, those that differ from its defaults in bold, and draws
/// the chart anew. Boxes are those of GetShipsStats; then the list is empty.
void DisplayShipStats(Host& host, StatsTab& tab, const Installation& installation);

/// Shows the weapons of the selected ship's model in the game's ships folder, a pair in one row, and its class byte.
/// A missing model gives the box "Error - Path not found". The attachment that was selected stays selected where it is
/// still listed.
void DisplayWeapons(Host& host, StatsTab& tab, const Installation& installation);

/// Shows the ship that was clicked in shipEditingList.
void shipEditingList_ItemClick(Host& host, StatsTab& tab, const Installation& installation);

/// Shows the selected ship anew, after anything else may have changed the game's files. Nothing without one.
void ShowShipAgain(Host& host, StatsTab& tab, const Installation& installation);

/// Shows what the class byte of a model says, which must be there.
void ShowClass(Host& host, StatsTab& tab, const std::string& model);

/// Marks the attachment whose row was clicked in shipWeaponsList.
void shipWeaponsList_ItemClick(StatsTab& tab);

}  // namespace oravin
