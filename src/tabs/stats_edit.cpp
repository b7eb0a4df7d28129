#include "tabs/stats_edit.h"

#include "actions/edit_stats.h"
#include "base/number_text.h"
#include "installation/stats_source.h"
#include "tabs/stats_show.h"

namespace oravin {

void shipStatsList_AfterLabelEdit(Host& host, StatsTab& tab, const Installation& installation) {
  LabelEdit& edited = tab.shipStatsList.edited;
  edited.refused = true;
  const ShipRecord* ship = ShipAt(installation, SelectedShip(tab));
  if (ship == nullptr || edited.row >= statsRows.size()) return;
  const auto value = EditStat(host, installation, *ship, edited.row, edited.text);
  if (!value) return;
  edited.text = NumberText(*value);
  edited.refused = false;
  DisplayShipStats(host, tab, installation);
}

void pldStatsCopy_Click(Host& host, StatsTab& tab, const Installation& installation) {
  const int index = SelectedShip(tab);
  const ShipRecord* ship = ShipAt(installation, index);
  if (ship == nullptr) return;
  tab.remembered = RememberedShip{index, ship->ShipName.Trimmed()};
  DisplayShipStats(host, tab, installation);
  EnableStatsControls(tab, installation.ships);
}

void pldStatsPaste_Click(Host& host, StatsTab& tab, const Installation& installation) {
  const int to = SelectedShip(tab);
  const int from = RememberedShipIn(tab, installation.ships);
  if (ShipAt(installation, to) == nullptr || ShipAt(installation, from) == nullptr) return;
  if (PasteStats(host, installation, from, to)) DisplayShipStats(host, tab, installation);
}

void pldStatsRestoreDefault_Click(Host& host, StatsTab& tab, const Installation& installation) {
  const int index = SelectedShip(tab);
  if (ShipAt(installation, index) == nullptr) return;
  RestoreDefaults(host, installation, index);
  DisplayShipStats(host, tab, installation);
}

void cmdRestoreShipStats_Click(Host& host, StatsTab& tab, const Installation& installation) {
  pldStatsRestoreDefault_Click(host, tab, installation);
}

void cmdRestoreAllStats_Click(Host& host, StatsTab& tab, const Installation& installation) {
  if (RestoreAllDefaults(host, installation) && SelectedShip(tab) >= 0) DisplayShipStats(host, tab, installation);
}

}  // namespace oravin
