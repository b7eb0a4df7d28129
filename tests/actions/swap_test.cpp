// Swaps: what happens where a model, the catalogue or a name is missing.

#include "base/file_error.h"
#include "support/fault.h"
#include "support/file_marks.h"
#include "support/swap_stage.h"

namespace oravin::test {
namespace {

constexpr const char* swapTitle = "cmdSwap_Click()";

struct Swapping : testing::Test {
  Swapping() { stage.Enable(); }

  SwapResult Do(int target, int source) { return SwapShip(stage.host, stage.installation, target, source); }
  void ByName(const std::string& target, const std::string& source) { stage.Swap(target, source); }
  void Pairs(const std::vector<std::pair<std::string, std::string>>& pairs) {
    SwapPairs(stage.host, stage.installation, pairs);
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
  void ExpectNothingDone(const FolderImage& before) const { EXPECT_TRUE(SameImage(before, stage.Image())); }

  SwitcherStage stage;
};

TEST_F(Swapping, ASwapThatIsDoneIsListed) {
  const SwapResult result = Do(alpha, manta);
  EXPECT_EQ(result.target, alpha);
  EXPECT_TRUE(result.listed);
  EXPECT_TRUE(result.done);
}

TEST_F(Swapping, AShipThatIsNotInTheCatalogueDoesNothing) {
  const FolderImage before = stage.Image();
  for (const int source : {14, 98, -1}) {  // the 15th record is the sentinel
    EXPECT_FALSE(CanSwap(stage.host, stage.installation, alpha, source));
    EXPECT_FALSE(Do(alpha, source).listed);
    EXPECT_FALSE(Do(source, alpha).listed);
  }
  ExpectNothingDone(before);
}

TEST_F(Swapping, WithoutTheCatalogueASwapSaysSoAndTouchesNothing) {
  std::filesystem::remove(stage.files.Program("ships.dat"));
  const FolderImage before = stage.Image();
  stage.desk.ExpectBox("Error - ships.dat not found - Reinstall", swapTitle);
  EXPECT_FALSE(Do(alpha, manta).listed);
  ExpectNothingDone(before);
  EXPECT_FALSE(stage.Record(alpha).Changed);
  stage.desk.ExpectBox("Error - ships.dat not found - Reinstall", swapTitle);
  ByName("ALPHA", "MANTA");
  ExpectNothingDone(before);
}

TEST_F(Swapping, AMissingImportedModelGivesItsBoxAndTheSwapGoesOnUntilTheCopyFails) {
  Lose(manta);
  const Bytes stats = Stats();
  stage.desk.ExpectBox("Error - imported ship 'manta.shp' not found", programTitle, Icon::none);
  ExpectCannotOpen(manta);
  const SwapResult result = Do(alpha, manta);
  EXPECT_TRUE(result.listed);
  EXPECT_FALSE(result.done);
  EXPECT_TRUE(stage.RecordOnDisk(alpha).Changed);
  EXPECT_EQ(stage.RecordOnDisk(alpha).ChangedToName.Trimmed(), "Manta");
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
  stage.Unswap("ALPHA");
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
  stage.Unswap("NOBODY");
  stage.Unswap("");
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
  Pairs({{"ALPHA", "MANTA"}, {"TIGER", "BRAVO"}, {"ALPHA", "WRAITH"}});
  EXPECT_EQ(stage.RecordOnDisk(alpha).ChangedToName.Trimmed(), "Wraith");
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), stage.ModelBytes(wraith));
  EXPECT_EQ(ReadFileAt(stage.Backup(alpha)), stage.ModelBytes(alpha));
  EXPECT_EQ(ReadFileAt(stage.Model(tigerVariant)), stage.ModelBytes(bravo));
}

TEST_F(Swapping, APairUnswapsItsTargetFirst) {
  ByName("ALPHA", "MANTA");
  Pairs({{"ALPHA", "NOBODY"}});
  EXPECT_FALSE(stage.RecordOnDisk(alpha).Changed);
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), stage.ModelBytes(alpha));
}

TEST_F(Swapping, APairThatIsSwappedAlreadyIsSwappedAnew) {
  ByName("ALPHA", "MANTA");
  bool wrote = false;
  stage.host.files.before = [&](const FileOperation& operation) {
    wrote = wrote || (operation.kind == FileOperation::Kind::rename && operation.second == stage.ModelPath(alpha));
  };
  Pairs({{"ALPHA", "MANTA"}});
  EXPECT_TRUE(wrote);
  EXPECT_EQ(stage.RecordOnDisk(alpha).ChangedToIndex, Int16Value(manta));
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), stage.ModelBytes(manta));
}

TEST_F(Swapping, APairWithABlankTargetIsPassedOverAndTheNextOneSwapped) {
  const FolderImage before = stage.Image();
  Pairs({{"", "MANTA"}, {"   ", "MANTA"}});
  Pairs({});
  ExpectNothingDone(before);
  Pairs({{"  ", "MANTA"}, {"ALPHA", "MANTA"}});
  EXPECT_TRUE(stage.RecordOnDisk(alpha).Changed);
}

/// Lets every look at a path fail, as a disk without an answer would.
void FailLooksAt(Files& files, const std::string& path) {
  files.before = [path](const FileOperation& operation) {
    if (operation.kind == FileOperation::Kind::look && operation.path == path) {
      throw FileError("could not look for", path, faultReason);
    }
  };
}

TEST_F(Swapping, WhereTheSystemCannotSayWhetherAFileIsThereNothingIsChanged) {
  const std::vector<std::string> paths = {stage.files.programPath + "ships.dat", stage.ModelPath(alpha),
                                          stage.BackupPath(alpha), stage.ModelPath(manta)};
  for (const std::string& path : paths) {
    SCOPED_TRACE(path);
    const FolderImage before = stage.Image();
    FailLooksAt(stage.host.files, path);
    stage.desk.ExpectBox("Error - could not look for " + path + ": " + faultReason, swapTitle);
    EXPECT_FALSE(Do(alpha, manta).listed);
    EXPECT_TRUE(stage.desk.Done());
    stage.host.files.before = nullptr;
    ExpectNothingDone(before);
  }
}

TEST_F(Swapping, AHiddenStockModelIsKept) {
  WriteFileAt(stage.Model(alpha), "the player's own");
  if (!SetDosAttributes(stage.Model(alpha), hiddenMark)) GTEST_SKIP() << "no hidden files here";
  EXPECT_TRUE(Do(alpha, manta).done);
  EXPECT_EQ(ReadTextAt(stage.Backup(alpha)), "the player's own");
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), stage.ModelBytes(manta));
}

TEST_F(Swapping, AHiddenBackupIsNotOverwritten) {
  WriteFileAt(stage.Backup(alpha), "the player's own");
  if (!SetDosAttributes(stage.Backup(alpha), hiddenMark)) GTEST_SKIP() << "no hidden files here";
  EXPECT_TRUE(Do(alpha, manta).done);
  EXPECT_EQ(ReadTextAt(stage.Backup(alpha)), "the player's own");
}

TEST_F(Swapping, AHiddenModelOfTheSourceIsNotOverwritten) {
  WriteFileAt(stage.Model(bravo), "the player's own");
  if (!SetDosAttributes(stage.Model(bravo), hiddenMark)) GTEST_SKIP() << "no hidden files here";
  EXPECT_TRUE(Do(alpha, bravo).done);
  EXPECT_EQ(ReadTextAt(stage.Model(bravo)), "the player's own");
  EXPECT_EQ(ReadTextAt(stage.Model(alpha)), "the player's own");
}

}  // namespace
}  // namespace oravin::test
