// Removing imported ships: what goes, what is kept, and what a stop in between leaves.

#include "switcher/remove_imported.h"

#include "imported_stage.h"
#include "ships/shipstats.h"
#include "support/fault.h"
#include "support/file_marks.h"

namespace oravin::test {
namespace {

constexpr const char* trapTitle = "cmdRemoveShips_Click()";
constexpr const char* question = "Are you sure that you want to remove these ships?";
constexpr const char* textureQuestion =
    "Do you also want to remove the associated textures for this model?\n"
    "It may take up to ten seconds to rebuild TCACHE file.\n"
    "(Won't remove textures shared with ships not being removed)";

struct Removing : testing::Test {
  void AnswerBoth(bool textures) {
    stage.desk.ExpectQuestion(question, Answer::yes, "Oravin - Manage Switcher");
    stage.desk.ExpectQuestion(textureQuestion, textures ? Answer::yes : Answer::no);
  }
  bool Press() {
    return cmdRemoveShips_Click(stage.swapDesk, stage.imports, [this] {
      ++stage.refills;
      stage.Refill();
    });
  }
  /// Removes ships; everything must go well.
  void Remove(const std::vector<int>& ships, bool textures = false) {
    stage.SelectImported(ships);
    AnswerBoth(textures);
    stage.desk.ExpectSuccess("Removal Complete");
    EXPECT_TRUE(Press());
    EXPECT_TRUE(stage.desk.Done());
    EXPECT_EQ(stage.refills, 1);
  }
  /// Both questions are answered, then something refuses the removal before the first change.
  void ExpectRefused(const std::string& text, const std::string& title = programTitle) {
    const FolderImage before = stage.Image();
    const Ships ships = stage.installation.ships;
    AnswerBoth(true);
    stage.desk.ExpectBox(text, title);
    EXPECT_FALSE(Press());
    EXPECT_TRUE(stage.desk.Done());
    EXPECT_TRUE(SameImage(before, stage.Image()));
    EXPECT_EQ(stage.installation.ships, ships);
  }
  [[nodiscard]] std::filesystem::path AddOn(const std::string& name) const {
    return stage.files.Program("addons/" + name);
  }

  ImportedStage stage;
};

/// Takes a file of an image to another place in it.
void Move(FolderImage& image, const std::string& from, const std::string& to) {
  const auto file = image.find(from);
  ASSERT_NE(file, image.end()) << from;
  image[to] = file->second;
  image.erase(file);
}

/// What removing Manta, alone and without its textures, makes of an image.
FolderImage WithoutManta(FolderImage image) {
  image.erase("game/ships/manta.shp");
  image.erase("game/ships/manta.bak");
  image["program/addons/removed/"];
  image["program/addons/removed/Manta/"];
  Move(image, "program/addons/ships/manta.shp", "program/addons/removed/Manta/manta.shp");
  Move(image, "program/addons/stats/manta.txt", "program/addons/removed/Manta/manta.txt");
  ChangeList(image, "14\r\n", "13\r\n");
  ChangeList(image, "3,\"Manta\",\"manta.shp\",0,\"hull\",\"\"\r\n", "");
  Bytes& defaults = image.at("game/shipstats.def");
  std::fill_n(defaults.begin() + 12 * 352, 352, std::uint8_t{0});
  ChangeRecords(image, [](Ships& ships) {
    ships.erase(ships.begin() + manta);
    MarkSecondParts(ships);
  });
  return image;
}

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
  for (const std::string key : {"s1", "s15", "s0", "x", ""}) {
    stage.imports.lstImported.rows[0].key = key;
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
  stage.desk.AllowOthers([&](const MessageBox& box) {
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
  AddRow(stage.tab.swapToList, {"s12", {"Manta"}, 0, true});
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
  stage.desk.AllowOthers([](const MessageBox& box) { return box.buttons == Buttons::ok ? Answer::ok : Answer::yes; });
  SwapShip(stage.swapDesk, "TWIN", "WRAITH");
  ASSERT_TRUE(stage.Record(manta).Changed);
  stage.SelectImported({manta});
  EXPECT_TRUE(Press());
  EXPECT_FALSE(stage.RecordOnDisk(twinVariant).Changed);
  EXPECT_EQ(ReadFileAt(stage.Model(twinVariant)), stage.ModelBytes(twinVariant));
  EXPECT_FALSE(exists(stage.files.Game("ships/manta.shp")));
  EXPECT_FALSE(exists(stage.files.Game("ships/manta.org")));
}

TEST_F(Removing, FilesThatAreMissingAlreadyDoNotMatter) {
  std::filesystem::remove(stage.Model(manta));
  std::filesystem::remove(AddOn("ships/manta.shp"));
  std::filesystem::remove(AddOn("stats/manta.txt"));
  std::filesystem::remove(stage.files.Game("shipstats.def"));
  std::filesystem::remove(stage.files.Program("shipsData.txt"));
  Remove({manta});
  EXPECT_FALSE(exists(AddOn("removed")));
  EXPECT_FALSE(exists(stage.files.Program("shipsData.txt")));
  EXPECT_EQ(stage.installation.ships.size(), 14U);
}

TEST_F(Removing, AFileThatAShipThatStaysHasTooStays) {
  stage.files.ships[wraith].file = "MANTA.shp";
  stage.files.WriteShipList();
  EXPECT_TRUE(stage.Rebuild());
  stage.Refill();
  WriteFileAt(stage.files.Game("ships/manta.bak"), "the original weapons");
  Remove({manta}, true);
  EXPECT_TRUE(exists(stage.files.Game("ships/manta.shp")));
  EXPECT_TRUE(exists(stage.files.Game("ships/manta.bak")));
  EXPECT_TRUE(exists(AddOn("ships/manta.shp")));
  EXPECT_TRUE(exists(AddOn("stats/manta.txt")));
  stage.refills = 0;
  Remove({manta}, true);  // Wraith, which is there now
  EXPECT_FALSE(exists(stage.files.Game("ships/manta.shp")));
  EXPECT_FALSE(exists(stage.files.Game("ships/manta.bak")));
  EXPECT_TRUE(exists(AddOn("removed/Wraith/manta.shp")));
}

TEST_F(Removing, TwoShipsWithOneModelGoTogether) {
  stage.files.ships[wraith].file = "manta.shp";
  stage.files.WriteShipList();
  EXPECT_TRUE(stage.Rebuild());
  stage.Refill();
  Remove({manta, wraith});
  EXPECT_FALSE(exists(stage.files.Game("ships/manta.shp")));
  EXPECT_TRUE(exists(AddOn("removed/Manta/manta.shp")));
  EXPECT_FALSE(exists(AddOn("removed/Wraith")));
}

TEST_F(Removing, AStockModelOfTheSameNameIsNeverDeleted) {
  stage.Record(manta).ShipFile.Set("ALPHA.shp");
  stage.Record(wraith).ShipFile.Set("bravo.org");
  WriteFileAt(stage.files.Game("ships/bravo.org"), "a stock model, moved aside");
  const Bytes model = ReadFileAt(stage.Model(alpha));
  Remove({manta, wraith});
  EXPECT_EQ(ReadFileAt(stage.Model(alpha)), model);
  EXPECT_EQ(ReadTextAt(stage.files.Game("ships/bravo.org")), "a stock model, moved aside");
}

TEST_F(Removing, ItsTexturesStayWithNo) {
  stage.SetTextures(manta, {"skin"});
  stage.AddUserTexture("skin");
  WriteFileAt(AddOn("textures/skin.bmp"), "a bitmap");
  const Bytes cache = stage.Cache();
  Remove({manta}, false);
  EXPECT_TRUE(SameBytes(cache, stage.Cache()));
  EXPECT_TRUE(exists(AddOn("textures/skin.bmp")));
}

TEST_F(Removing, ItsTexturesAndTheirBitmapsGoWithYes) {
  stage.SetTextures(manta, {"skin", "wing"});
  stage.AddUserTexture("other");
  const Bytes before = stage.Cache();
  for (const char* name : {"skin", "gskin", "Wing"}) stage.AddUserTexture(name);
  for (const char* name : {"skin", "wing", "other"}) WriteFileAt(AddOn(std::string("textures/") + name + ".bmp"), name);
  Remove({manta}, true);
  EXPECT_TRUE(SameBytes(before, stage.Cache()));
  EXPECT_EQ(ReadTextAt(AddOn("removed/Manta/skin.bmp")), "skin");
  EXPECT_EQ(ReadTextAt(AddOn("removed/Manta/wing.bmp")), "wing");
  EXPECT_FALSE(exists(AddOn("textures/skin.bmp")));
  EXPECT_FALSE(exists(AddOn("textures/wing.bmp")));
  EXPECT_EQ(ReadTextAt(AddOn("textures/other.bmp")), "other");
}

TEST_F(Removing, TheLastOfTwentyOneTexturesGoesToo) {
  std::vector<std::string> names;
  for (int i = 0; i < 21; ++i) names.push_back("skin" + std::to_string(i));
  stage.SetTextures(manta, names);
  const Bytes before = stage.Cache();
  stage.AddUserTexture("skin20");
  WriteFileAt(AddOn("textures/skin20.bmp"), "the last one");
  Remove({manta}, true);
  EXPECT_TRUE(SameBytes(before, stage.Cache()));
  EXPECT_EQ(ReadTextAt(AddOn("removed/Manta/skin20.bmp")), "the last one");
}

TEST_F(Removing, TexturesThatAShipThatStaysNamesAreKeptWithTheirBitmaps) {
  stage.SetTextures(manta, {"skin", "gwing", "tail"});
  stage.SetTextures(wraith, {"SKIN", "wing", "gtail"});
  const std::vector<std::string> names = {"skin", "gskin", "wing", "gwing", "tail", "gtail"};
  for (const std::string& name : names) stage.AddUserTexture(name);
  for (const std::string& name : names) WriteFileAt(AddOn("textures/" + name + ".bmp"), name);
  const Bytes cache = stage.Cache();
  Remove({manta}, true);
  EXPECT_TRUE(SameBytes(cache, stage.Cache()));
  for (const std::string& name : names) EXPECT_EQ(ReadTextAt(AddOn("textures/" + name + ".bmp")), name);
}

TEST_F(Removing, ABitmapIsMovedOnceWhenTwoRemovedShipsNameIt) {
  for (const int ship : {manta, wraith}) stage.SetTextures(ship, {"skin"});
  WriteFileAt(AddOn("textures/skin.bmp"), "shared");
  Remove({manta, wraith}, true);
  EXPECT_EQ(ReadTextAt(AddOn("removed/Manta/skin.bmp")), "shared");
  EXPECT_FALSE(exists(AddOn("removed/Wraith/skin.bmp")));
}

TEST_F(Removing, ATextureNameThatIsNoFileNameLeadsNowhere) {
  stage.SetTextures(manta, {"..\\stats\\manta", "*", "con"});
  WriteFileAt(AddOn("stats/manta.bmp"), "elsewhere");
  Remove({manta}, true);
  EXPECT_EQ(ReadTextAt(AddOn("stats/manta.bmp")), "elsewhere");
}

TEST_F(Removing, WithoutACacheThereIsABoxAndTheRemovalGoesOn) {
  std::filesystem::remove(stage.files.Game("tcachehw.dat"));
  stage.SelectImported({manta});
  AnswerBoth(true);
  stage.desk.ExpectBox("TCACHE not found!", "RemoveTexture()");
  stage.desk.ExpectSuccess("Removal Complete");
  EXPECT_TRUE(Press());
  EXPECT_EQ(stage.installation.ships.size(), 14U);
}

TEST_F(Removing, ADamagedCacheKeepsTheShipListedAndItCanBeRemovedWithoutItsTextures) {
  Bytes cache = stage.Cache();
  PutLittleEndian32(&cache.at(4), 0);
  WriteFileAt(stage.files.Game("tcachehw.dat"), cache);
  const FolderImage before = stage.Image();
  stage.SelectImported({manta});
  AnswerBoth(true);
  stage.desk.ExpectBox("Error - not a valid tcache file", "GetTcacheTable");
  stage.desk.ExpectBox(
      "The textures could not be removed, as the message before this one says, so the ships stay listed. Put that "
      "right and remove them again, or keep their textures.");
  EXPECT_FALSE(Press());
  EXPECT_TRUE(SameImage(before, stage.Image()));
  EXPECT_EQ(stage.refills, 1);
  stage.refills = 0;
  Remove({manta}, false);
  EXPECT_TRUE(SameBytes(cache, stage.Cache()));
}

TEST_F(Removing, AnotherFolderServesWhereTheNameIsTaken) {
  WriteFileAt(AddOn("removed/Manta/manta.shp"), "an earlier one");
  WriteFileAt(AddOn("removed/MANTA2"), "a file");
  MakeFolderAt(AddOn("removed/Manta3"));  // empty: it serves
  Remove({manta});
  EXPECT_EQ(ReadTextAt(AddOn("removed/Manta/manta.shp")), "an earlier one");
  EXPECT_EQ(ReadTextAt(AddOn("removed/MANTA2")), "a file");
  EXPECT_EQ(ReadFileAt(AddOn("removed/Manta3/manta.shp")), stage.ModelBytes(manta));
  EXPECT_TRUE(exists(AddOn("removed/Manta3/manta.txt")));
}

TEST(FolderName, HoldsNothingThatAFolderCannotBeCalled) {
  EXPECT_EQ(FolderNameFor("Manta Ray"), "Manta Ray");
  EXPECT_EQ(FolderNameFor("a\\b/c:d*e?f\"g<h>i|j\tk\x7Fl"), "a_b_c_d_e_f_g_h_i_j_k_l");
  EXPECT_EQ(FolderNameFor(""), "_");
  EXPECT_EQ(FolderNameFor("   "), "_");
  EXPECT_EQ(FolderNameFor("."), "_");
  EXPECT_EQ(FolderNameFor(".."), "._");
  EXPECT_EQ(FolderNameFor("Mk. 2."), "Mk. 2_");
  EXPECT_EQ(FolderNameFor("Gl\xFC"
                          "ck \x80\x7F"),
            "Gl_ck __");
  EXPECT_EQ(FolderNameFor("con"), "_con");
  EXPECT_EQ(FolderNameFor("COM1.x"), "_COM1.x");
  EXPECT_EQ(FolderNameFor("Console"), "Console");
}

TEST_F(Removing, AShipWithAnOddNameIsKeptInAFolderOfItsOwn) {
  for (const std::string name : {"..", "a\\b", "con",
                                 "Gl\xFC"
                                 "ck"}) {
    WriteFileAt(AddOn("ships/manta.shp"), name);
    WriteFileAt(stage.files.Game("ships/manta.shp"), stage.ModelBytes(manta));
    stage.installation.ships = RecordsIn(ReadFileAt(stage.files.Program("ships.dat")));
    ShipRecord ship = stage.Record(wraith);
    ship.ShipName.Set(name);
    ship.ShipFile.Set("manta.shp");
    stage.installation.ships.push_back(ship);
    WriteFileAt(stage.files.Program("ships.dat"), CatalogueOf(stage.installation.ships));
    stage.Reload();
    stage.refills = 0;
    const int last = static_cast<int>(stage.installation.ships.size()) - 2;
    if (RowOf(stage.imports.lstImported, manta) && stage.Record(manta).ShipName.Trimmed() == "Manta") {
      Remove({manta, last});
    } else {
      Remove({last});
    }
  }
  EXPECT_EQ(ReadTextAt(AddOn("removed/Manta/manta.shp")), "..");
  EXPECT_EQ(ReadTextAt(AddOn("removed/a_b/manta.shp")), "a\\b");
  EXPECT_EQ(ReadTextAt(AddOn("removed/_con/manta.shp")), "con");
  EXPECT_EQ(ReadTextAt(AddOn("removed/Gl_ck/manta.shp")),
            "Gl\xFC"
            "ck");
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

/// An image as far as it must be the same however often a removal was begun: what was kept may lie in several folders.
FolderImage Comparable(FolderImage image) {
  FolderImage comparable;
  for (auto& [path, bytes] : image) {
    const std::string removed = "program/addons/removed/";
    if (!path.starts_with(removed)) {
      comparable[path] = bytes;
    } else if (!path.ends_with("/")) {
      comparable[removed + path.substr(path.find_last_of('/') + 1)] = bytes;
    }
  }
  return comparable;
}

/// Whatever fails or stops, the ship is listed until all of it is gone, and another removal does what is left.
void WalkRemoval(FaultKind kind, bool swapped) {
  const int operations = AtEachOperation(kind, [&](Fault& fault) {
    ImportedStage stage;
    stage.SetTextures(manta, {"skin"});
    WriteFileAt(stage.files.Program("addons/textures/skin.bmp"), "a bitmap");
    FolderImage expected = WithoutManta(stage.Image());
    Move(expected, "program/addons/textures/skin.bmp", "program/addons/removed/Manta/skin.bmp");
    stage.AddUserTexture("skin");
    if (swapped) SwapShip(stage.swapDesk, "ALPHA", "MANTA");
    stage.desk.AllowOthers([](const MessageBox& box) { return box.buttons == Buttons::ok ? Answer::ok : Answer::yes; });
    const auto remove = [&] {
      stage.SelectImported({manta});
      return cmdRemoveShips_Click(stage.swapDesk, stage.imports, [] {});
    };
    Watch(stage.host.files, fault);
    bool done = false;
    Stopped([&] { done = remove(); });
    const Ships inMemory = stage.installation.ships;
    stage.Reload();
    if (kind == FaultKind::failure) {
      EXPECT_EQ(inMemory, stage.installation.ships) << fault.what;
    }
    EXPECT_EQ(FindShip(stage.installation.ships, "Manta") >= 0, !done) << fault.what;
    if (!done) {
      EXPECT_TRUE(remove()) << fault.what;
    }
    // A swap that was being undone is for "Disable / Restore" to finish.
    if (swapped && fault.happened) return;
    if (swapped) ChangeRecords(expected, [](Ships& ships) { ships[alpha].ChangedToIndex = BooleanValue(false); });
    EXPECT_TRUE(SameImage(Comparable(expected), Comparable(stage.Image()))) << fault.what;
  });
  EXPECT_GT(operations, 20);
}

TEST(RemovalInterrupted, AFailureOfAnyOperationCanBeMadeUpFor) { WalkRemoval(FaultKind::failure, false); }

TEST(RemovalInterrupted, AStopAtAnyOperationCanBeMadeUpFor) { WalkRemoval(FaultKind::stop, false); }

TEST(RemovalInterrupted, AFailureOfAnyOperationWithAShipToPutBack) { WalkRemoval(FaultKind::failure, true); }

TEST(RemovalInterrupted, AStopAtAnyOperationWithAShipToPutBack) { WalkRemoval(FaultKind::stop, true); }

}  // namespace
}  // namespace oravin::test
