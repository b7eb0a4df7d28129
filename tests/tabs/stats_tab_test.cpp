#include "tabs/stats_tab.h"

#include <gtest/gtest.h>

namespace oravin {
namespace {

ShipRecord Ship(const std::string& name) {
  ShipRecord ship;
  ship.ShipName.Set(name);
  ship.ShipFile.Set(name + ".shp");
  return ship;
}

TEST(StatsTab, LooksAsItDoesBeforeACatalogueIsLoaded) {
  const StatsTab tab = NewStatsTab();
  EXPECT_EQ(tab.lblShips.caption, "Ships:");
  EXPECT_EQ(tab.shipEditingList.columns.size(), 1U);
  EXPECT_TRUE(tab.shipStatsList.labelsEditable);
  EXPECT_TRUE(tab.shipEditingList.rows.empty());
  EXPECT_EQ(tab.lblWeapons.caption, "Weapons:");
  EXPECT_EQ(tab.cmdEnable2.caption, "&Enable");
  EXPECT_EQ(tab.CmdDisable2.caption, "&Disable / Restore");
}

TEST(StatsTab, BearsItsCaptionsAndTooltips) {
  const StatsTab tab = NewStatsTab();
  EXPECT_EQ(tab.Label2.caption, "Right Click on Weapons to change");
  EXPECT_EQ(tab.chkHasCloak.caption, "Cloaking Device");
  EXPECT_EQ(tab.chkHasCloak.tooltip, "Toggles Cloak");
  EXPECT_EQ(tab.cmdRestoreShipStats.caption, "&Restore Stats");
  EXPECT_EQ(tab.cmdRestoreShipStats.tooltip, "Restores stats for the selected ship");
  EXPECT_EQ(tab.cmdRestoreAllStats.caption, "&Restore All Stats");
  EXPECT_EQ(tab.cmdRestoreAllStats.tooltip, "Restores stats for all ships");
  EXPECT_EQ(tab.cmdRestoreWeapons.caption, "Restore Weapons");
  EXPECT_EQ(tab.cmdRestoreWeapons.tooltip, "Restores weapons info for the selected ship");
  EXPECT_EQ(tab.cmdEnable2.tooltip, "Enables editing features - see readme");
  EXPECT_EQ(tab.CmdDisable2.tooltip, "Disables editing features - see readme");
}

TEST(StatsTab, ThePopUpMenusHaveTheirItems) {
  const StatsTab tab = NewStatsTab();
  EXPECT_EQ(tab.pldStatsPopUp.caption, "StatsRightClick");
  EXPECT_EQ(tab.pldStatsCopy.caption, "Copy Stats");
  EXPECT_EQ(tab.pldStatsPaste.caption, "Paste Stats");
  EXPECT_EQ(tab.pldStatsRestoreDefault.caption, "Restore Default");
  EXPECT_EQ(tab.pldWeaponPopUp.caption, "WeaponRightClick");
  EXPECT_EQ(tab.pldChangeToGun.caption, "Change to Gun");
  EXPECT_EQ(tab.pldChangeToExtGun.caption, "Change to Ext. Gun");
  EXPECT_EQ(tab.pldChangeToMissile.caption, "Change to Missile");
}

using Items = std::vector<std::pair<int, std::string>>;

Items ItemsOf(const std::vector<TypeItem>& array) {
  Items items;
  for (const TypeItem& item : array) items.emplace_back(item.Index, item.item.caption);
  return items;
}

TEST(StatsTab, TheMenuItemsStandForTheWeaponsCodes) {
  const StatsTab tab = NewStatsTab();
  EXPECT_EQ(ItemsOf(tab.pldGunType), (Items{{1, "Laser Cannon"},
                                            {2, "Pulse Cannon"},
                                            {3, "Messon Blasters"},
                                            {4, "Proton Cannon"},
                                            {5, "Gatling Lasers"},
                                            {6, "Tachyon Cannon"},
                                            {7, "Neutron Particle"},
                                            {8, "Collapser Guns"},
                                            {9, "Gatling Plasma Cannon"},
                                            {10, "Vulcan Battery"},
                                            {11, "Nova Cannon (readme)"},
                                            {12, "Turret Flak Projectiles"},
                                            {13, "Turret Lasers"},
                                            {14, "Aliied Huge Gun (readme)"},
                                            {15, "Coal Huge Gun (readme)"}}));
  EXPECT_EQ(ItemsOf(tab.pldExtGunType), (Items{{0, "Pulse Cannon"},
                                               {1, "Gatling Lasers"},
                                               {2, "Proton Cannon"},
                                               {3, "Double Barrel Lasers"},
                                               {4, "Laser Cannon 1 (short)"},
                                               {5, "Laser Cannon 2 (short)"},
                                               {6, "Laser Cannon 3 (short)"},
                                               {7, "Laser Cannon 4 (Gatling look)"},
                                               {11, "Laser Cannon 5 (very small)"}}));
  EXPECT_EQ(ItemsOf(tab.pldMissileType), (Items{{0, "Missile Point"}}));
}

TEST(StatsTab, NothingCanBeDoneBeforeAShipIsSelected) {
  StatsTab tab = NewStatsTab();
  DisplayShipEdit(tab, {Ship("A")});
  EXPECT_TRUE(tab.cmdRestoreAllStats.enabled);
  for (const Button* button : {&tab.cmdRestoreShipStats, &tab.cmdRestoreWeapons}) EXPECT_FALSE(button->enabled);
  for (const MenuItem* item : {&tab.pldStatsCopy, &tab.pldStatsPaste, &tab.pldStatsRestoreDefault}) {
    EXPECT_FALSE(item->enabled);
  }
  EXPECT_FALSE(tab.chkHasCloak.enabled);
  EXPECT_FALSE(tab.pldChangeToGun.enabled);
  EXPECT_FALSE(tab.pldGunType.front().item.enabled);
  SelectOnly(tab.shipEditingList, 0);
  EnableStatsControls(tab);
  EXPECT_TRUE(tab.cmdRestoreShipStats.enabled);
  EXPECT_TRUE(tab.chkHasCloak.enabled);
  DisplayShipEdit(tab, {});
  EXPECT_FALSE(tab.cmdRestoreAllStats.enabled);
  EXPECT_FALSE(tab.cmdRestoreShipStats.enabled);
}

TEST(StatsTab, ListsEveryShipOnceATwoPartShipByItsFirstRecord) {
  Ships ships = {Ship("A"), Ship("Two"), Ship("Two"), Ship("B"), ShipRecord()};
  ships[1].HasSecondPart = true;
  StatsTab tab = NewStatsTab();
  DisplayShipEdit(tab, ships);
  const auto& rows = tab.shipEditingList.rows;
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[0].item, 0);
  EXPECT_EQ(rows[0].texts, (std::vector<std::string>{"A"}));
  EXPECT_EQ(rows[1].item, 1);
  EXPECT_EQ(rows[2].item, 3);
  EXPECT_EQ(rows[2].texts, (std::vector<std::string>{"B"}));
}

TEST(StatsTab, TheSelectedShipStaysSelected) {
  const Ships ships = {Ship("A"), Ship("B")};
  StatsTab tab = NewStatsTab();
  DisplayShipEdit(tab, ships);
  SelectOnly(tab.shipEditingList, 1);
  DisplayShipEdit(tab, ships);
  EXPECT_EQ(SelectedRow(tab.shipEditingList), 1U);
  DisplayShipEdit(tab, {});
  EXPECT_TRUE(tab.shipEditingList.rows.empty());
}

}  // namespace
}  // namespace oravin
