#pragma once

#include "gui/list_window.h"
#include "gui/pages.h"

/// The context menus of the stats page.
namespace oravin::gui {

/// Shows the menu of the statistics (pldStatsPopUp) and runs the chosen action.
void ShowStatsMenu(ListWindow& list, const StatsTab& tab, const Action& press);

/// Shows the menu of the weapons (pldWeaponPopUp) and runs the chosen action, with the item's Index in the record.
void ShowWeaponMenu(ListWindow& list, StatsTab& tab, const Action& press);

}  // namespace oravin::gui
