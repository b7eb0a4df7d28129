// Which entry of the archive is a ship's model.

#include "installation/model_entry.h"

#include "support/archive_stage.h"

namespace oravin::test {
namespace {

HogTable Table(const std::vector<std::string>& names) {
  std::vector<HogEntry> entries;
  for (const std::string& name : names) {
    const auto number = static_cast<std::uint32_t>(entries.size() + 1);
    entries.push_back({name, 10 * number, 100 * number, 1000 * number});
  }
  return TableOf(std::move(entries));
}

std::uint32_t PlaceOf(const std::optional<HogEntry>& entry) { return entry ? entry->FatPos : 0; }

TEST(FindModel, TheLiveTableComesFirst) {
  EXPECT_EQ(PlaceOf(FindModel("alpha.shp", Table({"x", "ALPHA.SHP"}), Table({"alpha.shp"}))), 2000U);
}

TEST(FindModel, TheBackupIsAskedForWhatTheLiveTableDoesNotList) {
  EXPECT_EQ(PlaceOf(FindModel("alpha.shp", Table({"x", "S47ha.shp"}), Table({"x", "y", "Alpha.shp"}))), 3000U);
}

TEST(FindModel, TheFirstOfSeveralEntriesIsTaken) {
  EXPECT_EQ(PlaceOf(FindModel("alpha.shp", Table({"x", "alpha.shp", "alpha.shp"}), {})), 2000U);
}

TEST(FindModel, TheOneDisguisedNameIsTheLastResort) {
  EXPECT_EQ(PlaceOf(FindModel("alpha.shp", Table({"x", "s47HA.shp"}), Table({"x"}))), 2000U);
}

TEST(FindModel, OfTwoEntriesWithTheDisguisedNameNoneIsTaken) {
  EXPECT_FALSE(FindModel("alpha.shp", Table({"S47ha.shp", "S47ha.shp"}), Table({"x"})));
}

TEST(FindModel, ADisguisedNameInTheBackupAloneIsNone) {
  EXPECT_FALSE(FindModel("alpha.shp", Table({"x"}), Table({"S47ha.shp"})));
}

TEST(FindModel, NowhereIsNothing) { EXPECT_FALSE(FindModel("alpha.shp", Table({"x"}), {})); }

TEST(IsDisguised, WhenOnlyTheDisguisedNameIsListed) {
  EXPECT_TRUE(IsDisguised("alpha.shp", Table({"S47HA.SHP"})));
  EXPECT_FALSE(IsDisguised("alpha.shp", Table({"S47ha.shp", "Alpha.shp"})));
  EXPECT_FALSE(IsDisguised("alpha.shp", Table({"x"})));
}

struct TheRecordedEntry : testing::Test {
  TheRecordedEntry() { stage.Write({{"alpha.shp", Bytes(10, 1)}, {"bravo.shp", Bytes(20, 2)}}); }

  [[nodiscard]] ShipRecord Alpha() const {
    return ShipAt("Alpha", "alpha.shp", EntryNamed(stage.Archive(), "alpha.shp"));
  }
  bool Holds(const ShipRecord& ship) { return RecordedEntry(stage.host.files, stage.Installed(), ship).has_value(); }

  ArchiveStage stage;
};

TEST_F(TheRecordedEntry, IsTheOneInTheRecordWhileTheArchiveHasIt) {
  const auto entry = RecordedEntry(stage.host.files, stage.Installed(), Alpha());
  ASSERT_TRUE(entry.has_value());
  const TableEntry expected = EntryNamed(stage.Archive(), "alpha.shp");
  EXPECT_EQ(*entry, (HogEntry{"alpha.shp", expected.size, expected.offset, expected.position}));
}

TEST_F(TheRecordedEntry, IsNoneWithoutAPlaceOrWithAnotherOffsetOrSize) {
  EXPECT_FALSE(Holds(StockShip("Alpha", "alpha.shp")));
  ShipRecord alpha = Alpha();
  alpha.HogOffset = Int32Value(Unsigned32(alpha.HogOffset) + 1);
  EXPECT_FALSE(Holds(alpha));
  alpha = Alpha();
  alpha.HogSize = Int32Value(Unsigned32(alpha.HogSize) + 1);
  EXPECT_FALSE(Holds(alpha));
  EXPECT_TRUE(Holds(Alpha()));
}

TEST(LookUpModel, ARecordWithoutAPlaceIsLookedUpByItsPlainNameOnly) {
  const ShipRecord unplaced = StockShip("Alpha", "alpha.shp");
  EXPECT_EQ(PlaceOf(LookUpModel(unplaced, Table({"x", "ALPHA.shp"}))), 2000U);
  EXPECT_FALSE(LookUpModel(unplaced, Table({"x", "S47ha.shp"})));
  const ShipRecord placed = ShipAt("Alpha", "alpha.shp", {"alpha.shp", 1, 2, 3});
  EXPECT_EQ(PlaceOf(LookUpModel(placed, Table({"x", "S47ha.shp"}))), 2000U);
}

}  // namespace
}  // namespace oravin::test
