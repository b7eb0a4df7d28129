#pragma once

#include "catalogue/ship_record.h"
#include "desk/controls.h"

namespace oravin {

/// The controls of the "Ship Stats / Guns" tab.
struct StatsTab {
  Label purpose;  ///< what the tab is for, in one line
  ListView shipEditingList;
  Label lblWeapons;
  Button cmdEnable2;
  Button CmdDisable2;
};

/// The tab as it looks before a catalogue is loaded.
StatsTab NewStatsTab();

/// Fills the tab's list of ships from the catalogue: every ship once, a two-part ship by its first record. The ship
/// that was selected stays selected.
void DisplayShipEdit(StatsTab& tab, const Ships& ships);

}  // namespace oravin
