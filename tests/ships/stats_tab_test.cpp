#include "ships/stats_tab.h"

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
  ASSERT_EQ(tab.shipEditingList.columns.size(), 1U);
  EXPECT_EQ(tab.shipEditingList.columns[0].heading, "Ships:");
  EXPECT_TRUE(tab.shipEditingList.rows.empty());
  EXPECT_EQ(tab.lblWeapons.caption, "Weapons:");
  EXPECT_EQ(tab.cmdEnable2.caption, "&Enable");
  EXPECT_EQ(tab.CmdDisable2.caption, "&Disable / Restore");
  EXPECT_EQ(tab.purpose.caption, "Here you will edit a ship's statistics and weapons.");
}

TEST(StatsTab, ListsEveryShipOnceATwoPartShipByItsFirstRecord) {
  Ships ships = {Ship("A"), Ship("Two"), Ship("Two"), Ship("B"), ShipRecord()};
  ships[1].HasSecondPart = true;
  StatsTab tab = NewStatsTab();
  DisplayShipEdit(tab, ships);
  const auto& rows = tab.shipEditingList.rows;
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[0].key, "s1");
  EXPECT_EQ(rows[0].texts, (std::vector<std::string>{"A"}));
  EXPECT_EQ(rows[1].key, "s2");
  EXPECT_EQ(rows[2].key, "s4");
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
