#include "tabs/imported_list.h"

#include <set>
#include <string>

#include "actions/imported_parts.h"
#include "actions/rename_imported.h"
#include "base/text.h"

namespace oravin {

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
  tab.capitalShips.clear();
  for (std::size_t i = 0; i < installation.ships.size(); ++i) {
    const ShipRecord& ship = installation.ships[i];
    if (IsInert(ship) || !ship.Imported) continue;
    const std::string name = ship.ShipName.Trimmed();
    const bool capital = i < known.size() && known[i] ? *known[i] : IsImportedCapital(host, installation, ship);
    if (capital) tab.capitalShips.insert(static_cast<int>(i));
    AddRow(tab.lstImported, {static_cast<int>(i), {name}, ImageOfImported(capital), selected.contains(name)});
    if (ship.HasSecondPart && installation.ships[i + 1].Imported) ++i;  // a second part is never listed by itself
  }
  lstImported_ItemClick(tab);
}

std::vector<int> SelectedImported(const ImportTab& tab, const Ships& ships) {
  std::vector<int> selected;
  for (const ListRow& row : tab.lstImported.rows) {
    const int index = row.item;
    if (row.selected && !ImportedParts(ships, index).empty()) selected.push_back(index);
  }
  return selected;
}

bool lstImported_AfterLabelEdit(Host& host, ImportTab& tab, Installation& installation) {
  LabelEdit& edited = tab.lstImported.edited;
  edited.refused = true;
  if (edited.row >= tab.lstImported.rows.size()) return false;
  const int index = tab.lstImported.rows[edited.row].item;
  if (!RenameImported(host, installation, index, edited.text)) return false;
  edited.refused = false;
  SetText(tab.lstImported, edited.row, 0, Trim(edited.text));
  return true;
}

}  // namespace oravin
