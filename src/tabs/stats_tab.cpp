#include "tabs/stats_tab.h"

namespace oravin {

namespace {

/// Items whose Index counts from `first`.
std::vector<TypeItem> TypeItems(int first, const std::vector<std::string>& captions) {
  std::vector<TypeItem> items;
  items.reserve(captions.size());
  for (const std::string& caption : captions) items.push_back({first + static_cast<int>(items.size()), {caption}});
  return items;
}

void NameMenus(StatsTab& tab) {
  tab.pldStatsPopUp.caption = "StatsRightClick";
  tab.pldStatsCopy.caption = "Copy Stats";
  tab.pldStatsPaste.caption = "Paste Stats";
  tab.pldStatsRestoreDefault.caption = "Restore Default";
  tab.pldWeaponPopUp.caption = "WeaponRightClick";
  tab.pldChangeToGun.caption = "Change to Gun";
  // The items' captions differ from the weapons' names in the list in places; both are meant.
  tab.pldGunType = TypeItems(
      1, {"Laser Cannon", "Pulse Cannon", "Messon Blasters", "Proton Cannon", "Gatling Lasers", "Tachyon Cannon",
          "Neutron Particle", "Collapser Guns", "Gatling Plasma Cannon", "Vulcan Battery", "Nova Cannon (readme)",
          "Turret Flak Projectiles", "Turret Lasers", "Aliied Huge Gun (readme)", "Coal Huge Gun (readme)"});
  tab.pldChangeToExtGun.caption = "Change to Ext. Gun";
  tab.pldExtGunType = TypeItems(0, {"Pulse Cannon", "Gatling Lasers", "Proton Cannon", "Double Barrel Lasers",
                                    "Laser Cannon 1 (short)", "Laser Cannon 2 (short)", "Laser Cannon 3 (short)",
                                    "Laser Cannon 4 (Gatling look)", "Laser Cannon 5 (very small)"});
  tab.pldExtGunType.back().Index = 11;  // the codes 8 to 10 stand for no external gun
  tab.pldChangeToMissile.caption = "Change to Missile";
  tab.pldMissileType = TypeItems(0, {"Missile Point"});
}

}  // namespace

StatsTab NewStatsTab() {
  StatsTab tab;
  tab.lblShips.caption = "Ships:";
  tab.shipEditingList.columns = {{"", false}};
  tab.shipStatsList.columns = {{"Value:", true}, {"Statistic:", false}};
  tab.shipStatsList.labelsEditable = true;
  tab.cmdRestoreShipStats = {"&Restore Stats", "Restores stats for the selected ship", true};
  tab.cmdRestoreAllStats = {"&Restore All Stats", "Restores stats for all ships", true};
  tab.lblWeapons.caption = "Weapons:";
  tab.Label2.caption = "Right Click on Weapons to change";
  tab.shipWeaponsList.columns = {{"", false}};
  tab.chkHasCloak = {"Cloaking Device", "Toggles Cloak", true, false};
  tab.cmdRestoreWeapons = {"Restore Weapons", "Restores weapons info for the selected ship", true};
  tab.cmdEnable2 = {"&Enable", "Enables editing features - see readme", true};
  tab.CmdDisable2 = {"&Disable / Restore", "Disables editing features - see readme", true};
  NameMenus(tab);
  EnableStatsControls(tab);
  return tab;
}

int SelectedShip(const StatsTab& tab) { return SelectedItem(tab.shipEditingList); }

int RememberedShipIn(const StatsTab& tab, const Ships& ships) {
  if (!tab.remembered) return -1;
  const int index = tab.remembered->index;
  const bool same = index >= 0 && static_cast<std::size_t>(index) < ships.size() &&
                    ships[static_cast<std::size_t>(index)].ShipName.Trimmed() == tab.remembered->name;
  return same ? index : -1;
}

std::optional<std::size_t> SelectedAttachment(const StatsTab& tab) {
  const int index = SelectedItem(tab.shipWeaponsList);
  if (index < 0 || static_cast<std::size_t>(index) >= tab.attachments.size()) return std::nullopt;
  return static_cast<std::size_t>(index);
}

void EnableStatsControls(StatsTab& tab) {
  const bool ship = SelectedShip(tab) >= 0;
  const bool weapon = SelectedAttachment(tab).has_value();
  tab.cmdRestoreShipStats.enabled = ship;
  tab.cmdRestoreWeapons.enabled = ship;
  tab.chkHasCloak.enabled = ship;
  tab.cmdRestoreAllStats.enabled = !tab.shipEditingList.rows.empty();
  tab.pldStatsCopy.enabled = ship;
  tab.pldStatsPaste.enabled = ship && tab.remembered;
  tab.pldStatsRestoreDefault.enabled = ship;
  for (MenuItem* item : {&tab.pldChangeToGun, &tab.pldChangeToExtGun, &tab.pldChangeToMissile}) {
    item->enabled = weapon;
  }
  for (auto* items : {&tab.pldGunType, &tab.pldExtGunType, &tab.pldMissileType}) {
    for (TypeItem& item : *items) item.item.enabled = weapon;
  }
}

void ClearShip(StatsTab& tab) {
  ClearRows(tab.shipStatsList);
  ClearRows(tab.shipWeaponsList);
  tab.chkHasCloak.checked = false;
  tab.lblShipClass.caption.clear();
  tab.chart = StatsChart();
  tab.topView = TopView();
  tab.attachments.clear();
  tab.pairs = WeaponPairs();
}

void DisplayShipEdit(StatsTab& tab, const Ships& ships) {
  const int selected = SelectedShip(tab);
  ClearRows(tab.shipEditingList);
  for (std::size_t i = 0; i < ships.size(); ++i) {
    if (IsInert(ships[i])) continue;
    const int item = static_cast<int>(i);
    AddRow(tab.shipEditingList, {item, {ships[i].ShipName.Trimmed()}, 0, item == selected});
    if (ships[i].HasSecondPart) ++i;
  }
  if (ships.empty()) tab.remembered.reset();
  if (SelectedShip(tab) < 0) ClearShip(tab);
  EnableStatsControls(tab);
}

}  // namespace oravin
