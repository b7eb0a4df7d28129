#include "ships/stats_tab.h"

namespace oravin {

StatsTab NewStatsTab() {
  StatsTab tab;
  tab.purpose.caption = "Here you will edit a ship's statistics and weapons.";
  tab.shipEditingList.columns = {{"Ships:", false}};
  tab.lblWeapons.caption = "Weapons:";
  tab.cmdEnable2 = {"&Enable", "Enables editing features - see readme", true};
  tab.CmdDisable2 = {"&Disable / Restore", "Disables editing features - see readme", true};
  return tab;
}

void DisplayShipEdit(StatsTab& tab, const Ships& ships) {
  const auto before = SelectedRow(tab.shipEditingList);
  const std::string selected = before ? tab.shipEditingList.rows[*before].key : std::string();
  ClearRows(tab.shipEditingList);
  for (std::size_t i = 0; i < ships.size(); ++i) {
    if (IsInert(ships[i])) continue;
    const std::string key = "s" + std::to_string(i + 1);
    AddRow(tab.shipEditingList, {key, {ships[i].ShipName.Trimmed()}, 0, key == selected});
    if (ships[i].HasSecondPart) ++i;
  }
}

}  // namespace oravin
