#pragma once

#include "desk/host.h"
#include "installation/installation.h"
#include "tabs/stats_tab.h"

/// The handlers for the statistics of the selected ship (actions/edit_stats.h); without one nothing happens.
namespace oravin {

/// Takes the text that a row of shipStatsList was edited to (`tab.shipStatsList.edited`) and writes the value
/// (EditStat). What is refused, or cannot be written, leaves the list as it was, and `edited.refused` set.
void shipStatsList_AfterLabelEdit(Host& host, StatsTab& tab, const Installation& installation);

/// Remembers the selected ship for Paste, and for the chart to compare with.
void pldStatsCopy_Click(Host& host, StatsTab& tab, const Installation& installation);

/// Writes the present statistics of the remembered ship into the selected one (PasteStats).
void pldStatsPaste_Click(Host& host, StatsTab& tab, const Installation& installation);

/// Restores the default statistics of the selected ship (RestoreDefaults).
void pldStatsRestoreDefault_Click(Host& host, StatsTab& tab, const Installation& installation);
void cmdRestoreShipStats_Click(Host& host, StatsTab& tab, const Installation& installation);

/// Restores the default statistics of every ship (RestoreAllDefaults).
void cmdRestoreAllStats_Click(Host& host, StatsTab& tab, const Installation& installation);

}  // namespace oravin
