// What the player cannot get again: odd installations, damaged files, files that cannot be written.

#include <filesystem>

#include "base/file_error.h"
#include "desk/program_end.h"
#include "session.h"

namespace oravin::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* stoppedByTheTable =
    "Enabling was stopped, because the table of resource.hog cannot be read. If you have a backup of the table, open "
    "the "
    "archive on the Hog Editor tab and press \"Restore FAT\".";

struct NeverLose : testing::Test {
  void Start() {
    session = nullptr;
    session = std::make_unique<Session>(installation);
  }
  [[nodiscard]] FolderImage All() const { return ImageOf(installation.folder.native); }
  [[nodiscard]] FolderImage GameFolder() const {
    return Without(ImageOf(installation.folder.Native("game")), {"shipstats.def"});
  }
  void AskEnable() {
    session->desk.ExpectQuestion(enableQuestion, Answer::yes);
    session->Press("switcher.cmdEnable");
  }
  [[nodiscard]] Bytes Archive() const { return ReadFileAt(installation.Game("resource.hog")); }
  void LoseCatalogue() {
    session = nullptr;
    fs::remove(installation.Program("ships.dat"));
    Start();
  }

  SmallInstallation installation;
  std::unique_ptr<Session> session;
};

TEST_F(NeverLose, EnableWithoutTheShipListChangesNothing) {
  Start();
  fs::remove(installation.Program("shipsData.txt"));
  const FolderImage before = All();
  session->desk.ExpectQuestion(enableQuestion, Answer::yes);
  session->desk.ExpectBox("shipsData.txt not found", programTitle, Icon::critical);
  session->Press("switcher.cmdEnable");
  EXPECT_TRUE(SameImage(before, All()));
}

TEST_F(NeverLose, EnableWithoutTheShipListKeepsAnEnabledInstallation) {
  Start();
  session->Enable();
  session->Swap(alpha, manta);
  fs::remove(installation.Program("shipsData.txt"));
  const FolderImage before = All();
  session->desk.ExpectQuestion(enableQuestion, Answer::yes);
  session->desk.ExpectBox("shipsData.txt not found", programTitle, Icon::critical);
  session->Press("switcher.cmdEnable");
  EXPECT_TRUE(SameImage(before, All()));
}

TEST_F(NeverLose, AShipCountThatIsNotPositiveEndsTheProgramBeforeAnyChange) {
  Start();
  WriteFileAt(installation.Program("shipsData.txt"), "0\r\n");
  const FolderImage before = All();
  session->desk.ExpectQuestion(enableQuestion, Answer::yes);
  session->desk.ExpectBox("Error in shipsData.txt file", programTitle, Icon::critical);
  EXPECT_THROW(session->Press("switcher.cmdEnable"), ProgramEnd);
  EXPECT_TRUE(SameImage(before, All()));
}

TEST_F(NeverLose, ATableThatCannotBeReadWholeStopsEnable) {
  Start();
  Bytes archive = Archive();
  archive.resize(100);
  WriteFileAt(installation.Game("resource.hog"), archive);
  const FolderImage before = All();
  session->desk.ExpectQuestion(enableQuestion, Answer::yes);
  session->desk.ExpectBox("Error - could not read " + installation.gamePath +
                              "resource.hog: it says that it holds 24 files, more than it has room for",
                          "GetHogData");
  session->desk.ExpectBox(stoppedByTheTable);
  session->Press("switcher.cmdEnable");
  EXPECT_TRUE(SameImage(before, All()));
}

TEST_F(NeverLose, ACountOfZeroInAnArchiveTooSmallForTheRepairedOneStopsEnable) {
  Start();
  Bytes archive = Archive();
  archive.resize(8000);
  PutBigEndian32(&archive[8], 0);
  WriteFileAt(installation.Game("resource.hog"), archive);
  FolderImage expected = All();
  session->desk.ExpectQuestion(enableQuestion, Answer::yes);
  session->desk.ExpectBox("Error in resource.hog - Hog says number of items = 0 - attempting to correct");
  session->desk.ExpectBox("Error - could not read " + installation.gamePath +
                              "resource.hog: it says that it holds 967 files, more than it has room for",
                          "GetHogData");
  session->desk.ExpectBox(stoppedByTheTable);
  session->Press("switcher.cmdEnable");
  expected["game/resource.hog"][8] = 0xC7;
  expected["game/resource.hog"][9] = 0x03;
  EXPECT_TRUE(SameImage(expected, All()));
}

TEST_F(NeverLose, AfterARepairedCountTheBackupCarriesTheEntriesReadAndTheNextEnableStops) {
  Start();
  PatchFileAt(installation.Game("resource.hog"), 8, {0, 0, 0, 0});
  session->desk.ExpectQuestion(enableQuestion, Answer::yes);
  session->desk.ExpectBox("Error in resource.hog - Hog says number of items = 0 - attempting to correct");
  session->desk.ExpectSuccess(enabledText, programTitle, Icon::none);
  session->Press("switcher.cmdEnable");
  const Bytes backup = ReadFileAt(installation.Program("backup/resource.fat"));
  EXPECT_EQ(BigEndian32(&backup.at(8)), 967U);
  EXPECT_EQ(LittleEndian32(&Archive().at(8)), 967U);

  const FolderImage enabled = All();
  session->desk.ExpectQuestion(enableQuestion, Answer::yes);
  session->desk.ExpectBox("Error - could not read " + installation.gamePath +
                              "resource.hog: it says that it holds 3,338,862,592 files, more than it has room for",
                          "GetHogData");
  session->desk.ExpectBox(stoppedByTheTable);
  session->Press("switcher.cmdEnable");
  EXPECT_TRUE(SameImage(enabled, All()));

  session->Disable();
  EXPECT_EQ(TableIn(backup)[1].name, "alpha.shp");
  PatchFileAt(installation.Game("resource.hog"), 8, {0, 0, 0, 24});
  EXPECT_EQ(EntryNamed(Archive(), "alpha.shp").name, "alpha.shp");
}

TEST_F(NeverLose, AMissingArchiveStopsEnable) {
  Start();
  fs::remove(installation.Game("resource.hog"));
  const FolderImage before = All();
  session->desk.ExpectQuestion(enableQuestion, Answer::yes);
  session->desk.ExpectBox("Error - hog not found", "GetHogData");
  session->desk.ExpectBox("Error - could not open " + installation.gamePath + "resource.hog: it does not exist",
                          "GetHogData");
  session->desk.ExpectBox(stoppedByTheTable);
  session->Press("switcher.cmdEnable");
  EXPECT_TRUE(SameImage(before, All()));
}

TEST_F(NeverLose, AShipWhoseModelIsNowhereIsNamedAndHasNoPlace) {
  installation.ships.push_back({1, "Ghost", "ghost.shp", "", 11, 0, false, {}});
  installation.WriteShipList();
  const FolderImage before = GameFolder();
  Start();
  session->desk.ExpectQuestion(enableQuestion, Answer::yes);
  session->desk.ExpectBox(
      "The models of these ships were found neither in resource.hog nor among the add-ons:\nghost.shp");
  session->desk.ExpectBox("Error - file not found", "IsCapitalShip");  // the list asks for every ship's model
  session->desk.ExpectSuccess(enabledText, programTitle, Icon::none);
  session->Press("switcher.cmdEnable");
  const ShipRecord& ghost = session->main.installation.ships[14];
  EXPECT_EQ(Unsigned32(ghost.HogOffset) + Unsigned32(ghost.HogSize) + Unsigned32(ghost.HogFatPos), 0U);
  session->Disable();  // passes it over without a word
  EXPECT_TRUE(SameImage(before, GameFolder()));
}

TEST_F(NeverLose, ThePlayersOwnModelsComeBackAfterDisable) {
  WriteFileAt(installation.Game("ships/ALPHA.SHP"), "the player's alpha");
  WriteFileAt(installation.Game("ships/manta.shp"), "the player's manta");
  WriteFileAt(installation.Game("ships/wraith.shp"), installation.ships[wraith].model);
  const FolderImage before = GameFolder();
  Start();
  session->Enable();
  session->Swap(alpha, manta);
  session->Enable();
  session->Disable();
  EXPECT_TRUE(SameImage(before, GameFolder()));
  EXPECT_TRUE(ImageOf(installation.Program("backup/ships")).empty());
}

TEST_F(NeverLose, AnEqualKeptModelServesAndADifferentOneGetsTheNextNumber) {
  WriteFileAt(installation.Game("ships/alpha.shp"), "latest");
  WriteFileAt(installation.Game("ships/bravo.shp"), "same");
  WriteFileAt(installation.Program("backup/ships/alpha.shp"), "older");
  WriteFileAt(installation.Program("backup/ships/alpha.shp.2"), "old");
  WriteFileAt(installation.Program("backup/ships/bravo.shp"), "same");
  Start();
  session->Enable();
  EXPECT_EQ(ImageOf(installation.Program("backup/ships")), (FolderImage{{"alpha.shp", BytesOf("older")},
                                                                        {"alpha.shp.2", BytesOf("old")},
                                                                        {"alpha.shp.3", BytesOf("latest")},
                                                                        {"bravo.shp", BytesOf("same")}}));
  session->Disable();
  EXPECT_EQ(ReadTextAt(installation.Game("ships/alpha.shp")), "latest");
  EXPECT_EQ(ReadTextAt(installation.Game("ships/bravo.shp")), "same");
}

TEST_F(NeverLose, ASecondEnableKeepsNoModelsOfItsOwn) {
  Start();
  session->Enable();
  session->Enable();
  EXPECT_TRUE(ImageOf(installation.Program("backup/ships")).empty());
}

TEST_F(NeverLose, TexturesOfThePlayersOwnAreCopiedBeforeDisableCutsThemOff) {
  Bytes cache = ReadFileAt(installation.Game("tcachehw.dat"));
  const Bytes factory = cache;
  PutLittleEndian32(&cache[4], 427);
  PutLittleEndian32(&cache[8], static_cast<std::uint32_t>(cache.size() + 4));
  for (std::size_t i = 0; i < 240; ++i) cache[102252 + i] = cache[102012 + i];
  cache.insert(cache.end(), 4, 0x77);
  WriteFileAt(installation.Game("tcachehw.dat"), cache);
  Start();
  session->Enable();
  EXPECT_TRUE(SameBytes(cache, ReadFileAt(installation.Program("backup/tcachehw.dat"))));
  session->Disable();
  EXPECT_TRUE(SameBytes(factory, ReadFileAt(installation.Game("tcachehw.dat"))));
  EXPECT_TRUE(SameBytes(cache, ReadFileAt(installation.Program("backup/tcachehw.dat"))));
}

TEST_F(NeverLose, AFactoryCacheIsNotCopied) {
  Start();
  session->Enable();
  EXPECT_FALSE(fs::exists(installation.Program("backup/tcachehw.dat")));
}

TEST_F(NeverLose, DisableWithoutACatalogueRestoresByTheBackupOfTheTable) {
  WriteFileAt(installation.Game("ships/alpha.shp"), "the player's own");
  Start();
  const FolderImage before = GameFolder();
  session->Enable();
  session->Swap(bravo, tiger);
  LoseCatalogue();
  session->Disable();
  FolderImage after = GameFolder();
  // Nothing tells any more which of the loose models came from the add-ons.
  for (const char* addOn : {"ships/manta.shp", "ships/wraith.shp", "ships/colossus.shp"}) after.erase(addOn);
  EXPECT_TRUE(SameImage(before, after));
  EXPECT_FALSE(fs::exists(installation.Game("shipstats.def")));
}

TEST_F(NeverLose, DisableWithADamagedCatalogueRestoresAllTheSame) {
  Start();
  const FolderImage before = GameFolder();
  session->Enable();
  PatchFileAt(installation.Program("ships.dat"), 60, {0x99, 0x99});
  session = nullptr;
  session = std::make_unique<Session>(installation, false);
  session->desk.ExpectBox("Error - could not read " + installation.programPath + "ships.dat: record 1 is damaged",
                          "LoadCatalogue");
  Form_Load(session->main, {installation.gamePath, installation.programPath});
  session->Disable();
  FolderImage after = GameFolder();
  for (const char* addOn : {"ships/manta.shp", "ships/wraith.shp", "ships/colossus.shp"}) after.erase(addOn);
  EXPECT_TRUE(SameImage(before, after));
  EXPECT_FALSE(fs::exists(installation.Program("ships.dat")));
}

TEST_F(NeverLose, EnableAfterALostCatalogueAndDisableLeaveTheGameFolderAsItWas) {
  WriteFileAt(installation.Game("ships/alpha.shp"), "the player's own");
  WriteFileAt(installation.Game("ships/Manta.shp"), "the player's own manta");
  Start();
  const FolderImage before = GameFolder();
  session->Enable();
  session->Swap(bravo, tiger);
  session->Swap(tiger, manta);
  LoseCatalogue();
  session->Enable();
  session->Disable();
  EXPECT_TRUE(SameImage(before, GameFolder()));
}

TEST_F(NeverLose, TheBackupOfTheTableIsRenewedWhenTheGameWasInstalledAgain) {
  Start();
  session->Enable();
  session->Disable();
  const Bytes old = ReadFileAt(installation.Program("backup/resource.fat"));
  Bytes& model = installation.ships[0].model;
  for (int i = 0; i < 100; ++i) model.push_back(static_cast<std::uint8_t>(i * 37));  // too wild to be packed away
  installation.WriteArchive();
  session->Enable();
  EXPECT_TRUE(SameBytes(old, ReadFileAt(installation.Program("backup/resource.old"))));
  EXPECT_EQ(TableIn(ReadFileAt(installation.Program("backup/resource.fat"))).size(), 24U);
  EXPECT_FALSE(SameBytes(old, ReadFileAt(installation.Program("backup/resource.fat"))));
}

TEST_F(NeverLose, NamesThatLeftTheShipListArePutBackToo) {
  Start();
  const FolderImage before = GameFolder();
  session->Enable();
  installation.ships.erase(installation.ships.begin());
  installation.WriteShipList();
  session->Enable();
  session->Disable();
  EXPECT_TRUE(SameImage(before, GameFolder()));
}

TEST_F(NeverLose, ThePatchedArchiveOfAnEnabledInstallationIsNotDamaged) {
  Start();
  session->Enable();
  const Bytes fresh = [&] {
    installation.ships[4].model.push_back(7);
    installation.WriteArchive();  // another archive, all names plain and at other places
    return Archive();
  }();
  session->desk.AllowOthers(
      [](const Message& box) { return box.buttons == Buttons::yesNo ? Answer::yes : Answer::ok; });
  session->Press("switcher.cmdDisable");
  EXPECT_TRUE(SameBytes(fresh, Archive()));
}

TEST_F(NeverLose, AReadOnlyArchiveStopsEnableBeforeAnyChange) {
  Start();
  fs::permissions(installation.Game("resource.hog"), fs::perms::owner_read);
  const FolderImage before = All();
  session->desk.ExpectQuestion(enableQuestion, Answer::yes);
  session->desk.ExpectBox(
      installation.gamePath +
      "resource.hog cannot be written: it is read-only.\nTake the read-only mark away and try again. "
      "Nothing has been changed.");
  session->Press("switcher.cmdEnable");
  EXPECT_TRUE(SameImage(before, All()));
}

TEST_F(NeverLose, AReadOnlyModelStopsDisableBeforeAnyChange) {
  Start();
  session->Enable();
  fs::permissions(installation.Game("ships/bravo.shp"), fs::perms::owner_read);
  const FolderImage before = All();
  session->desk.ExpectQuestion(disableQuestion, Answer::yes);
  session->desk.ExpectBox(installation.gamePath +
                          "ships\\bravo.shp cannot be written: it is read-only.\nTake the read-only mark away and try "
                          "again. Nothing has been changed.");
  session->Press("switcher.cmdDisable");
  EXPECT_TRUE(SameImage(before, All()));
}

TEST_F(NeverLose, AFailedDisableKeepsTheCatalogueAndTheNextOneFinishes) {
  Start();
  const FolderImage before = GameFolder();
  session->Enable();
  int erased = 0;
  session->main.host.files.before = [&](const FileOperation& operation) {
    if (operation.kind == FileOperation::Kind::erase && ++erased == 2) {
      throw FileError("could not delete", operation.path, "another program has it open");
    }
  };
  session->desk.ExpectQuestion(disableQuestion, Answer::yes);
  session->desk.ExpectBox(
      "Error - could not delete " + installation.gamePath + "ships\\bravo.shp: another program has it open",
      "RestoreHog");
  session->desk.ExpectBox(
      "Not everything could be restored, as the messages before this one say. Put that right and use \"Disable / "
      "Restore\" again: the ship catalogue has been kept for it.");
  session->Press("switcher.cmdDisable");
  session->main.host.files.before = nullptr;
  session->Disable();
  EXPECT_TRUE(SameImage(before, GameFolder()));
}

TEST_F(NeverLose, DeletedAddOnsAskOnceAndGoWhateverTheAnswerIs) {
  Start();
  const FolderImage before = GameFolder();
  session->Enable();
  fs::remove(installation.Program("addons/ships/manta.shp"));
  fs::remove(installation.Program("addons/ships/wraith.shp"));
  WriteFileAt(installation.Game("ships/manta.bak"), "a backup");
  session->desk.ExpectQuestion(disableQuestion, Answer::yes);
  session->desk.ExpectQuestion("Do you wish to delete the imported ship(s) in SL\\ships\\ ?", Answer::no);
  session->desk.ExpectSuccess("Restoration complete");
  session->Press("switcher.cmdDisable");
  EXPECT_TRUE(SameImage(before, GameFolder()));
}

TEST_F(NeverLose, TheWeaponsCaptionIsResetByDisable) {
  Start();
  session->Enable();
  session->main.stats.lblWeapons.caption = "Weapons: Alpha";
  session->Disable();
  EXPECT_EQ(session->main.stats.lblWeapons.caption, "Weapons:");
}

}  // namespace
}  // namespace oravin::test
