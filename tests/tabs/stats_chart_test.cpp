#include "tabs/stats_chart.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/stats_tab_stage.h"
#include "tabs/stats_edit.h"

namespace oravin::test {
namespace {

struct Chart : TabStage {
  /// Gives the first three ships a maximum speed each and takes the others away.
  void Speeds(const std::vector<float>& speeds) {
    installation.ships.resize(speeds.size());
    std::vector<Bytes> blocks;
    for (std::size_t i = 0; i < speeds.size(); ++i) {
      ShipStats stats = StatsFrom(1);
      stats.values[0] = speeds[i];
      blocks.push_back(StatsBlock("", stats));
      installation.ships[i] = Ship("S" + std::to_string(i), "s.shp", static_cast<int>(i));
    }
    WriteFileAt(Game("shipstats.bin"), Joined(blocks));
  }
  ChartRow First(int selected, int compared = -1) {
    return ChartOf(at.host.files, installation, selected, compared).rows.at(0);
  }
};

TEST_F(Chart, HasARowForEachStatisticInTheShownOrder) {
  Choose(bravo);
  EXPECT_EQ(tab.chart.selectedName, "Bravo");
  EXPECT_EQ(tab.chart.comparedName, "");
  for (std::size_t i = 0; i < statsCount; ++i) {
    const ChartRow& row = tab.chart.rows.at(i);
    EXPECT_EQ(row.label, statsRows.at(i).label);
    EXPECT_EQ(row.selected->value, 100.5F + static_cast<float>(statsRows.at(i).field));
    EXPECT_FALSE(row.compared);
  }
}

TEST_F(Chart, CountsEveryShipOnceWithItsOwnBlock) {
  // Alpha and Homeless share the first block; Twin's second part does not count.
  Choose(alpha);
  const ChartRow& row = tab.chart.rows.at(0);
  EXPECT_EQ(row.smallest->value, 0.5F);
  EXPECT_EQ(row.largest->value, 500.5F);
  EXPECT_EQ(row.middle->value, 150.5F);  // of 0.5, 0.5, 100.5, 200.5, 400.5, 500.5
}

TEST_F(Chart, TheMiddleOfAnOddNumberOfShipsIsTheMiddleOne) {
  Speeds({30, 10, 20});
  EXPECT_EQ(First(0).middle->value, 20);
}

TEST_F(Chart, PlacesGoFromZeroToTheLargest) {
  Speeds({30, 10, 40});
  const ChartRow row = First(0, 1);
  EXPECT_DOUBLE_EQ(row.zero, 0);
  EXPECT_DOUBLE_EQ(row.smallest->place, 0.25);
  EXPECT_DOUBLE_EQ(row.selected->place, 0.75);
  EXPECT_DOUBLE_EQ(row.compared->place, 0.25);
  EXPECT_DOUBLE_EQ(row.largest->place, 1);
}

TEST_F(Chart, NegativeValuesMoveTheZero) {
  Speeds({-10, 0, 30});
  const ChartRow row = First(0);
  EXPECT_DOUBLE_EQ(row.zero, 0.25);
  EXPECT_DOUBLE_EQ(row.selected->place, 0);
}

TEST_F(Chart, ShipsThatAreAllZeroStandAtTheBeginning) {
  Speeds({0, 0});
  EXPECT_DOUBLE_EQ(First(1).selected->place, 0);
}

TEST_F(Chart, WhatIsNoFiniteNumberHasNoMark) {
  const float huge = std::numeric_limits<float>::max();
  Speeds({std::numeric_limits<float>::quiet_NaN(), huge, -huge, std::numeric_limits<float>::infinity()});
  EXPECT_FALSE(First(0).selected);
  EXPECT_FALSE(First(3).selected);
  const ChartRow row = First(1);
  EXPECT_EQ(row.largest->value, huge);
  EXPECT_EQ(row.smallest->value, -huge);
  EXPECT_EQ(row.middle->value, 0);
  EXPECT_DOUBLE_EQ(row.selected->place, 1);
  EXPECT_DOUBLE_EQ(row.zero, 0.5);
}

TEST_F(Chart, AShipWithoutABlockDoesNotCount) {
  Speeds({30, 10, 20});
  installation.ships[1].StatsIndex = Int16Value(77);
  EXPECT_EQ(First(0).smallest->value, 20);
  EXPECT_FALSE(First(1).selected);
}

TEST_F(Chart, ComparesWithTheRememberedShip) {
  Choose(manta);
  pldStatsCopy_Click(at.host, tab, installation);
  EXPECT_EQ(tab.chart.comparedName, "");  // a ship is not compared with itself
  Choose(bravo);
  EXPECT_EQ(tab.chart.comparedName, "Manta");
  EXPECT_EQ(tab.chart.rows.at(0).compared->value, 400.5F);
}

TEST_F(Chart, FollowsAnEditedValue) {
  Choose(wraith);
  ASSERT_TRUE(Edit(0, "1000"));
  EXPECT_EQ(tab.chart.rows.at(0).selected->value, 1000);
  EXPECT_EQ(tab.chart.rows.at(0).largest->value, 1000);
}

TEST_F(Chart, WithoutFilesThereIsNothingToDraw) {
  std::filesystem::remove(Game("shipstats.bin"));
  std::filesystem::remove(Game("shipstats.def"));
  const StatsChart chart = ChartOf(at.host.files, installation, 0, 1);
  for (const ChartRow& row : chart.rows) EXPECT_FALSE(row.smallest || row.middle || row.largest || row.selected);
}

}  // namespace
}  // namespace oravin::test
