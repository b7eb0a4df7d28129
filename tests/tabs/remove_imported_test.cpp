// Removing imported ships: which records and blocks go, and what is put back before.

#include "removing.h"
#include "support/file_marks.h"

namespace oravin::test {
namespace {

constexpr const char* trapTitle = "cmdRemoveShips_Click()";

TEST_F(Removing, TakesTheShipAwayAndKeepsItsAddOnFiles) {
  WriteFileAt(stage.files.Game("ships/manta.bak"), "the original weapons");
  const FolderImage expected = WithoutManta(stage.Image());
  Remove({manta});
  EXPECT_TRUE(SameImage(expected, stage.Image()));
  EXPECT_EQ(stage.installation.ships.size(), 14U);  // the surplus element is one of them
  EXPECT_TRUE(IsInert(stage.installation.ships.back()));
  EXPECT_EQ(stage.Record(manta).ShipName.Trimmed(), "Wraith");
}

TEST_F(Removing, TheCatalogueInMemoryIsWhatANewRunLoads) {
  SwapShip(stage.swapDesk, "BRAVO", "COLOSSUS");
  Remove({manta});
  const Ships inMemory = stage.installation.ships;
  stage.Reload();
  EXPECT_EQ(inMemory, stage.installation.ships);
}

TEST_F(Removing, NoToTheFirstQuestionEndsIt) {
  const FolderImage before = stage.Image();
  stage.SelectImported({manta});
  stage.desk.ExpectQuestion(question, Answer::no, "Oravin - Manage Switcher");
  EXPECT_FALSE(Press());
  EXPECT_TRUE(SameImage(before, stage.Image()));
  EXPECT_EQ(stage.closings, 0);
}

TEST_F(Removing, WithoutASelectionNothingIsAsked) {
  const FolderImage before = stage.Image();
  EXPECT_FALSE(Press());
  for (const int item : {0, 14, -1}) {
    stage.imports.lstImported.rows[0].item = item;
    stage.imports.lstImported.rows[0].selected = true;
    EXPECT_FALSE(Press());
  }
  EXPECT_TRUE(SameImage(before, stage.Image()));
}

TEST_F(Removing, ClosesWhatOtherTabsHoldOpen) {
  Remove({manta});
  EXPECT_GE(stage.closings, 1);
}

TEST_F(Removing, TheListsAreFilledBeforeTheLastBox) {
  stage.SelectImported({manta});
  AnswerBoth(false);
  int refillsAtTheBox = -1;
  stage.desk.AllowOthers([&](const Message& box) {
    EXPECT_EQ(box.text, "Removal Complete");
    refillsAtTheBox = stage.refills;
    return Answer::ok;
  });
  EXPECT_TRUE(Press());
  EXPECT_EQ(refillsAtTheBox, 1);
  EXPECT_FALSE(RowOf(stage.imports.lstImported, colossus));
}

TEST_F(Removing, StockShipsThatFlyAsItArePutBackFirst) {
  const FolderImage before = stage.Image();
  SwapShip(stage.swapDesk, "ALPHA", "MANTA");
  SwapShip(stage.swapDesk, "TIGER", "MANTA");
  SwapShip(stage.swapDesk, "BRAVO", "WRAITH");
  UnswapShip(stage.swapDesk, "BRAVO");
  Remove({manta});
  FolderImage expected = WithoutManta(before);
  ChangeRecords(expected, [](Ships& ships) {
    for (const int target : {alpha, bravo, tiger, tigerVariant}) {
      ships[SwitcherStage::At(target)].ChangedToIndex = BooleanValue(false);
    }
  });
  EXPECT_TRUE(SameImage(expected, stage.Image()));
}

TEST_F(Removing, ShipsThatShareTheirNameArePutBackByTheirPlace) {
  // Three records of one name: the third is a ship of its own, which its name does not lead to.
  stage.files.ships[cruiser].name = "Tiger";
  stage.files.WriteShipList();
  EXPECT_TRUE(stage.Rebuild());
  stage.Refill();
  DisplaySwitcher(stage.host, stage.tab, stage.installation, true);
  stage.Select(cruiser, cruiser);
  SelectOnly(stage.tab.swapToList, std::nullopt);
  AddRow(stage.tab.swapToList, {11, {"Manta"}, 0, true});
  cmdSwap_Click(stage.swapDesk, stage.tab);
  ASSERT_TRUE(stage.RecordOnDisk(cruiser).Changed);
  Remove({manta});
  EXPECT_FALSE(stage.RecordOnDisk(cruiser).Changed);
  EXPECT_EQ(ReadFileAt(stage.Model(cruiser)), stage.ModelBytes(cruiser));
  EXPECT_FALSE(exists(stage.Backup(cruiser)));
}

TEST_F(Removing, ShipsThatFlyAsAnotherOneKeepDoingSo) {
  SwapShip(stage.swapDesk, "ALPHA", "COLOSSUS");
  SwapShip(stage.swapDesk, "BRAVO", "MANTA");
  SwapShip(stage.swapDesk, "STORED", "TIGER");
  const FolderImage before = stage.Image();
  Remove({wraith});
  EXPECT_EQ(stage.RecordOnDisk(alpha).ChangedToIndex, Int16Value(colossus - 1));
  EXPECT_EQ(stage.RecordOnDisk(bravo).ChangedToIndex, Int16Value(manta));
  EXPECT_EQ(stage.RecordOnDisk(stored).ChangedToIndex, Int16Value(tiger));
  for (const int ship : {alpha, bravo, stored}) {
    EXPECT_TRUE(SameBytes(before.at("game/ships/" + stage.files.ships[SwitcherStage::At(ship)].file),
                          ReadFileAt(stage.Model(ship))));
  }
  EXPECT_TRUE(SameBytes(before.at("game/shipstats.bin"), ReadFileAt(stage.files.Game("shipstats.bin"))));
}

TEST_F(Removing, ARecordWhoseIndexIsOnlyInItsLowerBitsTheShipsIsLeftAlone) {
  const TaggedValue index = ChangeBravoToLowerBitsOf(manta);
  Remove({manta});
  EXPECT_TRUE(stage.RecordOnDisk(bravo).Changed);
  EXPECT_EQ(stage.RecordOnDisk(bravo).ChangedToIndex, index);
}

TEST_F(Removing, ARecordWhoseIndexIsOnlyInItsLowerBitsALaterShipsIsLeftAlone) {
  const TaggedValue index = ChangeBravoToLowerBitsOf(colossus);
  Remove({wraith});
  EXPECT_TRUE(stage.RecordOnDisk(bravo).Changed);
  EXPECT_EQ(stage.RecordOnDisk(bravo).ChangedToIndex, index);
}

TEST_F(Removing, SeveralAndAllAtOnce) {
  Remove({manta, colossus});
  EXPECT_EQ(stage.installation.ships.size(), 13U);
  EXPECT_EQ(stage.Record(manta).ShipName.Trimmed(), "Wraith");
  stage.refills = 0;
  AnswerBoth(true);
  stage.desk.ExpectSuccess("Removal Complete");
  EXPECT_TRUE(cmdRemoveAll_Click(stage.swapDesk, stage.imports, [this] { stage.Refill(); }));
  EXPECT_TRUE(stage.imports.lstImported.rows.empty());
  EXPECT_FALSE(stage.imports.cmdRemoveAll.enabled);
  EXPECT_EQ(stage.installation.ships.size(), 12U);
  EXPECT_FALSE(exists(stage.files.Game("ships/wraith.shp")));
}

TEST_F(Removing, AllOfNoShipsAsksNothing) {
  Remove({manta, wraith, colossus});
  EXPECT_FALSE(cmdRemoveAll_Click(stage.swapDesk, stage.imports, [] {}));
}

TEST_F(Removing, BothImportedPartsOfAShipGo) {
  stage.files.ships[wraith].name = "Manta";
  stage.files.WriteShipList();
  EXPECT_TRUE(stage.Rebuild());
  stage.Refill();
  Remove({manta});
  EXPECT_EQ(stage.installation.ships.size(), 13U);
  EXPECT_EQ(stage.Record(manta).ShipName.Trimmed(), "Colossus");
  EXPECT_FALSE(exists(stage.files.Game("ships/wraith.shp")));
  EXPECT_TRUE(exists(AddOn("removed/Manta/manta.shp")));
  EXPECT_TRUE(exists(AddOn("removed/Manta2/wraith.shp")));
}

TEST_F(Removing, RecordsThatBecomeNeighboursUnderOneNameAreTwoParts) {
  stage.files.ships[wraith].name = "Twin ";
  stage.files.WriteShipList();
  EXPECT_TRUE(stage.Rebuild());
  stage.Refill();
  EXPECT_FALSE(stage.Record(twinVariant).HasSecondPart);
  Remove({manta});
  EXPECT_TRUE(stage.Record(twinVariant).HasSecondPart);
  EXPECT_EQ(stage.RecordOnDisk(twinVariant).SecondPartIndex, Int16Value(manta));
}

TEST_F(Removing, AnImportedShipThatIsTakenForAStockShipsSecondPartIsPutBackWithIt) {
  stage.files.ships[manta].name = "Twin";
  stage.files.ships[twinVariant].name = "Another";
  std::swap(stage.files.ships[twin], stage.files.ships[twinVariant]);
  stage.files.WriteShipList();
  EXPECT_TRUE(stage.Rebuild());
  stage.Refill();
  ASSERT_TRUE(stage.Record(twinVariant).HasSecondPart);
  // Its block is none of shipstats.bin, of which boxes tell.
  stage.desk.AllowOthers([](const Message& box) { return box.buttons == Buttons::ok ? Answer::ok : Answer::yes; });
  SwapShip(stage.swapDesk, "TWIN", "WRAITH");
  ASSERT_TRUE(stage.Record(manta).Changed);
  stage.SelectImported({manta});
  EXPECT_TRUE(Press());
  EXPECT_FALSE(stage.RecordOnDisk(twinVariant).Changed);
  EXPECT_EQ(ReadFileAt(stage.Model(twinVariant)), stage.ModelBytes(twinVariant));
  EXPECT_FALSE(exists(stage.files.Game("ships/manta.shp")));
  EXPECT_FALSE(exists(stage.files.Game("ships/manta.org")));
}

TEST_F(Removing, ABlockThatIsNotItsOwnStays) {
  stage.Record(manta).StatsIndex = Int16Value(13);    // Wraith's
  stage.Record(colossus).StatsIndex = Int16Value(3);  // the game's own
  const Bytes before = ReadFileAt(stage.files.Game("shipstats.def"));
  Remove({manta, colossus});
  EXPECT_TRUE(SameBytes(before, ReadFileAt(stage.files.Game("shipstats.def"))));
}

TEST_F(Removing, ABlockThatAShipThatStaysUsesTooStays) {
  stage.Record(colossus).StatsIndex = Int16Value(12);
  const Bytes before = ReadFileAt(stage.files.Game("shipstats.def"));
  Remove({manta});
  EXPECT_TRUE(SameBytes(before, ReadFileAt(stage.files.Game("shipstats.def"))));
}

TEST_F(Removing, ItsBlockServesTheNextImportedShip) {
  Remove({manta});
  const std::size_t size = ReadFileAt(stage.files.Game("shipstats.def")).size();
  stage.files.ships[manta].name = "Sting";
  stage.files.ships[manta].file = "sting.shp";
  stage.files.WriteShipList();
  WriteFileAt(AddOn("ships/sting.shp"), stage.ModelBytes(manta));
  EXPECT_TRUE(stage.Rebuild());
  EXPECT_EQ(stage.Record(manta).StatsIndex, Int16Value(12));
  const Bytes defaults = ReadFileAt(stage.files.Game("shipstats.def"));
  EXPECT_EQ(defaults.size(), size);
  EXPECT_EQ(TextOf(std::span(defaults).subspan(12 * 352, 6)), std::string("Sting\0", 6));
}

TEST_F(Removing, TheNextEnableDoesNotBringItBack) {
  Remove({manta});
  EXPECT_TRUE(stage.Rebuild());
  EXPECT_EQ(stage.installation.ships.size(), 14U);
  EXPECT_EQ(FindShip(stage.installation.ships, "Manta"), -1);
  EXPECT_FALSE(exists(stage.files.Game("ships/manta.shp")));
}

TEST_F(Removing, ADamagedListRefusesIt) {
  WriteFileAt(stage.files.Program("shipsData.txt"), "2\nnonsense");
  stage.SelectImported({manta});
  ExpectRefused(
      "Error - could not read " + stage.files.programPath + "shipsData.txt: \"nonsense\" is no number (line 2)",
      trapTitle);
}

TEST_F(Removing, WithoutTheCatalogueItSaysSoAndTouchesNothing) {
  std::filesystem::remove(stage.files.Program("ships.dat"));
  const FolderImage before = stage.Image();
  stage.SelectImported({manta});
  stage.desk.ExpectQuestion(question, Answer::yes, "Oravin - Manage Switcher");
  stage.desk.ExpectBox("Error - ships.dat not found - Reinstall", trapTitle);
  EXPECT_FALSE(Press());
  EXPECT_TRUE(SameImage(before, stage.Image()));
}

TEST_F(Removing, TheStatsTabGoesOnWithTheShipsThatItShowsAndRemembers) {
  const auto select = [&](int ship) {
    SelectOnly(stage.statsTab.shipEditingList, RowOf(stage.statsTab.shipEditingList, ship));
  };
  select(colossus);
  stage.statsTab.remembered = RememberedShip{wraith, "Wraith"};
  Remove({manta});
  EXPECT_EQ(SelectedShip(stage.statsTab), colossus - 1);
  EXPECT_EQ(RememberedShipIn(stage.statsTab, stage.installation.ships), wraith - 1);
  stage.refills = 0;
  Remove({wraith - 1, colossus - 1});
  EXPECT_EQ(SelectedShip(stage.statsTab), -1);
  EXPECT_FALSE(stage.statsTab.remembered);
}

TEST_F(Removing, WhatCannotBeWrittenRefusesItBeforeTheFirstChange) {
  SwapShip(stage.swapDesk, "ALPHA", "MANTA");
  WriteFileAt(stage.files.Game("ships/manta.bak"), "the original weapons");
  stage.SetTextures(manta, {"skin"});
  WriteFileAt(AddOn("textures/skin.bmp"), "a bitmap");
  stage.SelectImported({manta});
  for (const std::string name :
       {"program/ships.dat", "program/shipsData.txt", "game/shipstats.def", "game/shipstats.bin", "game/tcachehw.dat",
        "game/ships/alpha.shp", "game/ships/alpha.org", "game/ships/manta.shp", "game/ships/manta.bak",
        "program/addons/ships/manta.shp", "program/addons/stats/manta.txt", "program/addons/textures/skin.bmp",
        "program/", "game/ships/", "game/", "program/addons/", "program/addons/ships/", "program/addons/stats/",
        "program/addons/textures/"}) {
    SCOPED_TRACE(name);
    if (readOnlyFoldersTakeFiles && name.ends_with('/')) continue;
    SetReadOnly(stage.files.folder.Native(name), true);
    ExpectRefused(stage.files.folder.Windows(name) +
                  " cannot be written: it is read-only.\nTake the read-only mark away and try again. Nothing has been "
                  "changed.");
    SetReadOnly(stage.files.folder.Native(name), false);
  }
  Remove({manta}, true);
}

TEST_F(Removing, AReadOnlyCacheDoesNotMatterWithNo) {
  SetReadOnly(stage.files.Game("tcachehw.dat"), true);
  Remove({manta}, false);
}

TEST_F(Removing, OneOfThreeHundred) {
  for (int i = 0; i < 297; ++i) {
    SmallShip copy = stage.files.ships[wraith];
    copy.name = "Copy " + std::to_string(i);
    copy.file = "copy" + std::to_string(i) + ".shp";
    WriteFileAt(AddOn("ships/" + copy.file), copy.model);
    stage.files.ships.push_back(copy);
  }
  stage.files.WriteShipList();
  EXPECT_TRUE(stage.Rebuild());
  stage.Refill();
  const Bytes catalogue = ReadFileAt(stage.files.Program("ships.dat"));
  Remove({manta}, true);
  Ships expected = RecordsIn(catalogue);
  expected.erase(expected.begin() + manta);
  MarkSecondParts(expected);
  EXPECT_TRUE(SameBytes(CatalogueOf(expected), ReadFileAt(stage.files.Program("ships.dat"))));
  stage.refills = 0;
  SelectAll(stage.imports.lstImported, true);
  AnswerBoth(false);
  stage.desk.ExpectSuccess("Removal Complete");
  EXPECT_TRUE(Press());
  EXPECT_EQ(stage.installation.ships.size(), 12U);
  EXPECT_EQ(ReadTextAt(stage.files.Program("shipsData.txt")).substr(0, 4), "11\r\n");
}

}  // namespace
}  // namespace oravin::test
