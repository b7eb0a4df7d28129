#include "tabs/imported_list.h"

#include <set>
#include <string>

namespace oravin {

std::vector<std::size_t> ImportedParts(const Ships& ships, int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= ships.size()) return {};
  const auto at = static_cast<std::size_t>(index);
  if (IsInert(ships[at]) || !ships[at].Imported) return {};
  // In a run of same-named records all but the last have HasSecondPart; pair them from the start.
  std::size_t first = at;
  while (first > 0 && ships[first - 1].HasSecondPart && ships[first - 1].Imported) --first;
  if ((at - first) % 2 == 1) return {};
  if (ships[at].HasSecondPart && ships[at + 1].Imported) return {at, at + 1};
  return {at};
}

void lstImported_ItemClick(ImportTab& tab) {
  tab.cmdRemoveShips.enabled = SelectedRow(tab.lstImported).has_value();
  tab.cmdRemoveAll.enabled = !tab.lstImported.rows.empty();
}

void DisplayImported(Host& host, ImportTab& tab, const Installation& installation, const ModelClasses& known) {
  std::set<std::string> selected;
  for (const ListRow& row : tab.lstImported.rows) {
    if (row.selected) selected.insert(TextAt(tab.lstImported, row, 0));
  }
  ClearRows(tab.lstImported);
  for (std::size_t i = 0; i < installation.ships.size(); ++i) {
    const ShipRecord& ship = installation.ships[i];
    if (IsInert(ship) || !ship.Imported) continue;
    const std::string name = ship.ShipName.Trimmed();
    const bool capital = i < known.size() && known[i] ? *known[i] : IsImportedCapital(host, installation, ship);
    AddRow(tab.lstImported, {static_cast<int>(i), {name}, ImageOfImported(capital), selected.contains(name)});
    if (ship.HasSecondPart && installation.ships[i + 1].Imported) ++i;  // a second part is never listed by itself
  }
  lstImported_ItemClick(tab);
}

}  // namespace oravin
