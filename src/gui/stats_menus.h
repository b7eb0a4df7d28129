#pragma once

#include "gui/list_window.h"
#include "gui/pages.h"

/// The menus of the page with the ships' statistics and weapons.
namespace oravin::gui {

/// Shows the menu of the statistics (pldStatsPopUp) and runs what is chosen.
void ShowStatsMenu(ListWindow& list, const StatsTab& tab, const Action& press);

/// Shows the menu of the weapons (pldWeaponPopUp) and runs what is chosen, with the item's Index in the record.
void ShowWeaponMenu(ListWindow& list, StatsTab& tab, const Action& press);

}  // namespace oravin::gui
