#include "tabs/stats_edit.h"

#include <gtest/gtest.h>

#include "support/fault.h"
#include "support/file_marks.h"
#include "support/stats_tab_stage.h"

namespace oravin::test {

namespace {

using Strings = std::vector<std::string>;

constexpr const char* inertiaBox = "Inertia must be a value between 0 and 1.";
constexpr const char* valueBox = "This value must be between 0 and 10,000,000";

struct StatsEditing : TabStage {
  void Copy(std::size_t ship) {
    Choose(ship);
    pldStatsCopy_Click(at.host, tab, installation);
  }
  void Paste(std::size_t ship) {
    Choose(ship);
    pldStatsPaste_Click(at.host, tab, installation);
  }
};

TEST_F(StatsEditing, TheRowsStandInTheShownOrder) {
  Choose(alpha);
  EXPECT_EQ(Texts(tab.shipStatsList, statsLabelColumn),
            (Strings{"Max Speed", "Inertia", "Yaw Max", "Yaw Inertia", "Pitch Max", "Pitch Inertia", "Roll Max",
                     "Roll Inertia", "Shield Strength", "Shield Recharge", "Armor Strength", "Afterburner Fuel",
                     "Gun Energy", "Gun Recharge", "Ammo"}));
  EXPECT_EQ(Texts(tab.shipStatsList, statsValueColumn),
            (Strings{"0.5", "1.5", "2.5", "3.5", "4.5", "5.5", "6.5", "7.5", "8.5", "11.5", "9.5", "10.5", "12.5",
                     "13.5", "14.5"}));
  EXPECT_TRUE(tab.shipStatsList.columns.at(statsValueColumn).number);
}

TEST_F(StatsEditing, AnImportedShipsStatisticsComeFromTheDefaults) {
  Choose(manta);
  EXPECT_EQ(tab.shipStatsList.rows.at(0).texts.at(0), "400.5");
}

TEST_F(StatsEditing, AnImportedShipWithoutABlockShowsTheFirstOne) {
  Choose(homeless);
  EXPECT_EQ(tab.shipStatsList.rows.at(0).texts.at(0), "0.5");
}

TEST_F(StatsEditing, AMissingFileShowsNothing) {
  std::filesystem::remove(Game("shipstats.bin"));
  at.desk.ExpectBox("Error - file not found", "GetShipsStats");
  Choose(alpha);
  EXPECT_TRUE(tab.shipStatsList.rows.empty());
  EXPECT_EQ(tab.chart.selectedName, "");
}

TEST_F(StatsEditing, EveryRowChangesItsOwnFieldAndNothingElse) {
  static constexpr std::array<std::size_t, 15> offsets = {0, 4, 8, 12, 16, 20, 24, 28, 32, 44, 36, 40, 48, 52, 56};
  Choose(bravo);
  for (std::size_t row = 0; row < 15; ++row) {
    SCOPED_TRACE(row);
    FolderImage expected = Image();
    ASSERT_TRUE(Edit(row, "0.25"));
    PutLittleEndian32(&expected.at("game/shipstats.bin").at(352 + 64 + offsets.at(row)), 0x3E800000);
    EXPECT_TRUE(SameImage(expected, Image()));
    EXPECT_EQ(tab.shipStatsList.rows.at(row).texts.at(0), "0.25");
  }
}

TEST_F(StatsEditing, ShieldRechargeChangesTheOffset44AndNot36) {
  Choose(alpha);
  FolderImage expected = Image();
  ASSERT_TRUE(Edit(9, "77"));
  ShipStats stats = StatsFrom(0.5F);
  stats.values[11] = 77;
  PutStats(expected, "game/shipstats.bin", 0, stats);
  EXPECT_TRUE(SameImage(expected, Image()));
}

TEST_F(StatsEditing, AnImportedShipsValueIsWrittenIntoTheDefaults) {
  Choose(manta);
  FolderImage expected = Image();
  ASSERT_TRUE(Edit(0, "77"));
  ShipStats stats = StatsFrom(400.5F);
  stats.values[0] = 77;
  PutStats(expected, "game/shipstats.def", 4, stats);
  EXPECT_TRUE(SameImage(expected, Image()));
}

TEST_F(StatsEditing, AnImportedShipWithoutABlockWritesTheFirstOneOfTheCurrentFile) {
  Choose(homeless);
  FolderImage expected = Image();
  ASSERT_TRUE(Edit(0, "77"));
  ShipStats stats = StatsFrom(0.5F);
  stats.values[0] = 77;
  PutStats(expected, "game/shipstats.bin", 0, stats);
  EXPECT_TRUE(SameImage(expected, Image()));
}

TEST_F(StatsEditing, TheInertiaRowsTakeZeroToOne) {
  Choose(alpha);
  for (const std::size_t row : {1U, 3U, 5U, 7U}) {
    for (const char* text : {"0", "1", "0.5", "1.0", "-0"}) EXPECT_TRUE(Edit(row, text)) << text;
    for (const char* text : {"1.5", "1.00000001", "-0.1", "-1e-30", "2", "abc", "1e400"}) {
      const FolderImage before = Image();
      at.desk.ExpectBox(inertiaBox);
      EXPECT_FALSE(Edit(row, text)) << text;
      EXPECT_TRUE(SameImage(before, Image()));
    }
  }
}

TEST_F(StatsEditing, TheOtherRowsTakeZeroToTenMillion) {
  Choose(alpha);
  for (std::size_t row = 0; row < 15; ++row) {
    if (row == 1 || row == 3 || row == 5 || row == 7) continue;
    for (const char* text : {"0", "10000000", "10000000.0", "1e7"}) EXPECT_TRUE(Edit(row, text)) << text;
    for (const char* text : {"10000000.1", "10000001", "-1", "1e8", "1,5", "inf", "nan", "ten"}) {
      const FolderImage before = Image();
      at.desk.ExpectBox(valueBox);
      EXPECT_FALSE(Edit(row, text)) << text;
      EXPECT_TRUE(SameImage(before, Image()));
    }
  }
}

TEST_F(StatsEditing, ARefusedValueLeavesTheOldOneShown) {
  Choose(alpha);
  at.desk.ExpectBox(valueBox);
  EXPECT_FALSE(Edit(0, "fast"));
  EXPECT_EQ(tab.shipStatsList.rows.at(0).texts.at(0), "0.5");
}

TEST_F(StatsEditing, AnEmptyTextIsZero) {
  Choose(alpha);
  EXPECT_TRUE(Edit(0, ""));
  EXPECT_EQ(tab.shipStatsList.edited.text, "0");
  EXPECT_TRUE(Edit(1, "  "));
  EXPECT_EQ(tab.shipStatsList.rows.at(1).texts.at(0), "0");
}

TEST_F(StatsEditing, TheTextBecomesTheCanonicalOne) {
  Choose(alpha);
  const std::vector<std::pair<std::string, std::string>> texts = {
      {" +250 ", "250"}, {"250.000", "250"},     {"0.10", "0.1"}, {".5", "0.5"},
      {"-0", "0"},       {"0.100000001", "0.1"}, {"2.5e2", "250"}};
  for (const auto& [typed, canonical] : texts) {
    EXPECT_TRUE(Edit(0, typed));
    EXPECT_EQ(tab.shipStatsList.edited.text, canonical);
    EXPECT_EQ(tab.shipStatsList.rows.at(0).texts.at(0), canonical);
  }
}

TEST_F(StatsEditing, WithoutAShipNothingIsEdited) {
  const FolderImage before = Image();
  EXPECT_FALSE(Edit(0, "5"));
  Choose(alpha);
  EXPECT_FALSE(Edit(15, "5"));
  EXPECT_TRUE(SameImage(before, Image()));
}

TEST_F(StatsEditing, AValueThatIsNotTheDefaultIsBoldAndShowsTheDefault) {
  Choose(alpha);
  for (const ListRow& row : tab.shipStatsList.rows) EXPECT_FALSE(row.bold);
  ASSERT_TRUE(Edit(2, "9"));
  for (std::size_t row = 0; row < 15; ++row) {
    EXPECT_EQ(tab.shipStatsList.rows.at(row).bold, row == 2);
    EXPECT_EQ(tab.shipStatsList.rows.at(row).tooltip, row == 2 ? "Default: 2.5" : "");
  }
  ASSERT_TRUE(Edit(2, "2.5"));
  EXPECT_FALSE(tab.shipStatsList.rows.at(2).bold);
}

TEST_F(StatsEditing, AnImportedShipsDefaultsAreThoseOfItsText) {
  Choose(manta);
  EXPECT_TRUE(tab.shipStatsList.rows.at(9).bold);
  EXPECT_EQ(tab.shipStatsList.rows.at(9).tooltip, "Default: 10");
  Choose(wraith);
  for (const ListRow& row : tab.shipStatsList.rows) EXPECT_FALSE(row.bold);
}

TEST_F(StatsEditing, PastingNeedsARememberedShip) {
  Choose(alpha);
  EXPECT_FALSE(tab.pldStatsPaste.enabled);
  const FolderImage before = Image();
  pldStatsPaste_Click(at.host, tab, installation);
  EXPECT_TRUE(SameImage(before, Image()));
  pldStatsCopy_Click(at.host, tab, installation);
  EXPECT_TRUE(tab.pldStatsPaste.enabled);
  EXPECT_TRUE(tab.chart.remembered);
}

TEST_F(StatsEditing, PastingWritesTheStatisticsOfTheRememberedShipAsTheyAreNow) {
  Copy(alpha);
  ASSERT_TRUE(Edit(0, "77"));
  FolderImage expected = Image();
  Paste(bravo);
  ShipStats stats = StatsFrom(0.5F);
  stats.values[0] = 77;
  PutStats(expected, "game/shipstats.bin", 1, stats);
  EXPECT_TRUE(SameImage(expected, Image()));
  EXPECT_EQ(tab.shipStatsList.rows.at(0).texts.at(0), "77");
}

TEST_F(StatsEditing, PastingBetweenStockAndImportedShipsGoesThroughBothFiles) {
  FolderImage expected = Image();
  Copy(manta);
  Paste(alpha);
  PutStats(expected, "game/shipstats.bin", 0, StatsFrom(400.5F));
  EXPECT_TRUE(SameImage(expected, Image()));
  Copy(bravo);
  Paste(wraith);
  PutStats(expected, "game/shipstats.def", 5, StatsFrom(100.5F));
  EXPECT_TRUE(SameImage(expected, Image()));
}

TEST_F(StatsEditing, PastingOntoAChangedShipWritesItsOwnBlock) {
  installation.ships[bravo].Changed = true;
  installation.ships[bravo].ChangedToIndex = Int16Value(alpha);
  FolderImage expected = Image();
  Copy(twin);
  Paste(bravo);
  PutStats(expected, "game/shipstats.bin", 1, StatsFrom(200.5F));
  EXPECT_TRUE(SameImage(expected, Image()));
}

TEST_F(StatsEditing, PastingOntoAShipWithoutABlockLeavesTheDefaultsAlone) {
  FolderImage expected = Image();
  Copy(bravo);
  Paste(homeless);
  PutStats(expected, "game/shipstats.bin", 0, StatsFrom(100.5F));
  EXPECT_TRUE(SameImage(expected, Image()));
}

TEST_F(StatsEditing, TheRememberedShipStaysUntilTheCatalogueIsEmptied) {
  Copy(alpha);
  DisplayShipEdit(tab, installation.ships);
  EXPECT_EQ(RememberedShipIn(tab, installation.ships), 0);
  EXPECT_TRUE(tab.pldStatsPaste.enabled);
  DisplayShipEdit(tab, {});
  EXPECT_EQ(RememberedShipIn(tab, installation.ships), -1);
  DisplayShipEdit(tab, installation.ships);
  Choose(alpha);
  EXPECT_FALSE(tab.pldStatsPaste.enabled);
}

TEST_F(StatsEditing, AnotherShipAtTheRememberedPlaceIsNotPasted) {
  Copy(alpha);
  installation.ships[alpha].ShipName.Set("Other");
  const FolderImage before = Image();
  Paste(bravo);
  EXPECT_FALSE(tab.pldStatsPaste.enabled);
  EXPECT_FALSE(tab.chart.remembered);
  EXPECT_TRUE(SameImage(before, Image()));
}

TEST_F(StatsEditing, RestoringAStockShipCopiesItsBlockFromTheDefaults) {
  Choose(bravo);
  ASSERT_TRUE(Edit(0, "77"));
  ASSERT_TRUE(Edit(14, "78"));
  FolderImage expected = Image();
  PutStats(expected, "game/shipstats.bin", 1, StatsFrom(100.5F));
  cmdRestoreShipStats_Click(at.host, tab, installation);
  EXPECT_TRUE(SameImage(expected, Image()));
  EXPECT_EQ(tab.shipStatsList.rows.at(0).texts.at(0), "100.5");
}

TEST_F(StatsEditing, RestoringAnImportedShipReadsItsTextIntoTheDefaults) {
  Choose(manta);
  FolderImage expected = Image();
  PutStats(expected, "game/shipstats.def", 4, MantasText());
  pldStatsRestoreDefault_Click(at.host, tab, installation);
  EXPECT_TRUE(SameImage(expected, Image()));
  for (const ListRow& row : tab.shipStatsList.rows) EXPECT_FALSE(row.bold);
}

TEST_F(StatsEditing, AnImportedShipWithoutATextHasNoDefault) {
  const FolderImage before = Image();
  for (const std::size_t ship : {wraith, homeless}) {
    Choose(ship);
    at.desk.ExpectBox(noDefaultBox);
    cmdRestoreShipStats_Click(at.host, tab, installation);
    EXPECT_TRUE(SameImage(before, Image()));
  }
}

TEST_F(StatsEditing, ADamagedTextIsReportedAndIsNoDefault) {
  WriteFileAt(Program("addons/stats/manta.txt"), "1,2,three");
  const FolderImage before = Image();
  Choose(manta);
  const std::string text = folder.Windows("program\\addons\\stats\\manta.txt");
  at.desk.ExpectBox("Error - could not read " + text + ": \"three\" is no number (line 1)", "GetImportStats");
  at.desk.ExpectBox(noDefaultBox);
  pldStatsRestoreDefault_Click(at.host, tab, installation);
  EXPECT_TRUE(SameImage(before, Image()));
}

TEST_F(StatsEditing, RestoringWithoutDefaultsIsReportedAndChangesNothing) {
  std::filesystem::remove(Game("shipstats.def"));
  const FolderImage before = Image();
  Choose(alpha);
  at.desk.ExpectBox("Error - file not found", "GetShipsStats");
  pldStatsRestoreDefault_Click(at.host, tab, installation);
  EXPECT_TRUE(SameImage(before, Image()));
}

TEST_F(StatsEditing, RestoringAllReportsInOneBoxWhatCouldNotBe) {
  FolderImage expected = Image();
  for (const std::size_t ship : {alpha, bravo, twin}) {
    Choose(ship);
    ASSERT_TRUE(Edit(0, "77"));
  }
  // The second part is restored too, though it is listed nowhere.
  PatchFileAt(Game("shipstats.bin"), 3 * 352 + 64, Bytes{1, 2, 3, 4});
  PutStats(expected, "game/shipstats.def", 4, MantasText());
  at.desk.ExpectBox(
      "The statistics of 4 ships were restored.\nThese could not be restored:\nWraith: Imported Ships have no "
      "default\nHomeless: Imported Ships have no default");
  cmdRestoreAllStats_Click(at.host, tab, installation);
  EXPECT_TRUE(SameImage(expected, Image()));
  EXPECT_EQ(tab.shipStatsList.rows.at(0).texts.at(0), "200.5");
}

TEST_F(StatsEditing, RestoringAllWithoutATroubleIsASuccess) {
  installation.ships.resize(manta);
  at.desk.ExpectSuccess("The statistics of 3 ships were restored.");
  cmdRestoreAllStats_Click(at.host, tab, installation);
  installation.ships.resize(1);
  at.desk.ExpectSuccess("The statistics of 1 ship was restored.");
  cmdRestoreAllStats_Click(at.host, tab, installation);
}

TEST_F(StatsEditing, RestoringAllOfReadOnlyStatisticsIsRefusedAtOnce) {
  const FolderImage before = Image();
  SetReadOnly(Game("shipstats.bin"), true);
  at.desk.ExpectBox(folder.Windows("game\\shipstats.bin") +
                    " cannot be written: it is read-only.\nTake the read-only mark away and try again. Nothing has "
                    "been changed.");
  cmdRestoreAllStats_Click(at.host, tab, installation);
  EXPECT_TRUE(SameImage(before, Image()));
}

TEST_F(StatsEditing, AFailureAnywhereLeavesEveryBlockOldOrNew) {
  const FolderImage before = Image();
  Choose(bravo);
  FolderImage after = before;
  ShipStats stats = StatsFrom(100.5F);
  stats.values[0] = 77;
  PutStats(after, "game/shipstats.bin", 1, stats);
  for (const FaultKind kind : {FaultKind::failure, FaultKind::stop}) {
    AtEachOperation(kind, [&](Fault& fault) {
      WriteFileAt(Game("shipstats.bin"), before.at("game/shipstats.bin"));
      ScriptedHost here;
      here.desk.AllowOthers([](const Message&) { return Answer::ok; });
      Watch(here.host.files, fault);
      tab.shipStatsList.edited = {0, "77"};
      Stopped([&] { shipStatsList_AfterLabelEdit(here.host, tab, installation); });
      const FolderImage now = Image();
      EXPECT_TRUE(now == before || now == after) << Differences(after, now);
      if (kind == FaultKind::failure && tab.shipStatsList.edited.refused) {
        EXPECT_TRUE(now == before);
        EXPECT_FALSE(here.desk.shown.empty());
      }
    });
  }
}

TEST_F(StatsEditing, AFailureWhileAllAreRestoredIsInTheOneBox) {
  installation.ships.resize(manta);
  const FolderImage before = Image();
  const int operations = AtEachOperation(FaultKind::failure, [&](Fault& fault) {
    ScriptedHost here;
    here.desk.AllowOthers([](const Message&) { return Answer::ok; });
    Watch(here.host.files, fault);
    cmdRestoreAllStats_Click(here.host, tab, installation);
    ASSERT_EQ(here.desk.shown.size(), 1U);
    EXPECT_EQ(here.desk.shown[0].success, !fault.happened);
    EXPECT_EQ(here.desk.shown[0].text.starts_with("The statistics of 2 ships were restored.\nThese could not be "
                                                  "restored:\n"),
              fault.happened);
    EXPECT_TRUE(SameImage(before, Image()));
  });
  EXPECT_GT(operations, 12);
}

}  // namespace
}  // namespace oravin::test
