#pragma once

#include "desk/host.h"
#include "installation/installation.h"
#include "tabs/stats_tab.h"

/// What is done on the statistics of the selected ship; without one nothing happens. A two-part ship is one ship, as in
/// a swap; only an edited value goes into the listed record's block alone.
namespace oravin {

/// Takes the text that a row of shipStatsList was edited to (`tab.shipStatsList.edited`) and writes the value into the
/// ship's block. An empty text is 0.
///
/// The four inertia rows take 0 to 1, else the box "Inertia must be a value between 0 and 1."; the others 0 to
/// 10,000,000, else the box "This value must be between 0 and 10,000,000". A text that is no number is refused with the
/// same box. What is refused, or cannot be written, leaves the file and the list as they were, and `edited.refused`
/// set.
void shipStatsList_AfterLabelEdit(Host& host, StatsTab& tab, const Installation& installation);

/// Remembers the selected ship for Paste, and for the chart to compare with.
void pldStatsCopy_Click(Host& host, StatsTab& tab, const Installation& installation);

/// Writes the present statistics of the remembered ship, those of its first block, into the own block of each part of
/// the selected ship, as a swap does.
void pldStatsPaste_Click(Host& host, StatsTab& tab, const Installation& installation);

/// Puts the default statistics of each part of the selected ship back. An imported part without a statistics text has
/// none: the box "Imported Ships have no default", once, after the other part has been restored.
void pldStatsRestoreDefault_Click(Host& host, StatsTab& tab, const Installation& installation);
void cmdRestoreShipStats_Click(Host& host, StatsTab& tab, const Installation& installation);

/// The same for every ship. One box at the end says how many were restored and which could not be, and why.
void cmdRestoreAllStats_Click(Host& host, StatsTab& tab, const Installation& installation);

}  // namespace oravin
