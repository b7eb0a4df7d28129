#include "switcher/imported_list.h"

#include <set>
#include <string>

#include "switcher/switcher_tab.h"

namespace oravin {

bool IsListedImport(const Ships& ships, int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= ships.size()) return false;
  const auto at = static_cast<std::size_t>(index);
  if (IsInert(ships[at]) || !ships[at].Imported) return false;
  if (at == 0 || !ships[at - 1].HasSecondPart || !ships[at - 1].Imported) return true;
  // Of three parts in a row the second one is marked, too: then the third is a ship of its own again.
  return !IsListedImport(ships, index - 1);
}

void lstImported_ItemClick(ImportTab& tab) {
  tab.cmdRemoveShips.enabled = SelectedRow(tab.lstImported).has_value();
  tab.cmdRemoveAll.enabled = !tab.lstImported.rows.empty();
}

void DisplayImported(Host& host, ImportTab& tab, const Installation& installation) {
  std::set<std::string> selected;
  for (const ListRow& row : tab.lstImported.rows) {
    if (row.selected) selected.insert(TextAt(tab.lstImported, row, 0));
  }
  ClearRows(tab.lstImported);
  for (std::size_t i = 0; i < installation.ships.size(); ++i) {
    if (!IsListedImport(installation.ships, static_cast<int>(i))) continue;
    const ShipRecord& ship = installation.ships[i];
    const std::string name = ship.ShipName.Trimmed();
    AddRow(tab.lstImported, {"s" + std::to_string(i + 1),
                             {name},
                             ImportedImage(host, installation, ship),
                             selected.contains(name)});
  }
  lstImported_ItemClick(tab);
}

}  // namespace oravin
