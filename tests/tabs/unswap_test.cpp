// Ships put back: from the backup beside the model, from the archive, and without either.

#include "base/file_error.h"
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
    SwapShip(stage.swapDesk, "ALPHA", "MANTA");
    SwapShip(stage.swapDesk, "TIGER", "WRAITH");
    SwapShip(stage.swapDesk, "BRAVO", "STORED");
    DisplaySwitcher(stage.host, stage.tab, stage.installation, false);
    stage.closings = 0;
  }

  void Press(int target) {
    stage.Select(target, target);
    cmdUnSwap_Click(stage.swapDesk, stage.tab);
  }
  void All() { cmdUnswapAll_Click(stage.swapDesk, stage.tab); }
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
  [[nodiscard]] std::vector<std::string> SecondColumn() const {
    std::vector<std::string> texts;
    for (const ListRow& row : stage.tab.swapOrgList.rows) texts.push_back(row.texts.at(1));
    return texts;
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

TEST_F(Unswapping, PutsModelStatisticsAndRecordBackAndClearsTheMark) {
  EXPECT_EQ(SecondColumn()[0], "--->Manta");
  Press(alpha);
  EXPECT_EQ(SecondColumn()[0], "");
  EXPECT_EQ(SecondColumn()[1], "--->Stored");
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), stage.ModelBytes(alpha));
  EXPECT_FALSE(exists(stage.Backup(alpha)));
  const ShipRecord record = stage.RecordOnDisk(alpha);
  EXPECT_FALSE(record.Changed);
  EXPECT_EQ(record.ChangedToName.Trimmed(), "");
  EXPECT_EQ(record.ChangedToFile.Trimmed(), "");
  EXPECT_EQ(stage.closings, 1);
}

TEST_F(Unswapping, LeavesATruthValueInsteadOfTheNumberZero) {
  Press(tiger);
  EXPECT_EQ(stage.RecordOnDisk(tiger).ChangedToIndex, BooleanValue(false));
  EXPECT_EQ(stage.RecordOnDisk(tigerVariant).ChangedToIndex, BooleanValue(false));
  EXPECT_EQ(stage.RecordOnDisk(fireA).ChangedToIndex, Int16Value(0));
}

TEST_F(Unswapping, AShipThatIsNotChangedDoesNothing) {
  const FolderImage before = stage.Image();
  Press(fireA);
  UnswapShip(stage.swapDesk, "FIRE A");
  EXPECT_TRUE(SameImage(before, stage.Image()));
  EXPECT_EQ(stage.closings, 0);
}

TEST_F(Unswapping, TheButtonIsOnWithAChangedShipSelectedOnly) {
  SwitcherTab& tab = stage.tab;
  EXPECT_FALSE(tab.cmdUnswap.enabled) << "nothing is selected";
  stage.Select(fireA, manta);
  EnableSwitcherControls(tab, stage.installation);
  EXPECT_FALSE(tab.cmdUnswap.enabled) << "it is not changed";
  stage.Select(alpha, manta);
  EnableSwitcherControls(tab, stage.installation);
  EXPECT_TRUE(tab.cmdUnswap.enabled);
  cmdUnSwap_Click(stage.swapDesk, tab);
  EXPECT_FALSE(tab.cmdUnswap.enabled) << "it is put back";
  EXPECT_TRUE(tab.cmdSwap.enabled) << "the selection stays";
  cmdSwap_Click(stage.swapDesk, tab);
  EXPECT_TRUE(tab.cmdUnswap.enabled) << "it is changed again";
  All();
  EXPECT_FALSE(tab.cmdUnswap.enabled) << "no ship is changed";
}

TEST_F(Unswapping, WithoutASelectionNothingHappens) {
  const FolderImage before = stage.Image();
  cmdUnSwap_Click(stage.swapDesk, stage.tab);
  EXPECT_TRUE(SameImage(before, stage.Image()));
}

TEST_F(Unswapping, WithoutTheCatalogueItSaysSoAndTouchesNothing) {
  std::filesystem::remove(stage.files.Program("ships.dat"));
  const FolderImage before = stage.Image();
  stage.desk.ExpectBox(noCatalogue, unswapTitle);
  Press(alpha);
  stage.desk.ExpectBox(noCatalogue, unswapTitle);
  UnswapShip(stage.swapDesk, "ALPHA");
  EXPECT_TRUE(SameImage(before, stage.Image()));
  EXPECT_EQ(SecondColumn()[0], "--->Manta");
  EXPECT_EQ(stage.closings, 0);
}

TEST_F(Unswapping, AShipThatIsNotChangedDoesNothingWithoutTheCatalogueEither) {
  std::filesystem::remove(stage.files.Program("ships.dat"));
  UnswapShip(stage.swapDesk, "FIRE A");
}

TEST_F(Unswapping, NamesAreFoundTrimmedAndWithoutRegardToCase) {
  UnswapShip(stage.swapDesk, " Tiger ");
  EXPECT_FALSE(stage.RecordOnDisk(tiger).Changed);
  EXPECT_FALSE(stage.RecordOnDisk(tigerVariant).Changed);
  EXPECT_EQ(SecondColumn()[2], "--->Wraith");  // no list is touched
}

TEST_F(Unswapping, WhereTheBackupIsGoneTheModelComesFromTheArchive) {
  std::filesystem::remove(stage.Backup(alpha));
  UnswapShip(stage.swapDesk, "ALPHA");
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), stage.ModelBytes(alpha));
}

TEST_F(Unswapping, ASecondPartComesFromItsOwnPlaceInTheArchive) {
  std::filesystem::remove(stage.Backup(tigerVariant));
  UnswapShip(stage.swapDesk, "TIGER");
  EXPECT_EQ(ReadFileAt(stage.Model(tigerVariant)), stage.ModelBytes(tigerVariant));
}

TEST_F(Unswapping, WhereTheModelIsGoneTheBackupTakesItsName) {
  std::filesystem::remove(stage.Model(alpha));
  UnswapShip(stage.swapDesk, "ALPHA");
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), stage.ModelBytes(alpha));
  EXPECT_FALSE(exists(stage.Backup(alpha)));
}

TEST_F(Unswapping, WhereTheStockModelIsNowhereItSaysSoAndTheSourcesModelIsDeleted) {
  LoseStock(alpha);
  ExpectNotFound("alpha.shp");
  UnswapShip(stage.swapDesk, "ALPHA");
  EXPECT_FALSE(exists(stage.Model(alpha)));
  EXPECT_EQ(ReadFileAt(stage.Model(manta)), stage.ModelBytes(manta));
  EXPECT_FALSE(stage.RecordOnDisk(alpha).Changed);
  EXPECT_FALSE(exists(stage.files.Program("backup/ships")));
}

TEST_F(Unswapping, ASourceThatIsChangedItselfIsComparedByItsOwnModel) {
  SwapShip(stage.swapDesk, "CRUISER", "TIGER");  // Tiger flies as Wraith
  LoseStock(cruiser);
  ExpectNotFound("cruiser.shp");
  UnswapShip(stage.swapDesk, "CRUISER");
  EXPECT_FALSE(exists(stage.Model(cruiser)));
  EXPECT_FALSE(exists(stage.files.Program("backup/ships")));
}

TEST_F(Unswapping, WhereTheStockModelIsNowhereAModelThatIsNotTheSourcesAnyMoreIsKept) {
  LoseStock(alpha);
  WriteFileAt(stage.Model(alpha), "changed since");
  WriteFileAt(stage.files.Program("backup/ships/alpha.shp"), "the player's own");
  ExpectNotFound("alpha.shp");
  UnswapShip(stage.swapDesk, "ALPHA");
  EXPECT_FALSE(exists(stage.Model(alpha)));
  EXPECT_TRUE(SameImage({{"alpha.shp", BytesOf("the player's own")}, {"alpha.shp.2", BytesOf("changed since")}},
                        ImageOf(stage.files.Program("backup/ships"))));
}

TEST_F(Unswapping, WhereTheSourceIsGoneTooTheModelIsKept) {
  LoseStock(alpha);
  std::filesystem::remove(stage.Model(manta));
  ExpectNotFound("alpha.shp");
  UnswapShip(stage.swapDesk, "ALPHA");
  EXPECT_FALSE(exists(stage.Model(alpha)));
  EXPECT_TRUE(SameImage({{"alpha.shp", stage.ModelBytes(manta)}}, ImageOf(stage.files.Program("backup/ships"))));
}

TEST_F(Unswapping, OfATwoPartShipThePartThatIsNowhereAloneIsDeleted) {
  LoseStock(tigerVariant);
  ExpectNotFound(stage.files.ships[tigerVariant].file);
  UnswapShip(stage.swapDesk, "TIGER");
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
  UnswapShip(stage.swapDesk, "ALPHA");
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), stage.ModelBytes(manta));
}

TEST_F(Unswapping, WhereTheArchivesTableIsDamagedTheOtherModelStays) {
  std::filesystem::remove(stage.Backup(alpha));
  Bytes archive = ReadFileAt(stage.files.Game("resource.hog"));
  std::fill(archive.begin() + 8, archive.begin() + 12, std::uint8_t{0xFF});  // the count
  std::fill(archive.begin() + 16, archive.end(), std::uint8_t{0});
  WriteFileAt(stage.files.Game("resource.hog"), archive);
  stage.desk.AllowOthers([](const Message&) { return Answer::ok; });
  UnswapShip(stage.swapDesk, "ALPHA");
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), stage.ModelBytes(manta));
  for (const Message& box : stage.desk.shown) EXPECT_EQ(box.text.find("was not found"), std::string::npos);
}

TEST_F(Unswapping, AModelThatAPatchBroughtAfterEnableIsFoundByItsName) {
  std::filesystem::remove(stage.Backup(alpha));
  stage.Record(alpha).HogFatPos = Int32Value(0);
  PatchFileAt(stage.files.Game("resource.hog"),
              static_cast<std::uint64_t>(WholeNumber(stage.RecordOnDisk(alpha).HogFatPos)) + 8, BytesOf("alp"));
  UnswapShip(stage.swapDesk, "ALPHA");
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), stage.ModelBytes(alpha));
}

TEST_F(Unswapping, AModelThatAnotherShipFliesAsItselfIsNotTakenAway) {
  LoseStock(alpha);
  stage.Record(fireA).ShipFile.Set("ALPHA.shp");
  ExpectNotFound("alpha.shp");
  UnswapShip(stage.swapDesk, "ALPHA");
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), stage.ModelBytes(manta)) << "it is the other ship's by now";
  EXPECT_FALSE(exists(stage.files.Program("backup/ships")));
}

TEST_F(Unswapping, AModelThatBothPartsShareIsPutBackOnce) {
  for (const int part : {tiger, tigerVariant}) LoseEntry(part);
  std::filesystem::remove(stage.Backup(tigerVariant));
  stage.Record(tigerVariant).ShipFile.Set(ModelOf(stage.Record(tiger)));
  UnswapShip(stage.swapDesk, "TIGER");
  EXPECT_EQ(ReadFileAt(stage.Model(tiger)), stage.ModelBytes(tiger));
  EXPECT_FALSE(exists(stage.files.Program("backup/ships")));
}

TEST_F(Unswapping, ASourceOfTheVerySameFileIsNotDeleted) {
  LoseStock(alpha);
  stage.Record(alpha).ChangedToFile.Set("alpha.shp");
  ExpectNotFound("alpha.shp");
  UnswapShip(stage.swapDesk, "ALPHA");
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), stage.ModelBytes(manta));
}

TEST_F(Unswapping, WithoutTheDefaultsTheStatisticsStay) {
  std::filesystem::remove(stage.files.Game("shipstats.def"));
  const Bytes before = ReadFileAt(stage.files.Game("shipstats.bin"));
  stage.desk.ExpectBox("Error - file not found", "GetShipsStats");
  stage.desk.ExpectBox("Error - file not found", "GetShipsStats");
  UnswapShip(stage.swapDesk, "TIGER");
  EXPECT_TRUE(SameBytes(before, ReadFileAt(stage.files.Game("shipstats.bin"))));
  EXPECT_EQ(ReadFileAt(stage.Model(tiger)), stage.ModelBytes(tiger));
}

TEST_F(Unswapping, RefreshesTheOtherTabsList) {
  ClearRows(stage.statsTab.shipEditingList);
  Press(alpha);
  EXPECT_FALSE(stage.statsTab.shipEditingList.rows.empty());
  ClearRows(stage.statsTab.shipEditingList);
  All();
  EXPECT_FALSE(stage.statsTab.shipEditingList.rows.empty());
}

TEST_F(Unswapping, AllPutsEveryShipBackInTheCataloguesOrder) {
  stage.desk.progress.clear();
  All();
  ExpectAllBack();
  EXPECT_EQ(SecondColumn(), Names(6));
  EXPECT_EQ(stage.closings, 1);
  Names shown;
  for (const Progress& step : stage.desk.progress) shown.push_back(step.text);
  EXPECT_EQ(shown, (Names{"Putting back Alpha", "Putting back Bravo", "Putting back Tiger", ""}));
}

TEST_F(Unswapping, AllIncludesShipsThatAreNotListed) {
  SwapShip(stage.swapDesk, "CRUISER", "COLOSSUS");
  All();
  EXPECT_FALSE(stage.RecordOnDisk(cruiser).Changed);
  EXPECT_EQ(ReadFileAt(stage.Model(cruiser)), stage.ModelBytes(cruiser));
}

TEST_F(Unswapping, AllWithoutTheCatalogueSaysSoOnceAndStillClearsTheMarks) {
  std::filesystem::remove(stage.files.Program("ships.dat"));
  const FolderImage before = stage.Image();
  stage.desk.ExpectBox(noCatalogue, unswapTitle);
  All();
  EXPECT_TRUE(SameImage(before, stage.Image()));
  EXPECT_EQ(SecondColumn(), Names(6));
}

TEST_F(Unswapping, AllWithoutTheCatalogueSaysSoThoughNothingIsChanged) {
  All();
  std::filesystem::remove(stage.files.Program("ships.dat"));
  stage.desk.ExpectBox(noCatalogue, unswapTitle);
  All();
}

TEST_F(Unswapping, AllGoesOnBehindAShipThatFails) {
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

}  // namespace
}  // namespace oravin::test
