// Swaps: what happens where a model, the catalogue or a name is missing.

#include "support/fault.h"
#include "support/swap_stage.h"

namespace oravin::test {
namespace {

constexpr const char* swapTitle = "cmdSwap_Click()";

struct Swapping : testing::Test {
  Swapping() { stage.Enable(); }

  void Press(int target, int source) {
    stage.Select(target, source);
    cmdSwap_Click(stage.swapDesk, stage.tab);
  }
  void ByName(const std::string& target, const std::string& source) { SwapShip(stage.swapDesk, target, source); }
  [[nodiscard]] std::string SecondColumn(int target) const {
    return stage.tab.swapOrgList.rows.at(*RowOf(stage.tab.swapOrgList, target)).texts.at(1);
  }
  void ExpectNotFound(const std::string& model) {
    stage.desk.ExpectBox("The model " + model + " was not found in resource.hog. Nothing was unpacked.");
  }
  void ExpectCannotOpen(int ship) {
    stage.desk.ExpectBox("Error - could not open " + stage.ModelPath(ship) + ": it does not exist", swapTitle);
  }
  /// Takes a model out of the archive's table.
  void LoseEntry(int ship) {
    const auto place = static_cast<std::uint64_t>(WholeNumber(stage.Record(ship).HogFatPos));
    PatchFileAt(stage.files.Game("resource.hog"), place + 8, BytesOf("xxx"));
  }
  void Lose(int ship) const { std::filesystem::remove(stage.Model(ship)); }
  [[nodiscard]] Bytes Stats() const { return ReadFileAt(stage.files.Game("shipstats.bin")); }
  void ExpectNothingDone(const FolderImage& before) const {
    EXPECT_TRUE(SameImage(before, stage.Image()));
    EXPECT_EQ(stage.closings, 0);
  }

  SwitcherStage stage;
};

TEST_F(Swapping, ShowsTheMarkInTheSelectedRowAndRefreshesTheOtherTabsList) {
  EXPECT_TRUE(stage.statsTab.shipEditingList.rows.empty());
  Press(alpha, manta);
  EXPECT_EQ(SecondColumn(alpha), "--->Manta");
  EXPECT_EQ(SecondColumn(bravo), "");
  EXPECT_FALSE(stage.statsTab.shipEditingList.rows.empty());
}

TEST_F(Swapping, ClosesWhatOtherTabsHoldOpenOnce) {
  Press(alpha, manta);
  EXPECT_EQ(stage.closings, 1);
}

TEST_F(Swapping, WithoutTheCatalogueASwapSaysSoAndTouchesNothing) {
  std::filesystem::remove(stage.files.Program("ships.dat"));
  const FolderImage before = stage.Image();
  stage.desk.ExpectBox("Error - ships.dat not found - Reinstall", swapTitle);
  Press(alpha, manta);
  ExpectNothingDone(before);
  EXPECT_EQ(SecondColumn(alpha), "");
  EXPECT_FALSE(stage.Record(alpha).Changed);
  stage.desk.ExpectBox("Error - ships.dat not found - Reinstall", swapTitle);
  ByName("ALPHA", "MANTA");
  ExpectNothingDone(before);
}

TEST_F(Swapping, WithoutASelectionInBothListsNothingHappens) {
  const FolderImage before = stage.Image();
  cmdSwap_Click(stage.swapDesk, stage.tab);
  stage.Select(alpha, manta);
  SelectOnly(stage.tab.swapToList, std::nullopt);
  cmdSwap_Click(stage.swapDesk, stage.tab);
  stage.Select(alpha, manta);
  SelectOnly(stage.tab.swapOrgList, std::nullopt);
  cmdSwap_Click(stage.swapDesk, stage.tab);
  ExpectNothingDone(before);
}

TEST_F(Swapping, WithSeveralRowsSelectedInOneListNothingHappens) {
  const FolderImage before = stage.Image();
  for (ListView* list : {&stage.tab.swapOrgList, &stage.tab.swapToList}) {
    stage.Select(alpha, manta);
    list->rows.at(*RowOf(*list, bravo)).selected = true;
    EnableSwitcherControls(stage.tab, stage.installation);
    EXPECT_FALSE(stage.tab.cmdSwap.enabled);
    cmdSwap_Click(stage.swapDesk, stage.tab);
    ExpectNothingDone(before);
  }
}

TEST_F(Swapping, TheButtonIsOnWithOneRowSelectedInEachList) {
  SwitcherTab& tab = stage.tab;
  const auto enabled = [&] {
    EnableSwitcherControls(tab, stage.installation);
    return tab.cmdSwap.enabled;
  };
  EXPECT_FALSE(tab.cmdSwap.enabled) << "nothing is selected";
  stage.Select(alpha, manta);
  EXPECT_TRUE(enabled());
  SelectOnly(tab.swapToList, std::nullopt);
  EXPECT_FALSE(enabled()) << "nothing on the right";
  stage.Select(alpha, manta);
  SelectOnly(tab.swapOrgList, std::nullopt);
  EXPECT_FALSE(enabled()) << "nothing on the left";
  stage.Select(alpha, manta);
  EXPECT_TRUE(enabled());
  DisplaySwitcher(stage.host, tab, stage.installation, false);
  EXPECT_FALSE(tab.cmdSwap.enabled) << "the lists were filled anew";
}

TEST_F(Swapping, ARowOfAShipThatIsNotInTheCatalogueDoesNothing) {
  const FolderImage before = stage.Image();
  stage.Select(alpha, manta);
  for (const int item : {14, 98, -1}) {  // the 15th record is the surplus one
    ListRow& row = stage.tab.swapToList.rows[*SelectedRow(stage.tab.swapToList)];
    row.item = item;
    cmdSwap_Click(stage.swapDesk, stage.tab);
  }
  ExpectNothingDone(before);
}

TEST_F(Swapping, AMissingImportedModelGivesItsBoxAndTheSwapGoesOnUntilTheCopyFails) {
  Lose(manta);
  const Bytes stats = Stats();
  stage.desk.ExpectBox("Error - imported ship 'manta.shp' not found", programTitle, Icon::none);
  ExpectCannotOpen(manta);
  Press(alpha, manta);
  EXPECT_TRUE(stage.RecordOnDisk(alpha).Changed);
  EXPECT_EQ(stage.RecordOnDisk(alpha).ChangedToName.Trimmed(), "Manta");
  EXPECT_EQ(SecondColumn(alpha), "--->Manta");
  EXPECT_FALSE(exists(stage.Model(alpha)));
  EXPECT_EQ(ReadFileAt(stage.Backup(alpha)), stage.ModelBytes(alpha));
  EXPECT_TRUE(SameBytes(stats, Stats()));
}

TEST_F(Swapping, AMissingImportedModelOverAnEarlierSwapLeavesTheStockModelAsideAlone) {
  ByName("ALPHA", "WRAITH");
  Lose(manta);
  stage.desk.ExpectBox("Error - imported ship 'manta.shp' not found", programTitle, Icon::none);
  ExpectCannotOpen(manta);
  ByName("ALPHA", "MANTA");
  EXPECT_FALSE(exists(stage.Model(alpha)));
  EXPECT_EQ(ReadFileAt(stage.Backup(alpha)), stage.ModelBytes(alpha));
  UnswapShip(stage.swapDesk, "ALPHA");
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), stage.ModelBytes(alpha));
}

TEST_F(Swapping, ASourceThatOnlyTheArchiveHasIsUnpackedAndAnOlderBackupDeleted) {
  Lose(bravo);
  WriteFileAt(stage.Backup(bravo), "older");
  ByName("ALPHA", "BRAVO");
  EXPECT_EQ(ReadFileAt(stage.Model(bravo)), stage.ModelBytes(bravo));
  EXPECT_FALSE(exists(stage.Backup(bravo)));
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), stage.ModelBytes(bravo));
}

TEST_F(Swapping, ATargetThatOnlyTheArchiveHasIsUnpackedAndThenMovedAside) {
  Lose(alpha);
  WriteFileAt(stage.Backup(alpha), "older");
  ByName("ALPHA", "MANTA");
  EXPECT_EQ(ReadFileAt(stage.Backup(alpha)), stage.ModelBytes(alpha));
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), stage.ModelBytes(manta));
}

TEST_F(Swapping, ASecondPartThatOnlyTheArchiveHasIsUnpackedFromItsOwnPlace) {
  Lose(tigerVariant);
  ByName("TIGER", "MANTA");
  EXPECT_EQ(ReadFileAt(stage.Backup(tigerVariant)), stage.ModelBytes(tigerVariant));
  EXPECT_EQ(ReadFileAt(stage.Backup(tiger)), stage.ModelBytes(tiger));
  EXPECT_EQ(ReadFileAt(stage.Model(tigerVariant)), stage.ModelBytes(manta));
}

TEST_F(Swapping, TheFirstPartOfATwoPartSourceServesAndBothPartsOfTheTargetPointToIt) {
  ByName("TIGER", "TWIN");
  EXPECT_EQ(ReadFileAt(stage.Model(tiger)), stage.ModelBytes(twin));
  EXPECT_EQ(ReadFileAt(stage.Model(tigerVariant)), stage.ModelBytes(twin));
  EXPECT_EQ(stage.RecordOnDisk(tiger).ChangedToIndex, Int16Value(twin));
  EXPECT_EQ(stage.RecordOnDisk(tigerVariant).ChangedToIndex, Int16Value(twin));
  EXPECT_EQ(stage.RecordOnDisk(tigerVariant).ChangedToFile.Trimmed(), "twin.shp");
}

TEST_F(Swapping, ATargetThatIsNowhereSaysSoAndItsBackupIsKept) {
  Lose(alpha);
  WriteFileAt(stage.Backup(alpha), "the only one");
  LoseEntry(alpha);
  ExpectNotFound("alpha.shp");
  ByName("ALPHA", "MANTA");
  EXPECT_EQ(ReadTextAt(stage.Backup(alpha)), "the only one");
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), stage.ModelBytes(manta));
}

TEST_F(Swapping, ATargetThatIsNowhereWithoutABackupStopsTheSwapAtTheFailingRename) {
  Lose(alpha);
  LoseEntry(alpha);
  const Bytes stats = Stats();
  ExpectNotFound("alpha.shp");
  stage.desk.ExpectBox("Error - could not write " + stage.BackupPath(alpha) + ": it does not exist", swapTitle);
  ByName("ALPHA", "MANTA");
  EXPECT_FALSE(exists(stage.Model(alpha)));
  EXPECT_FALSE(exists(stage.Backup(alpha)));
  EXPECT_TRUE(SameBytes(stats, Stats()));
  EXPECT_TRUE(stage.RecordOnDisk(alpha).Changed);
  EXPECT_EQ(stage.RecordOnDisk(alpha).ChangedToName.Trimmed(), "Manta");
}

TEST_F(Swapping, ASecondPartThatIsNowhereStopsTheSwapAfterTheFirst) {
  Lose(tigerVariant);
  LoseEntry(tigerVariant);
  ExpectNotFound(stage.files.ships[tigerVariant].file);
  stage.desk.ExpectBox("Error - could not write " + stage.BackupPath(tigerVariant) + ": it does not exist", swapTitle);
  ByName("TIGER", "MANTA");
  EXPECT_EQ(ReadFileAt(stage.Model(tiger)), stage.ModelBytes(manta));
  EXPECT_FALSE(exists(stage.Model(tigerVariant)));
}

TEST_F(Swapping, ASourceThatIsNowhereSaysSoAndItsBackupIsKeptAndServes) {
  Lose(bravo);
  WriteFileAt(stage.Backup(bravo), "the only one");
  LoseEntry(bravo);
  ExpectNotFound("bravo.shp");
  ByName("ALPHA", "BRAVO");
  EXPECT_EQ(ReadTextAt(stage.Backup(bravo)), "the only one");
  EXPECT_EQ(ReadTextAt(stage.Model(alpha)), "the only one");
}

TEST_F(Swapping, ASourceThatIsNowhereWithoutABackupEndsInTheFailingCopy) {
  Lose(bravo);
  LoseEntry(bravo);
  ExpectNotFound("bravo.shp");
  ExpectCannotOpen(bravo);
  ByName("ALPHA", "BRAVO");
  EXPECT_EQ(ReadFileAt(stage.Backup(alpha)), stage.ModelBytes(alpha));
  EXPECT_FALSE(exists(stage.Model(alpha)));
}

TEST_F(Swapping, FailingAtAnyOperationTheOnlyBackupIsKept) {
  LoseEntry(alpha);
  const Ships unchanged = stage.installation.ships;
  stage.desk.AllowOthers([](const Message&) { return Answer::ok; });
  for (const FaultKind kind : {FaultKind::failure, FaultKind::stop}) {
    const int operations = AtEachOperation(kind, [&](Fault& fault) {
      stage.installation.ships = unchanged;
      Lose(alpha);
      WriteFileAt(stage.Backup(alpha), "the only one");
      Watch(stage.host.files, fault);
      Stopped([&] { ByName("ALPHA", "MANTA"); });
      stage.host.files.before = nullptr;
      EXPECT_EQ(ReadTextAt(stage.Backup(alpha)), "the only one") << fault.what;
    });
    EXPECT_GT(operations, 8);
  }
}

TEST_F(Swapping, WithoutTheStatisticsTheModelIsSwappedAllTheSame) {
  std::filesystem::remove(stage.files.Game("shipstats.bin"));
  stage.desk.ExpectBox("Error - file not found", "GetShipsStats");
  ByName("ALPHA", "BRAVO");
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), stage.ModelBytes(bravo));
  stage.desk.ExpectBox("Error - file not found", "PutShipsStats");
  ByName("ALPHA", "MANTA");
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), stage.ModelBytes(manta));
}

TEST_F(Swapping, WithoutTheDefaultsAnImportedSourceHasNoStatistics) {
  std::filesystem::remove(stage.files.Game("shipstats.def"));
  const Bytes before = Stats();
  stage.desk.ExpectBox("Error - file not found", "GetShipsStats");
  ByName("ALPHA", "MANTA");
  EXPECT_TRUE(SameBytes(before, Stats()));
}

TEST_F(Swapping, AStatisticsBlockThatTheFileDoesNotHaveSaysSo) {
  stage.Record(bravo).StatsIndex = Int16Value(12);
  const Bytes before = Stats();
  stage.desk.ExpectBox("Error - invalid ship", "PutShipsStats");
  ByName("ALPHA", "BRAVO");
  EXPECT_TRUE(SameBytes(before, Stats()));
}

TEST_F(Swapping, AStatisticsBlockOfMoreThan32BitsIsNoneOfTheFile) {
  stage.Record(bravo).StatsIndex = {TaggedValue::real, 4294967296.0, {}};
  const Bytes before = Stats();
  stage.desk.ExpectBox("Error - invalid ship", "PutShipsStats");
  ByName("ALPHA", "BRAVO");
  EXPECT_TRUE(SameBytes(before, Stats()));
}

TEST_F(Swapping, NamesAreFoundTrimmedAndWithoutRegardToCase) {
  ByName("  aLPHA ", " manta");
  EXPECT_EQ(stage.RecordOnDisk(alpha).ChangedToName.Trimmed(), "Manta");
  EXPECT_EQ(SecondColumn(alpha), "");  // no list is touched
}

TEST_F(Swapping, OfATwoPartShipTheNameFindsTheFirstRecord) {
  ByName("TIGER", "MANTA");
  EXPECT_TRUE(stage.RecordOnDisk(tiger).Changed);
  EXPECT_TRUE(stage.RecordOnDisk(tigerVariant).Changed);
}

TEST_F(Swapping, AnUnknownOrBlankNameDoesNothing) {
  const FolderImage before = stage.Image();
  ByName("NOBODY", "MANTA");
  ByName("ALPHA", "NOBODY");
  ByName("ALPH", "MANTA");
  ByName("", "MANTA");
  ByName("ALPHA", "  ");
  UnswapShip(stage.swapDesk, "NOBODY");
  UnswapShip(stage.swapDesk, "");
  ExpectNothingDone(before);
}

TEST_F(Swapping, TheSameShipTwiceDoesNothing) {
  const FolderImage before = stage.Image();
  ByName("ALPHA", "alpha");
  ByName("TIGER", "TIGER");
  ExpectNothingDone(before);
}

TEST_F(Swapping, WhatItIsChangedToAlreadyDoesNothing) {
  ByName("ALPHA", "MANTA");
  const FolderImage before = stage.Image();
  stage.closings = 0;
  ByName("ALPHA", "MANTA");
  ExpectNothingDone(before);
}

TEST_F(Swapping, AnImportedShipIsNeverATarget) {
  const FolderImage before = stage.Image();
  ByName("MANTA", "ALPHA");
  ByName("MANTA", "WRAITH");
  ExpectNothingDone(before);
}

TEST_F(Swapping, PairsAreSwappedInTheirOrder) {
  SwapPairs(stage.swapDesk, {{"ALPHA", "MANTA"}, {"TIGER", "BRAVO"}, {"ALPHA", "WRAITH"}});
  EXPECT_EQ(stage.RecordOnDisk(alpha).ChangedToName.Trimmed(), "Wraith");
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), stage.ModelBytes(wraith));
  EXPECT_EQ(ReadFileAt(stage.Backup(alpha)), stage.ModelBytes(alpha));
  EXPECT_EQ(ReadFileAt(stage.Model(tigerVariant)), stage.ModelBytes(bravo));
}

TEST_F(Swapping, APairUnswapsItsTargetFirst) {
  ByName("ALPHA", "MANTA");
  SwapPairs(stage.swapDesk, {{"ALPHA", "NOBODY"}});
  EXPECT_FALSE(stage.RecordOnDisk(alpha).Changed);
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), stage.ModelBytes(alpha));
}

TEST_F(Swapping, APairThatIsSwappedAlreadyIsSwappedAnew) {
  ByName("ALPHA", "MANTA");
  stage.closings = 0;
  SwapPairs(stage.swapDesk, {{"ALPHA", "MANTA"}});
  EXPECT_EQ(stage.closings, 2);
  EXPECT_EQ(stage.RecordOnDisk(alpha).ChangedToIndex, Int16Value(manta));
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), stage.ModelBytes(manta));
}

TEST_F(Swapping, APairWithABlankTargetIsPassedOverAndTheNextOneSwapped) {
  const FolderImage before = stage.Image();
  SwapPairs(stage.swapDesk, {{"", "MANTA"}, {"   ", "MANTA"}});
  SwapPairs(stage.swapDesk, {});
  ExpectNothingDone(before);
  SwapPairs(stage.swapDesk, {{"  ", "MANTA"}, {"ALPHA", "MANTA"}});
  EXPECT_TRUE(stage.RecordOnDisk(alpha).Changed);
}

}  // namespace
}  // namespace oravin::test
