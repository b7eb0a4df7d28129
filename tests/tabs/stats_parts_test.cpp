// Statistics of ships of two parts: pasting and restoring treats them as one ship.

#include "support/stats_tab_stage.h"
#include "tabs/stats_edit.h"

namespace oravin::test {
namespace {

struct StatsOfParts : TabStage {
  /// Makes wraith the second part of manta.
  void MakeImportedShipOfTwoParts() {
    installation.ships[wraith].ShipName.Set("Manta");
    installation.ships[manta].HasSecondPart = true;
    installation.ships[manta].SecondPartIndex = Int16Value(wraith);
    DisplayShipEdit(tab, installation.ships);
  }
  void Paste(std::size_t from, std::size_t to) {
    Choose(from);
    pldStatsCopy_Click(at.host, tab, installation);
    Choose(to);
    pldStatsPaste_Click(at.host, tab, installation);
  }
};

TEST_F(StatsOfParts, PastingOntoATwoPartShipWritesBothPartsAsASwapDoes) {
  FolderImage expected = Image();
  Paste(alpha, twin);
  PutStats(expected, "game/shipstats.bin", 2, StatsFrom(0.5F));
  PutStats(expected, "game/shipstats.bin", 3, StatsFrom(0.5F));
  EXPECT_TRUE(SameImage(expected, Image()));
  EXPECT_EQ(tab.shipStatsList.rows.at(0).texts.at(0), "0.5");
}

TEST_F(StatsOfParts, PastingATwoPartShipOntoAnotherWritesItsFirstBlockToBothParts) {
  MakeImportedShipOfTwoParts();
  FolderImage expected = Image();
  Paste(twin, manta);
  PutStats(expected, "game/shipstats.def", 4, StatsFrom(200.5F));
  PutStats(expected, "game/shipstats.def", 5, StatsFrom(200.5F));
  EXPECT_TRUE(SameImage(expected, Image()));
}

TEST_F(StatsOfParts, PastingOntoATwoPartShipWhoseSecondBlockIsMissingShowsWhatTheFirstBecame) {
  installation.ships[twinVariant].StatsIndex = Int16Value(99);
  FolderImage expected = Image();
  at.desk.ExpectBox("Error - invalid ship", "PutShipsStats");
  Paste(alpha, twin);
  PutStats(expected, "game/shipstats.bin", 2, StatsFrom(0.5F));
  EXPECT_TRUE(SameImage(expected, Image()));
  EXPECT_EQ(tab.shipStatsList.rows.at(0).texts.at(0), "0.5");
}

TEST_F(StatsOfParts, AValueEditedInItsPlaceChangesTheFirstPartAlone) {
  Choose(twin);
  FolderImage expected = Image();
  ASSERT_TRUE(Edit(0, "77"));
  ShipStats stats = StatsFrom(200.5F);
  stats.values[0] = 77;
  PutStats(expected, "game/shipstats.bin", 2, stats);
  EXPECT_TRUE(SameImage(expected, Image()));
}

TEST_F(StatsOfParts, RestoringATwoPartShipGivesEachPartItsOwnDefault) {
  const FolderImage before = Image();
  for (const auto restore : {pldStatsRestoreDefault_Click, cmdRestoreShipStats_Click}) {
    for (const std::size_t block : {2U, 3U}) PatchFileAt(Game("shipstats.bin"), block * 352 + 64, Bytes{1, 2, 3, 4});
    Choose(twin);
    restore(at.host, tab, installation);
    EXPECT_TRUE(SameImage(before, Image()));
    EXPECT_EQ(tab.shipStatsList.rows.at(0).texts.at(0), "200.5");
  }
}

TEST_F(StatsOfParts, RestoringAnImportedTwoPartShipReadsTheTextOfEachPart) {
  MakeImportedShipOfTwoParts();
  WriteFileAt(Program("addons/stats/wraith.txt"), "9,9,9,9,9,9,9,9,9,9,9,9,9,9,9");
  FolderImage expected = Image();
  Choose(manta);
  pldStatsRestoreDefault_Click(at.host, tab, installation);
  PutStats(expected, "game/shipstats.def", 4, MantasText());
  ShipStats nines;
  nines.values.fill(9);
  PutStats(expected, "game/shipstats.def", 5, nines);
  EXPECT_TRUE(SameImage(expected, Image()));
}

TEST_F(StatsOfParts, APartWithoutADefaultIsReportedAndTheOtherOneIsRestored) {
  MakeImportedShipOfTwoParts();
  const FolderImage before = Image();
  FolderImage expected = before;
  PutStats(expected, "game/shipstats.def", 4, MantasText());
  Choose(manta);
  at.desk.ExpectBox(noDefaultBox);
  cmdRestoreShipStats_Click(at.host, tab, installation);
  EXPECT_TRUE(SameImage(expected, Image()));

  std::filesystem::rename(Program("addons/stats/manta.txt"), Program("addons/stats/wraith.txt"));
  WriteFileAt(Game("shipstats.def"), before.at("game/shipstats.def"));
  at.desk.ExpectBox(noDefaultBox);
  cmdRestoreShipStats_Click(at.host, tab, installation);
  PutStats(expected, "game/shipstats.def", 4, StatsFrom(400.5F));
  PutStats(expected, "game/shipstats.def", 5, MantasText());
  EXPECT_TRUE(SameBytes(expected.at("game/shipstats.def"), ReadFileAt(Game("shipstats.def"))));

  WriteFileAt(Game("shipstats.def"), before.at("game/shipstats.def"));
  installation.ships.resize(wraith + 1);
  at.desk.ExpectBox(
      "The statistics of 3 ships were restored.\nThese could not be restored:\nManta: Imported Ships have no default");
  cmdRestoreAllStats_Click(at.host, tab, installation);
  EXPECT_TRUE(SameBytes(expected.at("game/shipstats.def"), ReadFileAt(Game("shipstats.def"))));
}

TEST_F(StatsOfParts, RestoringAnImportedTwoPartShipWithoutTextsIsReportedOnce) {
  MakeImportedShipOfTwoParts();
  std::filesystem::remove(Program("addons/stats/manta.txt"));
  const FolderImage before = Image();
  Choose(manta);
  at.desk.ExpectBox(noDefaultBox);
  pldStatsRestoreDefault_Click(at.host, tab, installation);
  EXPECT_TRUE(SameImage(before, Image()));
}

TEST_F(StatsOfParts, RestoringATwoPartShipWithoutDefaultsIsReportedOnce) {
  std::filesystem::remove(Game("shipstats.def"));
  const FolderImage before = Image();
  Choose(twin);
  at.desk.ExpectBox("Error - file not found", "GetShipsStats");
  pldStatsRestoreDefault_Click(at.host, tab, installation);
  EXPECT_TRUE(SameImage(before, Image()));
}

}  // namespace
}  // namespace oravin::test
