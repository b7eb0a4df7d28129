// Restored ships: from the backup in the same folder, from the archive, and without either.

#include "base/file_error.h"
#include "support/fault.h"
#include "support/file_marks.h"
#include "support/swap_stage.h"

namespace oravin::test {
namespace {

constexpr const char* unswapTitle = "cmdUnSwap_Click()";
constexpr const char* noCatalogue = "Error - ships.dat not found - Reinstall";

/// Alpha flies as Manta, Tiger (two parts) as Wraith, Bravo as the stored ship.
struct Unswapping : testing::Test {
  Unswapping() {
    stage.Enable();
    stats = ReadFileAt(stage.files.Game("shipstats.bin"));
    stage.Swap("ALPHA", "MANTA");
    stage.Swap("TIGER", "WRAITH");
    stage.Swap("BRAVO", "STORED");
  }

  SwapResult Do(int target) { return UnswapShip(stage.host, stage.installation, target); }
  bool All() { return UnswapAllShips(stage.host, stage.installation); }
  void LoseEntry(int ship) {
    const auto place = static_cast<std::uint64_t>(WholeNumber(stage.Record(ship).HogFatPos));
    PatchFileAt(stage.files.Game("resource.hog"), place + 8, BytesOf("xxx"));
  }
  /// The ship's own model is neither in its backup nor in the archive.
  void LoseStock(int ship) {
    std::filesystem::remove(stage.Backup(ship));
    LoseEntry(ship);
  }
  void ExpectNotFound(const std::string& model) {
    stage.desk.ExpectBox("The model " + model + " was not found in resource.hog. Nothing was unpacked.");
  }
  void ExpectAllBack() const {
    for (const int ship : {alpha, bravo, tiger}) {
      EXPECT_FALSE(stage.RecordOnDisk(ship).Changed);
      EXPECT_EQ(ReadFileAt(stage.Model(ship)), stage.ModelBytes(ship));
      EXPECT_FALSE(exists(stage.Backup(ship)));
    }
    EXPECT_TRUE(SameBytes(stats, ReadFileAt(stage.files.Game("shipstats.bin"))));
  }

  SwitcherStage stage;
  Bytes stats;
};

using Names = std::vector<std::string>;

TEST_F(Unswapping, RestoresModelStatisticsAndRecord) {
  const SwapResult result = Do(alpha);
  EXPECT_EQ(result.target, alpha);
  EXPECT_TRUE(result.listed);
  EXPECT_TRUE(result.done);
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), stage.ModelBytes(alpha));
  EXPECT_FALSE(exists(stage.Backup(alpha)));
  const ShipRecord record = stage.RecordOnDisk(alpha);
  EXPECT_FALSE(record.Changed);
  EXPECT_EQ(record.ChangedToName.Trimmed(), "");
  EXPECT_EQ(record.ChangedToFile.Trimmed(), "");
}

TEST_F(Unswapping, LeavesATruthValueInsteadOfTheNumberZero) {
  Do(tiger);
  EXPECT_EQ(stage.RecordOnDisk(tiger).ChangedToIndex, BooleanValue(false));
  EXPECT_EQ(stage.RecordOnDisk(tigerVariant).ChangedToIndex, BooleanValue(false));
  EXPECT_EQ(stage.RecordOnDisk(fireA).ChangedToIndex, Int16Value(0));
}

TEST_F(Unswapping, AShipThatIsNotChangedDoesNothing) {
  const FolderImage before = stage.Image();
  Do(fireA);
  stage.Unswap("FIRE A");
  EXPECT_TRUE(SameImage(before, stage.Image()));
}

TEST_F(Unswapping, WithoutTheCatalogueItSaysSoAndTouchesNothing) {
  std::filesystem::remove(stage.files.Program("ships.dat"));
  const FolderImage before = stage.Image();
  stage.desk.ExpectBox(noCatalogue, unswapTitle);
  Do(alpha);
  stage.desk.ExpectBox(noCatalogue, unswapTitle);
  stage.Unswap("ALPHA");
  EXPECT_TRUE(SameImage(before, stage.Image()));
}

TEST_F(Unswapping, AShipThatIsNotChangedDoesNothingWithoutTheCatalogueEither) {
  std::filesystem::remove(stage.files.Program("ships.dat"));
  stage.Unswap("FIRE A");
}

TEST_F(Unswapping, NamesAreFoundTrimmedAndWithoutRegardToCase) {
  stage.Unswap(" Tiger ");
  EXPECT_FALSE(stage.RecordOnDisk(tiger).Changed);
  EXPECT_FALSE(stage.RecordOnDisk(tigerVariant).Changed);
}

TEST_F(Unswapping, WhereTheBackupIsGoneTheModelComesFromTheArchive) {
  std::filesystem::remove(stage.Backup(alpha));
  stage.Unswap("ALPHA");
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), stage.ModelBytes(alpha));
}

TEST_F(Unswapping, ASecondPartComesFromItsOwnPlaceInTheArchive) {
  std::filesystem::remove(stage.Backup(tigerVariant));
  stage.Unswap("TIGER");
  EXPECT_EQ(ReadFileAt(stage.Model(tigerVariant)), stage.ModelBytes(tigerVariant));
}

TEST_F(Unswapping, WhereTheModelIsGoneTheBackupTakesItsName) {
  std::filesystem::remove(stage.Model(alpha));
  stage.Unswap("ALPHA");
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), stage.ModelBytes(alpha));
  EXPECT_FALSE(exists(stage.Backup(alpha)));
}

TEST_F(Unswapping, WhereTheStockModelIsNowhereItSaysSoAndTheSourcesModelIsDeleted) {
  LoseStock(alpha);
  ExpectNotFound("alpha.shp");
  stage.Unswap("ALPHA");
  EXPECT_FALSE(exists(stage.Model(alpha)));
  EXPECT_EQ(ReadFileAt(stage.Model(manta)), stage.ModelBytes(manta));
  EXPECT_FALSE(stage.RecordOnDisk(alpha).Changed);
  EXPECT_FALSE(exists(stage.files.Program("backup/ships")));
}

TEST_F(Unswapping, ASourceThatIsChangedItselfIsComparedByItsOwnModel) {
  stage.Swap("CRUISER", "TIGER");  // Tiger flies as Wraith
  LoseStock(cruiser);
  ExpectNotFound("cruiser.shp");
  stage.Unswap("CRUISER");
  EXPECT_FALSE(exists(stage.Model(cruiser)));
  EXPECT_FALSE(exists(stage.files.Program("backup/ships")));
}

TEST_F(Unswapping, WhereTheStockModelIsNowhereAModelThatIsNotTheSourcesAnyMoreIsKept) {
  LoseStock(alpha);
  WriteFileAt(stage.Model(alpha), "changed since");
  WriteFileAt(stage.files.Program("backup/ships/alpha.shp"), "the player's own");
  ExpectNotFound("alpha.shp");
  stage.Unswap("ALPHA");
  EXPECT_FALSE(exists(stage.Model(alpha)));
  EXPECT_TRUE(SameImage({{"alpha.shp", BytesOf("the player's own")}, {"alpha.shp.2", BytesOf("changed since")}},
                        ImageOf(stage.files.Program("backup/ships"))));
}

TEST_F(Unswapping, WhereTheSourceIsGoneTooTheModelIsKept) {
  LoseStock(alpha);
  std::filesystem::remove(stage.Model(manta));
  ExpectNotFound("alpha.shp");
  stage.Unswap("ALPHA");
  EXPECT_FALSE(exists(stage.Model(alpha)));
  EXPECT_TRUE(SameImage({{"alpha.shp", stage.ModelBytes(manta)}}, ImageOf(stage.files.Program("backup/ships"))));
}

TEST_F(Unswapping, OfATwoPartShipThePartThatIsNowhereAloneIsDeleted) {
  LoseStock(tigerVariant);
  ExpectNotFound(stage.files.ships[tigerVariant].file);
  stage.Unswap("TIGER");
  EXPECT_EQ(ReadFileAt(stage.Model(tiger)), stage.ModelBytes(tiger));
  EXPECT_FALSE(exists(stage.Model(tigerVariant)));
}

TEST_F(Unswapping, AllDeletesTheSourcesModelWhereTheStockModelIsNowhere) {
  LoseStock(alpha);
  ExpectNotFound("alpha.shp");
  All();
  EXPECT_FALSE(exists(stage.Model(alpha)));
  EXPECT_EQ(ReadFileAt(stage.Model(bravo)), stage.ModelBytes(bravo));
}

TEST_F(Unswapping, WhereTheArchiveCannotBeReadTheOtherModelStays) {
  std::filesystem::remove(stage.Backup(alpha));
  std::filesystem::remove(stage.files.Game("resource.hog"));
  stage.desk.AllowOthers([](const Message&) { return Answer::ok; });
  stage.Unswap("ALPHA");
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), stage.ModelBytes(manta));
}

TEST_F(Unswapping, WhereTheArchivesTableIsDamagedTheOtherModelStays) {
  std::filesystem::remove(stage.Backup(alpha));
  Bytes archive = ReadFileAt(stage.files.Game("resource.hog"));
  std::fill(archive.begin() + 8, archive.begin() + 12, std::uint8_t{0xFF});  // the count
  std::fill(archive.begin() + 16, archive.end(), std::uint8_t{0});
  WriteFileAt(stage.files.Game("resource.hog"), archive);
  stage.desk.AllowOthers([](const Message&) { return Answer::ok; });
  stage.Unswap("ALPHA");
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), stage.ModelBytes(manta));
  for (const Message& box : stage.desk.shown) EXPECT_EQ(box.text.find("was not found"), std::string::npos);
}

TEST_F(Unswapping, AModelThatAPatchBroughtAfterEnableIsFoundByItsName) {
  std::filesystem::remove(stage.Backup(alpha));
  stage.Record(alpha).HogFatPos = Int32Value(0);
  PatchFileAt(stage.files.Game("resource.hog"),
              static_cast<std::uint64_t>(WholeNumber(stage.RecordOnDisk(alpha).HogFatPos)) + 8, BytesOf("alp"));
  stage.Unswap("ALPHA");
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), stage.ModelBytes(alpha));
}

TEST_F(Unswapping, AModelThatAnotherShipFliesAsItselfIsNotTakenAway) {
  LoseStock(alpha);
  stage.Record(fireA).ShipFile.Set("ALPHA.shp");
  ExpectNotFound("alpha.shp");
  stage.Unswap("ALPHA");
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), stage.ModelBytes(manta)) << "it is the other ship's by now";
  EXPECT_FALSE(exists(stage.files.Program("backup/ships")));
}

TEST_F(Unswapping, AModelThatBothPartsShareIsPutBackOnce) {
  for (const int part : {tiger, tigerVariant}) LoseEntry(part);
  std::filesystem::remove(stage.Backup(tigerVariant));
  stage.Record(tigerVariant).ShipFile.Set(ModelOf(stage.Record(tiger)));
  stage.Unswap("TIGER");
  EXPECT_EQ(ReadFileAt(stage.Model(tiger)), stage.ModelBytes(tiger));
  EXPECT_FALSE(exists(stage.files.Program("backup/ships")));
}

TEST_F(Unswapping, ASourceOfTheVerySameFileIsNotDeleted) {
  LoseStock(alpha);
  stage.Record(alpha).ChangedToFile.Set("alpha.shp");
  ExpectNotFound("alpha.shp");
  stage.Unswap("ALPHA");
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), stage.ModelBytes(manta));
}

TEST_F(Unswapping, WithoutTheDefaultsTheStatisticsStay) {
  std::filesystem::remove(stage.files.Game("shipstats.def"));
  const Bytes before = ReadFileAt(stage.files.Game("shipstats.bin"));
  stage.desk.ExpectBox("Error - file not found", "GetShipsStats");
  stage.desk.ExpectBox("Error - file not found", "GetShipsStats");
  stage.Unswap("TIGER");
  EXPECT_TRUE(SameBytes(before, ReadFileAt(stage.files.Game("shipstats.bin"))));
  EXPECT_EQ(ReadFileAt(stage.Model(tiger)), stage.ModelBytes(tiger));
}

TEST_F(Unswapping, AllPutsEveryShipBackInTheCataloguesOrder) {
  stage.desk.progress.clear();
  All();
  ExpectAllBack();
  Names shown;
  for (const Progress& step : stage.desk.progress) shown.push_back(step.text);
  EXPECT_EQ(shown, (Names{"Putting back Alpha", "Putting back Bravo", "Putting back Tiger", ""}));
}

TEST_F(Unswapping, AllIncludesShipsThatAreNotListed) {
  stage.Swap("CRUISER", "COLOSSUS");
  All();
  EXPECT_FALSE(stage.RecordOnDisk(cruiser).Changed);
  EXPECT_EQ(ReadFileAt(stage.Model(cruiser)), stage.ModelBytes(cruiser));
}

TEST_F(Unswapping, AllWithoutTheCatalogueSaysSoOnce) {
  std::filesystem::remove(stage.files.Program("ships.dat"));
  const FolderImage before = stage.Image();
  stage.desk.ExpectBox(noCatalogue, unswapTitle);
  All();
  EXPECT_TRUE(SameImage(before, stage.Image()));
}

TEST_F(Unswapping, AllWithoutTheCatalogueSaysSoThoughNothingIsChanged) {
  All();
  std::filesystem::remove(stage.files.Program("ships.dat"));
  stage.desk.ExpectBox(noCatalogue, unswapTitle);
  All();
}

TEST_F(Unswapping, AllGoesOnAfterAShipThatFails) {
  stage.host.files.before = [&](const FileOperation& operation) {
    if (operation.kind == FileOperation::Kind::rename && operation.second == stage.ModelPath(alpha)) {
      throw FileError("could not write", operation.second, "the disk is full");
    }
  };
  stage.desk.ExpectBox("Error - could not write " + stage.ModelPath(alpha) + ": the disk is full", unswapTitle);
  All();
  EXPECT_EQ(ReadFileAt(stage.Backup(alpha)), stage.ModelBytes(alpha));
  EXPECT_EQ(ReadFileAt(stage.Model(bravo)), stage.ModelBytes(bravo));
  EXPECT_EQ(ReadFileAt(stage.Model(tiger)), stage.ModelBytes(tiger));
}

TEST_F(Unswapping, WhereTheSystemCannotSayWhetherTheBackupIsThereNothingIsChanged) {
  const FolderImage before = stage.Image();
  stage.host.files.before = [&](const FileOperation& operation) {
    if (operation.kind == FileOperation::Kind::look && operation.path == stage.BackupPath(alpha)) {
      throw FileError("could not look for", operation.path, faultReason);
    }
  };
  for (int attempt = 0; attempt < 2; ++attempt) {
    stage.desk.ExpectBox("Error - could not look for " + stage.BackupPath(alpha) + ": " + faultReason, unswapTitle);
  }
  EXPECT_FALSE(Do(alpha).listed);
  EXPECT_FALSE(All());
  EXPECT_TRUE(SameImage(before, stage.Image()));
}

TEST_F(Unswapping, AModelIsNotRemovedWhereTheSystemCannotSayWhetherItIsTheSource) {
  LoseStock(alpha);
  const std::string source = stage.ModelPath(manta);
  ExpectNotFound("alpha.shp");
  stage.host.files.before = [&](const FileOperation& operation) {
    if (operation.kind == FileOperation::Kind::look && operation.path == source) {
      throw FileError("could not look for", operation.path, faultReason);
    }
  };
  stage.desk.ExpectBox("Error - could not look for " + source + ": " + faultReason, unswapTitle);
  EXPECT_FALSE(Do(alpha).done);
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), stage.ModelBytes(manta));
}

TEST_F(Unswapping, AHiddenBackupIsRestored) {
  WriteFileAt(stage.Backup(alpha), "the player's own");
  if (!SetDosAttributes(stage.Backup(alpha), hiddenMark)) GTEST_SKIP() << "no hidden files here";
  EXPECT_TRUE(Do(alpha).done);
  EXPECT_EQ(ReadTextAt(stage.Model(alpha)), "the player's own");
  EXPECT_FALSE(exists(stage.Backup(alpha)));
}

}  // namespace
}  // namespace oravin::test
