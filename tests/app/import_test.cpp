// Importing ships: through the form and the handler table, on the enabled small installation. After every step every
// file of both folders is compared byte for byte with what it must be.

#include "desk/program_end.h"
#include "files/file.h"
#include "import_stage.h"
#include "support/cache_files.h"
#include "support/fault.h"
#include "support/file_marks.h"

namespace oravin::test {
namespace {

TEST_F(Importing, ASingleModelIsNamedAfterItsFileAndAllItsFilesAreAccountedFor) {
  SmallShip raider = Make("raider", "raider.shp", {red, blue});
  ExpectSuccess();
  ImportAll("raider.shp");
  expected.Import(raider, {red, blue});
  Compare("the import");
  EXPECT_EQ(session->main.imports.txtImportFighter.text, NewPath("raider.shp"));
  ASSERT_EQ(session->main.imports.lstImported.rows.size(), 4U);
  EXPECT_EQ(session->main.imports.lstImported.rows[3].texts[0], "raider");
}

TEST_F(Importing, AnImportedShipFliesInPlaceOfAStockShipAndIsFoundAgainAfterDisableAndEnable) {
  const SmallShip raider = Make("raider", "raider.shp", {red});
  ExpectSuccess();
  ImportAll("raider.shp");
  expected.Import(raider, {red});
  const int index = static_cast<int>(expected.ships.size()) - 1;
  session->Swap(alpha, index);
  expected.Swap(alpha, index);
  Compare("the swap");
  session->Disable();
  expected.Disable();
  Compare("Disable");
  session->Enable();
  expected.Enable();
  expected.looseModels.erase("raider.bak");  // only an import makes it
  Compare("Enable");
  session->Swap(tiger, index);
  expected.Swap(tiger, index);
  Compare("a swap in the next life");
}

TEST_F(Importing, AnotherRunFindsTheImportedShip) {
  const SmallShip raider = Make("raider", "raider.shp", {red});
  ExpectSuccess();
  ImportAll("raider.shp");
  expected.Import(raider, {red});
  session = nullptr;
  session = std::make_unique<Session>(installation);
  Compare("starting again");
  EXPECT_EQ(session->main.imports.lstImported.rows.size(), 4U);
}

TEST_F(Importing, APackWithAClashAndAMissingTextureIsImportedAfterARenameWithoutTheShipThatLacksIt) {
  SmallShip hawk = Make("Hawk", "hawk.shp", {red});
  Make("Ghost", "ghost.shp", {blue});
  std::filesystem::remove(New("blue.bmp"));
  const SmallShip whale = Make("Whale", "whale.shp", {{"grey", Pattern(16, 50)}}, 5);
  MakePack(
      "\"My pack\"\r\n\"\\hawk.shp\",\"ALPHA\",\"\"\r\n\"\\ghost.shp\",\"Ghost\",\"\"\r\n"
      "\"\\whale.shp\",\"Whale\",\"\"\r\n");
  Open("ships.pak", [&] {
    ListView& list = session->main.importForm.lstPack;
    EXPECT_EQ(list.rows[0].colour, 255U);
    session->desk.ExpectBox(
        "Ships marked in red have the same names as an existing ship in Oravin.\n"
        "You must rename or uncheck these ships before importing.");
    Import();
    Compare("the refusal");
    list.edited = {0, "Hawk"};
    session->Press("Fighter_PACK.lstPack.AfterLabelEdit");
    EXPECT_EQ(list.rows[0].colour, 0U);
    session->desk.AnswerFile("");
    session->desk.ExpectBox(notFound);
    ExpectErrors({"Ghost"});
    Import();
  });
  EXPECT_EQ(session->desk.fileQuestions.back().title, "Find texture file");
  EXPECT_EQ(session->desk.fileQuestions.back().filter, "Bitmap *.bmp |*.bmp|All files|*.*");
  expected.Import(hawk, {red});
  expected.Import(whale, {{"grey", Pattern(16, 50)}});
  Compare("the import");
}

TEST_F(Importing, UncheckingEveryRedShipLetsTheImportProceed) {
  Make("Alpha", "hawk.shp", {red});
  const SmallShip ghost = Make("Ghost", "ghost.shp", {blue});
  MakePack("pack\n\\hawk.shp,Alpha,\n\\ghost.shp,Ghost,\n");
  Open("ships.pak", [&] {
    SetChecked(session->main.importForm.lstPack, 0, false);
    session->Press("Fighter_PACK.lstPack.ItemCheck");
    ExpectSuccess();
    Import();
  });
  expected.Import(ghost, {blue});
  Compare("the import");
}

TEST_F(Importing, AGivenBitmapIsUsedAndAskedForOnceForAllShipsThatNeedIt) {
  const SmallShip hawk = Make("Hawk", "hawk.shp", {red});
  const SmallShip ghost = Make("Ghost", "ghost.shp", {red});
  std::filesystem::rename(New("red.bmp"), New("elsewhere.bmp"));
  MakePack("pack\n\\hawk.shp,Hawk,\n\\ghost.shp,Ghost,\n");
  session->desk.AnswerFile(NewPath("elsewhere.bmp"));
  ExpectSuccess();
  ImportAll("ships.pak");
  expected.Import(hawk, {red});
  expected.Import(ghost, {red});
  Compare("the import");
}

TEST_F(Importing, StatisticsComeFromTheTextBesideTheModel) {
  const SmallShip hawk = Make("Hawk", "hawk.shp", {});
  const std::string text = "1,2,3\n4,5,6\n7,8,9\n10,11,12\n13,14,15\n";
  WriteFileAt(New("HAWK.TXT"), text);
  std::filesystem::rename(New("hawk.shp"), New("Hawk.shp"));
  ExpectSuccess();
  ImportAll("Hawk.shp");
  SmallShip named = hawk;
  named.file = "Hawk.shp";
  expected.Import(named, {}, text, {1, 2, 3, 4, 5, 6, 7, 8, 9, 11, 12, 10, 13, 14, 15});
  Compare("the import");
}

TEST_F(Importing, StatisticsComeFromTheAddOnsWhereNoTextIsBesideTheModel) {
  const SmallShip hawk = Make("hawk", "hawk.shp", {});
  const std::string text = "15,14,13,12,11,10,9,8,7,6,5,4,3,2,1";
  WriteFileAt(installation.Program("addons/stats/hawk.txt"), text);
  ExpectSuccess();
  ImportAll("hawk.shp");
  expected.Import(hawk, {}, text, {15, 14, 13, 12, 11, 10, 9, 8, 7, 5, 4, 6, 3, 2, 1});
  Compare("the import");
}

TEST_F(Importing, WhatCannotBeWrittenRefusesItBeforeTheFirstChange) {
  const SmallShip hawk = Make("hawk", "hawk.shp", {red});
  for (const std::string name :
       {"program/ships.dat", "program/shipsData.txt", "game/shipstats.def", "game/tcachehw.dat", "program/", "game/",
        "game/ships/", "program/addons/ships/", "program/addons/textures/", "program/addons/stats/"}) {
    SCOPED_TRACE(name);
    if (readOnlyFoldersTakeFiles && name.ends_with('/')) continue;
    SetReadOnly(installation.folder.Native(name), true);
    session->desk.ExpectBox(installation.folder.Windows(name) +
                            " cannot be written: it is read-only.\nTake the read-only mark away and try again. Nothing "
                            "has been changed.");
    Open("hawk.shp", [&] {
      Import();
      EXPECT_TRUE(session->main.importForm.shown) << "the import can be tried again";
    });
    SetReadOnly(installation.folder.Native(name), false);
    Compare("the refusal");
  }
  ExpectSuccess();
  ImportAll("hawk.shp");
  expected.Import(hawk, {red});
  Compare("the import");
}

TEST_F(Importing, StatisticsThatCannotBeReadMakeTheShipFail) {
  Make("Hawk", "hawk.shp", {red});
  WriteFileAt(New("hawk.txt"), "1,2,three");
  session->desk.AllowOthers([](const Message&) { return Answer::ok; });
  ImportAll("hawk.shp");
  EXPECT_EQ(session->desk.shown.back().text, withErrors + std::string("\n\nThese ships were not imported:\nhawk"));
  Compare("the failure");
}

TEST_F(Importing, AModelWhoseFileNameIsTakenGetsTheFirstFreeNumber) {
  SmallShip first = Make("Hawk", "ALPHA.shp", {red});
  ExpectSuccess("\n\nThe model ALPHA.shp was imported as ALPHA2.shp.");
  Open("ALPHA.shp", [&] {
    session->main.importForm.lstPack.edited = {0, "Hawk"};
    session->Press("Fighter_PACK.lstPack.AfterLabelEdit");
    Import();
  });
  first.file = "ALPHA2.shp";
  expected.Import(first, {red});
  Compare("the first");
  SmallShip second = Make("Kite", "Alpha.shp", {blue});
  ExpectSuccess("\n\nThe model Alpha.shp was imported as Alpha3.shp.");
  Open("Alpha.shp", [&] {
    session->main.importForm.lstPack.edited = {0, "Kite"};
    session->Press("Fighter_PACK.lstPack.AfterLabelEdit");
    Import();
  });
  second.file = "Alpha3.shp";
  expected.Import(second, {blue});
  Compare("the second");
}

TEST_F(Importing, AFileOfThePlayersInTheShipsFolderIsNeverOverwritten) {
  SmallShip hawk = Make("hawk", "hawk.shp", {red});
  WriteFileAt(installation.Game("ships/hawk.shp"), "the player's own");
  expected.before["game/ships/hawk.shp"] = BytesOf("the player's own");
  ExpectSuccess("\n\nThe model hawk.shp was imported as hawk2.shp.");
  ImportAll("hawk.shp");
  hawk.file = "hawk2.shp";
  expected.Import(hawk, {red});
  Compare("the import");
}

TEST_F(Importing, AModelInTheShipsFolderItselfIsImportedWhereItLies) {
  const SmallShip hawk = Make("hawk", "hawk.shp", {red});
  std::filesystem::rename(New("hawk.shp"), installation.Game("ships/hawk.shp"));
  std::filesystem::rename(New("red.bmp"), installation.Game("ships/red.bmp"));
  expected.before["game/ships/red.bmp"] = Bitmap(4, 4, 8, red.pixels);
  ExpectSuccess();
  session->desk.OnForm([&](const std::string&) { Import(); });
  ImportFile(session->main, installation.gamePath + "ships\\hawk.shp");
  expected.Import(hawk, {red});
  Compare("the import");
}

TEST_F(Importing, ATextureThatIsThereAlreadyCountsAsInstalled) {
  const SmallShip hawk = Make("hawk", "hawk.shp", {{"hull", Pattern(16)}});
  ExpectSuccess();
  ImportAll("hawk.shp");
  expected.Import(hawk, {{"hull", Pattern(16)}});
  Compare("the import");
}

TEST_F(Importing, ATextureThatWasImportedByHandGetsItsCompanionWithTheShipThatUsesIt) {
  const SmallShip hawk = Make("hawk", "hawk.shp", {red, blue});
  ImportTexturePanel& panel = session->main.imports.texture;
  panel.txtImportTexturePath.text = NewPath("blue.bmp");
  panel.txtImportTextureName.text = "blue";
  session->desk.ExpectSuccess("Textured imported successfully!", programTitle, Icon::exclamation);
  session->Press("imports.cmdImportTexture");
  Bytes cache = ReadFileAt(installation.Game("tcachehw.dat"));
  ExpectSuccess();
  ImportAll("hawk.shp");
  cache = After(cache, {"red", 1, 4, 4, 1, red.pixels, 16});
  cache = After(cache, {"gred", 1, 4, 4, 1, Mapped(red.pixels), 16});
  cache = After(cache, {"gblue", 1, 4, 4, 1, Mapped(blue.pixels), 16});
  expected.Import(hawk, {red, blue});
  FolderImage wanted = expected.Image();
  wanted["game/tcachehw.dat"] = cache;
  EXPECT_TRUE(SameImage(wanted, ImageOf(installation.folder.native)));
  session->Enable();
  EXPECT_TRUE(SameBytes(cache, ReadFileAt(installation.Game("tcachehw.dat")))) << "the next Enable has nothing to add";
}

TEST_F(Importing, AnotherTextureOfThatNameGivesTheNameMessageAndIsTheOneThatTheShipUses) {
  const SmallShip hawk = Make("hawk", "hawk.shp", {{"hull", Pattern(16, 9)}, {"texture7", Pattern(16)}});
  // The bitmap that the cache's texture came from would make the ship fail.
  std::filesystem::remove(installation.Program("addons/textures/hull.bmp"));
  for (const char* name : {"hull", "texture7"}) {
    session->desk.ExpectBox("A texture with the name of '" + std::string(name) +
                            "' already exists.\nUnable to import.");
  }
  ExpectSuccess();
  const Bytes cache = ReadFileAt(installation.Game("tcachehw.dat"));
  ImportAll("hawk.shp");
  EXPECT_TRUE(SameBytes(cache, ReadFileAt(installation.Game("tcachehw.dat"))));
  EXPECT_EQ(session->main.installation.ships[14].Textures[1].Trimmed(), "texture7");
}

TEST_F(Importing, AModelOfMoreThan21TexturesIsRefusedBeforeAnythingIsCopied) {
  std::vector<Texture> textures;
  for (int i = 0; i < 22; ++i) textures.push_back({"skin" + std::to_string(i), Pattern(16)});
  Make("hawk", "hawk.shp", textures);
  session->desk.ExpectBox("The ship 'hawk' has 22 textures. A ship can have at most 21, so it cannot be imported.");
  ExpectErrors({"hawk"});
  ImportAll("hawk.shp");
  Compare("the refusal");
}

TEST_F(Importing, With21TexturesAModelIsImported) {
  std::vector<Texture> textures;
  for (int i = 0; i < 21; ++i) textures.push_back({"skin" + std::to_string(i), Pattern(16, static_cast<unsigned>(i))});
  const SmallShip hawk = Make("hawk", "hawk.shp", textures);
  ExpectSuccess();
  ImportAll("hawk.shp");
  expected.Import(hawk, textures);
  Compare("the import");
}

TEST_F(Importing, WarnsOnceOfAFightersDeepImagesAndNeverOfACapitalShips) {
  for (const char* name : {"hawk", "kite"}) Make(name, std::string(name) + ".shp", {{name, Pattern(16)}});
  Make("whale", "whale.shp", {{"whale", Pattern(16)}}, 5);
  for (const char* name : {"hawk", "kite", "whale"}) {
    WriteFileAt(New(std::string(name) + ".bmp"), Bitmap(4, 4, 24, Pattern(48)));
  }
  MakePack("pack\n\\whale.shp,whale,\n\\hawk.shp,hawk,\n\\kite.shp,kite,\n");
  session->desk.ExpectBox(
      "Warning - this fighter is using 24-bit images for textures which\n"
      "can cause severe performance issues. 24-bit images should only be used\n"
      "for detailing on capships. For fighters convert textures to 256 indexed color\n"
      "using the slpal.pal file in the Oravin\\3d folder(see readme).");
  ExpectSuccess();
  ImportAll("ships.pak");
}

TEST_F(Importing, ARefusedBitmapMakesTheShipFailAndTheOthersStay) {
  const SmallShip hawk = Make("hawk", "hawk.shp", {red});
  Make("kite", "kite.shp", {blue, {"bad", Pattern(16)}});
  WriteFileAt(New("bad.bmp"), Bitmap(4, 4, 8, Pattern(15)));
  const SmallShip swift = Make("swift", "swift.shp", {{"grey", Pattern(16, 7)}});
  MakePack("pack\n\\hawk.shp,hawk,\n\\kite.shp,kite,\n\\swift.shp,swift,\n");
  session->desk.ExpectBox("Operation terminated", programTitle, Icon::none);
  ExpectErrors({"kite"});
  ImportAll("ships.pak");
  expected.Import(hawk, {red});
  expected.Import(swift, {{"grey", Pattern(16, 7)}});
  Compare("the import");
}

TEST_F(Importing, AMissingModelAndOneThatIsNoneFail) {
  WriteFileAt(New("text.shp"), "this is no model at all, only a text");
  MakePack("pack\n\\none.shp,none,\n\\text.shp,text,\n");
  session->desk.ExpectBox("The model of the ship 'none' was not found:\n" + NewPath("none.shp"));
  session->desk.ExpectBox("This is not a valid SL shp file", "Oravin - TextureList()");
  ExpectErrors({"none", "text"});
  Open("ships.pak", [&] { Import(); });
  Compare("the failures");
}

TEST_F(Importing, TheResultMessageListsEverything) {
  Make("Hawk", "hawk.shp", {});
  std::string pack = "pack\n";
  std::string failed = "\n\nThese ships were not imported:";
  std::string renamed = "\n";
  for (int i = 1; i <= 22; ++i) {
    const std::string number = std::to_string(i);
    pack += "\\hawk.shp,Hawk " + number + ",\n\\none.shp,None " + number + ",\n";
    session->desk.ExpectBox("The model of the ship 'None " + number + "' was not found:\n" + NewPath("none.shp"));
    failed += "\nNone " + number;
    // The first of the 22 models keeps its name.
    if (i >= 2) renamed += "\nThe model hawk.shp was imported as hawk" + number + ".shp.";
  }
  MakePack(pack);
  session->desk.ExpectBox(withErrors + failed + renamed);
  ImportAll("ships.pak");
  EXPECT_EQ(session->main.imports.lstImported.rows.size(), 25U);
}

TEST_F(Importing, With999TexturesOneMoreFitsAndItsCompanionDoesNot) {
  const SmallShip deep = Make("deep", "deep.shp", {});
  Make("hawk", "hawk.shp", {red});
  Bytes cache = ReadFileAt(installation.Game("tcachehw.dat"));
  while (LongAt(cache, 4) < 999)
    cache = After(cache, {"x" + std::to_string(LongAt(cache, 4)), 1, 2, 2, 1, Pattern(4), 4});
  WriteFileAt(installation.Game("tcachehw.dat"), cache);
  MakePack("pack\n\\deep.shp,deep,\n\\hawk.shp,hawk,\n");
  session->desk.ExpectBox("Critical Error - TCACHE is FULL! Use Disable/Restore.", "ERROR!!!", Icon::critical);
  Open("ships.pak", [&] { EXPECT_THROW(Import(), ProgramEnd); });
  expected.Import(deep, {});
  FolderImage wanted = expected.Image();
  wanted["game/tcachehw.dat"] = cache;
  EXPECT_TRUE(SameImage(wanted, ImageOf(installation.folder.native)));
}

TEST_F(Importing, With999TexturesOneOf16BitsIsTheLastThatFits) {
  SmallShip hawk = Make("hawk", "hawk.shp", {red});
  const Bytes pixels = Pattern(32);
  WriteFileAt(New("red.bmp"), Bitmap(4, 4, 16, pixels));
  Bytes cache = ReadFileAt(installation.Game("tcachehw.dat"));
  while (LongAt(cache, 4) < 999)
    cache = After(cache, {"x" + std::to_string(LongAt(cache, 4)), 1, 2, 2, 1, Pattern(4), 4});
  WriteFileAt(installation.Game("tcachehw.dat"), cache);
  ExpectSuccess();
  ImportAll("hawk.shp");
  const Bytes full = ReadFileAt(installation.Game("tcachehw.dat"));
  EXPECT_EQ(LongAt(full, 4), 1000U);
  EXPECT_TRUE(SameBytes(Bytes(full.end() - 32, full.end()), pixels));
  const FolderImage before = ImageOf(installation.folder.native);
  // A ship whose textures are there already still can be imported; the next one that needs a slot cannot.
  session->desk.ExpectBox("Critical Error - TCACHE is FULL! Use Disable/Restore.", "ERROR!!!", Icon::critical);
  Make("kite", "kite.shp", {blue});
  Open("kite.shp", [&] { EXPECT_THROW(Import(), ProgramEnd); });
  EXPECT_TRUE(SameImage(before, ImageOf(installation.folder.native)));
}

TEST_F(Importing, AFullCacheEndsTheProgramAfterTheShipsBeforeWereImported) {
  const SmallShip hawk = Make("hawk", "hawk.shp", {red});
  Make("kite", "kite.shp", {blue});
  // 998 textures, so that the first ship's two are the last that fit.
  Bytes cache = ReadFileAt(installation.Game("tcachehw.dat"));
  while (LongAt(cache, 4) < 998)
    cache = After(cache, {"x" + std::to_string(LongAt(cache, 4)), 1, 2, 2, 1, Pattern(4), 4});
  WriteFileAt(installation.Game("tcachehw.dat"), cache);
  MakePack("pack\n\\hawk.shp,hawk,\n\\kite.shp,kite,\n");
  session->desk.ExpectBox("Critical Error - TCACHE is FULL! Use Disable/Restore.", "ERROR!!!", Icon::critical);
  Open("ships.pak", [&] { EXPECT_THROW(Import(), ProgramEnd); });
  expected.Import(hawk, {red});
  FolderImage wanted = expected.Image();
  wanted["game/tcachehw.dat"] =
      After(After(cache, {"red", 1, 4, 4, 1, red.pixels, 16}), {"gred", 1, 4, 4, 1, Mapped(red.pixels), 16});
  EXPECT_TRUE(SameImage(wanted, ImageOf(installation.folder.native)));
}

TEST_F(Importing, MakesTheSwitchesThatThePackSuggests) {
  const SmallShip hawk = Make("Hawk", "hawk.shp", {red});
  const SmallShip kite = Make("Kite", "kite.shp", {blue});
  session->Swap(bravo, manta);
  expected.Swap(bravo, manta);
  MakePack("pack\n\\hawk.shp,Hawk, alpha \n\\kite.shp,Kite,tiger\n");
  session->desk.ExpectQuestion(switchQuestion, Answer::yes);
  ExpectSuccess();
  ImportAll("ships.pak");
  expected.Import(hawk, {red});
  expected.Import(kite, {blue});
  expected.UnswapAll();
  expected.Swap(alpha, 14);
  expected.Swap(tiger, 15);
  Compare("the switches");
  EXPECT_EQ(session->main.switcher.swapOrgList.rows[0].texts[1], "--->Hawk");
  EXPECT_EQ(session->main.switcher.swapOrgList.rows[1].texts[1], "");
}

TEST_F(Importing, NoToTheSwitchesLeavesEverySwapAsItIs) {
  const SmallShip hawk = Make("Hawk", "hawk.shp", {red});
  session->Swap(bravo, manta);
  expected.Swap(bravo, manta);
  MakePack("pack\n\\hawk.shp,Hawk,Alpha\n");
  session->desk.ExpectQuestion(switchQuestion, Answer::no);
  ExpectSuccess();
  ImportAll("ships.pak");
  expected.Import(hawk, {red});
  Compare("the refusal");
}

TEST_F(Importing, AsksForNoSwitchWhenNoImportedShipNamesAStockShip) {
  Make("Hawk", "hawk.shp", {red});
  Make("Kite", "kite.shp", {blue});
  std::filesystem::remove(New("blue.bmp"));
  // One names an imported ship, one a ship that nobody knows, and the one that names a stock ship fails.
  Make("Swift", "swift.shp", {red});
  MakePack("pack\n\\hawk.shp,Hawk,Manta\n\\swift.shp,Swift,Nobody\n\\kite.shp,Kite,Alpha\n");
  session->desk.AnswerFile("");
  session->desk.ExpectBox(notFound);
  ExpectErrors({"Kite"});
  ImportAll("ships.pak");
}

TEST_F(Importing, WhileTheFeaturesAreDisabledSaysSo) {
  Make("Hawk", "hawk.shp", {red});
  session->Disable();
  expected.Disable();
  session->desk.ExpectBox("Press \"Enable\" on the Switcher tab first. Then ships can be imported.");
  ImportFile(session->main, NewPath("hawk.shp"));
  Compare("the box");
}

TEST_F(Importing, BitmapsThatTheDiskHasNoRoomForLetNothingBeImported) {
  Make("hawk", "hawk.shp", {red});
  {
    Files files;
    File file(files, outside.Windows("red.bmp"), OpenFor::changing);
    SetLength(file, std::uint64_t{1} << 40U);  // it takes no room itself
  }
  session->desk.AllowOthers([](const Message&) { return Answer::ok; });
  Open("hawk.shp", [&] { Import(); });
  EXPECT_NE(session->desk.shown.back().text.find("is too full"), std::string::npos) << session->desk.shown.back().text;
  Compare("the box");
}

TEST_F(Importing, BeingStoppedKeepsTheShipsBefore) {
  const SmallShip hawk = Make("hawk", "hawk.shp", {red});
  Make("kite", "kite.shp", {blue});
  MakePack("pack\n\\hawk.shp,hawk,\n\\kite.shp,kite,\n");
  session->desk.StopAfter(1);
  ExpectErrors({}, "\n\nThe import was stopped before its end.");
  ImportAll("ships.pak");
  expected.Import(hawk, {red});
  Compare("the stop");
}

TEST_F(Importing, AShipListThatCannotBeReadLetsNothingBeImported) {
  Make("hawk", "hawk.shp", {red});
  WriteFileAt(installation.Program("shipsData.txt"), "nonsense");
  expected.list = "nonsense";
  session->desk.AllowOthers([](const Message&) { return Answer::ok; });
  Open("hawk.shp", [&] { Import(); });
  EXPECT_EQ(session->desk.shown.back().title, "cmdImportShips_Click()");
  Compare("the box");
}

TEST_F(Importing, RenamedAndRemovedAgainEverythingIsWhereItMustBe) {
  SmallShip hawk = Make("Hawk", "hawk.shp", {red});
  ExpectSuccess();
  Open("hawk.shp", [&] {
    session->main.importForm.lstPack.edited = {0, "Hawk"};
    session->Press("Fighter_PACK.lstPack.AfterLabelEdit");
    Import();
  });
  session->main.imports.lstImported.edited = {3, "Kite"};
  session->Press("imports.lstImported.AfterLabelEdit");
  hawk.name = "Kite";
  expected.Import(hawk, {red});
  Compare("the rename");
  session->Swap(alpha, 14);
  expected.Swap(alpha, 14);
  SelectOnly(session->main.imports.lstImported, 3);
  session->desk.ExpectQuestion("Are you sure that you want to remove these ships?", Answer::yes,
                               "Oravin - Manage Switcher");
  session->desk.ExpectQuestion(
      "Do you also want to remove the associated textures for this model?\nIt may take up to ten seconds to rebuild "
      "TCACHE file.\n(Won't remove textures shared with ships not being removed)",
      Answer::yes);
  session->desk.ExpectSuccess("Removal Complete");
  session->Press("imports.cmdRemoveShips");
  expected.Unswap(alpha);
  expected.RemoveLast(true);
  Compare("the removal");
  session->Disable();
  expected.Disable();
  Compare("Disable");
}

/// Imports two ships with a fault at one operation. Returns what it was.
struct FaultyImport {
  explicit FaultyImport(Fault& fault) {
    raider = MakeShip("raider", {"red", "blue"});
    kite = MakeShip("kite", {"red"});
    WriteFileAt(outside.Native("ships.pak"), "pack\n\\raider.shp,raider,\n\\kite.shp,kite,\n");
    session = std::make_unique<Session>(installation);
    session->Enable();
    expected.StartUp();
    expected.Enable();
    session->desk.AllowOthers([](const Message& box) { return box.buttons == Buttons::ok ? Answer::ok : Answer::yes; });
    session->desk.OnForm([&](const std::string&) {
      Watch(session->main.host.files, fault);
      Stopped([&] { session->Press("Fighter_PACK.cmdImportShips"); });
    });
    ImportFile(session->main, outside.Windows("ships.pak"));
    session->main.host.files.before = nullptr;
  }
  SmallShip MakeShip(const std::string& name, const std::vector<std::string>& textures) const {
    const Bytes model = ShipModel(name, textures);
    WriteFileAt(outside.Native(name + ".shp"), model);
    for (const std::string& texture : textures) {
      WriteFileAt(outside.Native(texture + ".bmp"), Bitmap(4, 4, 8, Pattern(16, texture == "red" ? 3 : 90)));
    }
    return {3, name, name + ".shp", "", 0, 0, false, model};
  }
  SmallInstallation installation;
  TemporaryFolder outside;
  ExpectedFiles expected{installation};
  std::unique_ptr<Session> session;
  SmallShip raider, kite;
};

TEST(FailingImport, LeavesNothingOfTheShipsThatFailed) {
  const int operations = AtEachOperation(FaultKind::failure, [&](Fault& fault) {
    FaultyImport import(fault);
    const FolderImage now = ImageOf(import.installation.folder.native);
    std::vector<FolderImage> allowed;
    for (int which = 0; which < 4; ++which) {
      ExpectedFiles expected = import.expected;
      const Texture red{"red", Pattern(16, 3)};
      const Texture blue{"blue", Pattern(16, 90)};
      if ((which & 1) != 0) expected.Import(import.raider, {red, blue});
      if ((which & 2) != 0) expected.Import(import.kite, {red});
      allowed.push_back(expected.Image());
    }
    const bool clean = std::find(allowed.begin(), allowed.end(), now) != allowed.end();
    EXPECT_TRUE(clean) << "operation " << fault.at << ", " << fault.what << "\nbeside nothing:\n"
                       << Differences(allowed[0], now) << "\nbeside all:\n"
                       << Differences(allowed[3], now);
  });
  EXPECT_GT(operations, 30);
}

TEST(StoppedImport, IsUndoneByDisable) {
  const int operations = AtEachOperation(FaultKind::stop, [&](Fault& fault) {
    FaultyImport import(fault);
    import.session = nullptr;
    Session next(import.installation, false);
    next.desk.AllowOthers([](const Message& box) { return box.buttons == Buttons::ok ? Answer::ok : Answer::yes; });
    Form_Load(next.main, {import.installation.gamePath, import.installation.programPath});
    next.Press("switcher.cmdDisable");
    FolderImage before;
    for (const auto& [path, bytes] : import.expected.before) {
      if (path.starts_with("game/")) before[path.substr(5)] = bytes;
    }
    before.erase("");
    for (const auto& [path, bytes] : ImageOf(import.installation.folder.native)) {
      EXPECT_FALSE(path.ends_with(".oravin-new")) << path << ", operation " << fault.at << ", " << fault.what;
    }
    EXPECT_TRUE(SameImage(before, Without(ImageOf(import.installation.folder.native / "game"), {"shipstats.def"})))
        << "operation " << fault.at << ", " << fault.what;
  });
  EXPECT_GT(operations, 30);
}

}  // namespace
}  // namespace oravin::test
