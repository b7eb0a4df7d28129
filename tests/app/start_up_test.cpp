// Start-up: where the two folders are found, what is asked, what is stored back and what is loaded.

#include <filesystem>

#include "desk/program_end.h"
#include "platform/current_folder.h"
#include "platform/native_path.h"
#include "platform/registry.h"
#include "session.h"
#include "support/own_machine.h"

namespace oravin::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* appPaths = "Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\Oravin.exe\\";
constexpr const char* gameKey = "Software\\Microsoft\\Microsoft Games\\StarLancer\\1.0\\";
constexpr const char* directPlay = "Software\\Microsoft\\DirectPlay\\Applications\\StarLancer\\";
constexpr const char* notFound = "Registy entries for StarLancer not found!";
constexpr const char* noProgramFolder = "Can't find Oravin local path in registry";

/// A machine of its own for each test: an empty registry, a Wine prefix with a drive C:, and an installation.
struct StartUp : testing::Test {
  StartUp() { fs::current_path(machine.native); }
  ~StartUp() override { fs::current_path("/"); }

  static void Register(const char* key, const char* name, const std::string& text) {
    ASSERT_TRUE(platform::RegWriteString(platform::localMachine, key, name, text));
  }
  void RegisterProgram() const { Register(appPaths, "", installation.programPath + "Oravin.exe"); }
  static std::optional<std::string> Chosen() {
    return platform::RegReadString(platform::localMachine, appPaths, "StarLancerPath");
  }

  void Load(const GivenFolders& given = {}) { Form_Load(session->main, given); }
  [[nodiscard]] const Installation& Found() const { return session->main.installation; }
  void ExpectBothFolders() const {
    EXPECT_EQ(Found().GamePath, installation.gamePath);
    EXPECT_EQ(Found().ProgramPath, installation.programPath);
  }

  TemporaryFolder machine;
  OwnMachine own{machine};
  SmallInstallation installation;
  std::unique_ptr<Session> session = std::make_unique<Session>(installation, false);
};

std::string WithoutBackslash(const std::string& path) { return path.substr(0, path.size() - 1); }

TEST_F(StartUp, TakesTheExePath) {
  RegisterProgram();
  Register(gameKey, "EXE Path", installation.gamePath);
  Load();
  ExpectBothFolders();
}

TEST_F(StartUp, TakesTheInstallationDirectoryNext) {
  RegisterProgram();
  Register(gameKey, "InstallationDirectory", installation.gamePath);
  Load();
  ExpectBothFolders();
}

TEST_F(StartUp, TakesTheDirectPlayPathNext) {
  RegisterProgram();
  Register(directPlay, "Path", installation.gamePath);
  Load();
  ExpectBothFolders();
}

TEST_F(StartUp, TakesTheFolderChosenEarlierLast) {
  RegisterProgram();
  Register(appPaths, "StarLancerPath", installation.gamePath);
  Load();
  ExpectBothFolders();
}

TEST_F(StartUp, PassesOverACandidateWithoutTheArchiveAndGoesToTheProgramFolder) {
  RegisterProgram();
  Register(gameKey, "EXE Path", machine.windows);
  Register(gameKey, "InstallationDirectory", installation.gamePath);
  Load();
  ExpectBothFolders();
  EXPECT_EQ(platform::CurrentFolder(), installation.programPath);
}

TEST_F(StartUp, StaysWhereItIsWhenTheFirstCandidateIsGood) {
  RegisterProgram();
  Register(gameKey, "EXE Path", installation.gamePath);
  Load();
  EXPECT_EQ(platform::CurrentFolder(), machine.windows);
}

TEST_F(StartUp, AFolderWithoutABackslashIsAsGoodAsOneWithIt) {
  RegisterProgram();
  Register(gameKey, "EXE Path", WithoutBackslash(installation.gamePath));
  Load();
  ExpectBothFolders();
}

TEST_F(StartUp, GoesToAProgramFolderThatHoldsTheArchive) {
  RegisterProgram();
  Register(gameKey, "EXE Path", installation.gamePath);
  WriteFileAt(installation.Program("resource.hog"), "an archive");
  Load();
  EXPECT_EQ(platform::CurrentFolder(), installation.programPath);
}

TEST_F(StartUp, TakesTheUsualProgramFolderWhenTheRegistryNamesNone) {
  fs::create_directories(own.DriveC("Program Files/Oravin"));
  Register(gameKey, "EXE Path", installation.gamePath);
  Load();
  EXPECT_EQ(Found().ProgramPath, "C:\\Program Files\\Oravin\\");
  EXPECT_EQ(fs::current_path(), fs::canonical(own.DriveC("Program Files/Oravin")));
}

TEST_F(StartUp, TakesTheGameFolderFromTheIniFile) {
  RegisterProgram();
  WriteFileAt(installation.Program("oravin.ini"), "\"" + installation.gamePath + "\"\r\n\"Z:\\elsewhere\\\"\r\n");
  Load();
  ExpectBothFolders();  // the second line is not read: the program folder is a right one
}

TEST_F(StartUp, TakesTheProgramFolderFromTheIniFileOfAWrongOne) {
  WriteFileAt(machine.Native("empty/oravin.ini"),
              "\"" + installation.gamePath + "\"\r\n\"" + installation.programPath + "\"\r\n");
  Register(appPaths, "", machine.Windows("empty\\Oravin.exe"));
  Load();
  ExpectBothFolders();
}

TEST_F(StartUp, AsksWhenTheIniFilesProgramFolderLacksTheShipList) {
  WriteFileAt(machine.Native("empty/oravin.ini"),
              "\"" + installation.gamePath + "\"\r\n\"" + machine.windows + "\"\r\n");
  Register(appPaths, "", machine.Windows("empty\\Oravin.exe"));
  session->desk.ExpectBox(notFound);
  session->desk.AnswerFolder(installation.gamePath);
  session->desk.ExpectBox(noProgramFolder);
  session->desk.AnswerFolder(installation.programPath);
  Load();
  ExpectBothFolders();
}

TEST_F(StartUp, AnEmptyIniFileCountsAsNone) {
  RegisterProgram();
  WriteFileAt(installation.Program("oravin.ini"), "");
  session->desk.ExpectBox(notFound);
  session->desk.AnswerFolder("");
  EXPECT_THROW(Load(), ProgramEnd);
}

TEST_F(StartUp, ADamagedIniFileIsToldOfAndThePersonAsked) {
  RegisterProgram();
  WriteFileAt(installation.Program("oravin.ini"), "\"" + installation.gamePath);
  session->desk.ExpectBox(
      "Error - could not read " + installation.programPath + "oravin.ini: a quote is not closed (line 1)", "Form_Load");
  session->desk.ExpectBox(notFound);
  session->desk.AnswerFolder("");
  EXPECT_THROW(Load(), ProgramEnd);
}

TEST_F(StartUp, AsksUntilTheFolderHoldsTheArchiveAndStoresItBack) {
  RegisterProgram();
  session->desk.ExpectBox(notFound);
  session->desk.AnswerFolder(WithoutBackslash(machine.windows));
  session->desk.ExpectBox("This is not a StarLancer game directory");
  session->desk.AnswerFolder(WithoutBackslash(installation.gamePath));
  Load();
  ExpectBothFolders();
  EXPECT_EQ(session->desk.prompts, (std::vector<std::string>{"Select your StarLancer Game Directory",
                                                             "Select your StarLancer Game Directory"}));
  EXPECT_EQ(Chosen(), installation.gamePath);
  EXPECT_EQ(ReadTextAt(installation.Program("oravin.ini")),
            "\"" + installation.gamePath + "\"\r\n\"" + installation.programPath + "\"\r\n");
}

TEST_F(StartUp, CancellingTheGameFolderEndsTheProgramAndWritesNothing) {
  RegisterProgram();
  session->desk.ExpectBox(notFound);
  session->desk.AnswerFolder("");
  EXPECT_THROW(Load(), ProgramEnd);
  EXPECT_FALSE(Chosen().has_value());
  EXPECT_FALSE(fs::exists(installation.Program("oravin.ini")));
}

TEST_F(StartUp, AsksForTheProgramFolderToo) {
  session->desk.ExpectBox(notFound);
  session->desk.AnswerFolder(installation.gamePath);
  session->desk.ExpectBox(noProgramFolder);
  session->desk.AnswerFolder(machine.windows);
  session->desk.ExpectBox("This is not an Oravin directory");
  session->desk.AnswerFolder(WithoutBackslash(installation.programPath));
  Load();
  ExpectBothFolders();
  EXPECT_EQ(session->desk.prompts.back(), "Select your Oravin directory (i.e. C:\\Program Files\\Oravin\\)");
}

TEST_F(StartUp, CancellingTheProgramFolderEndsTheProgramWithoutAnIniFile) {
  session->desk.ExpectBox(notFound);
  session->desk.AnswerFolder(installation.gamePath);
  session->desk.ExpectBox(noProgramFolder);
  session->desk.AnswerFolder("");
  EXPECT_THROW(Load(), ProgramEnd);
  EXPECT_FALSE(fs::exists(installation.Program("oravin.ini")));
}

TEST_F(StartUp, TakesTheUsualProgramFolderAfterAsking) {
  WriteFileAt(own.DriveC("Program Files/Oravin/shipsData.txt"), "1\r\n");
  session->desk.ExpectBox(notFound);
  session->desk.AnswerFolder(installation.gamePath);
  Load();
  EXPECT_EQ(Found().ProgramPath, "C:\\Program Files\\Oravin\\");
  EXPECT_TRUE(fs::exists(own.DriveC("Program Files/Oravin/oravin.ini")));
}

TEST_F(StartUp, AFailingRegistryWriteIsToldOfAndStartUpGoesOn) {
  own.RefuseRegistry();
  fs::create_directories(own.DriveC("Program Files/Oravin"));
  fs::copy_file(installation.Program("shipsData.txt"), own.DriveC("Program Files/Oravin/shipsData.txt"));
  session->desk.ExpectBox(notFound);
  session->desk.AnswerFolder(installation.gamePath);
  session->desk.ExpectBox("Can't Create Registry entry", programTitle, Icon::none);
  Load();
  EXPECT_EQ(Found().GamePath, installation.gamePath);
}

TEST_F(StartUp, FillsTheTextsOfTheTabs) {
  RegisterProgram();
  Register(gameKey, "EXE Path", installation.gamePath);
  Load();
  const Main& main = session->main;
  EXPECT_EQ(main.about.txtSLPath.text, installation.gamePath);
  EXPECT_EQ(main.hog.txtHogPath.text, installation.gamePath + "Resource.hog");
  EXPECT_EQ(main.tcache.txtTcacheSource.text, installation.gamePath + "tcachehw.dat");
  EXPECT_TRUE(main.about.lblVersion.caption.starts_with("Version "));
  EXPECT_EQ(VersionText(2, 1, 3), "Version 2.13");
}

TEST_F(StartUp, TheSixTabsStandInTheirOrder) {
  EXPECT_EQ(session->main.tabStrip.captions, (std::vector<std::string>{"Switcher", "Ship Stats / Guns", "Import Ships",
                                                                       "Hog Editor", "Tcache Editor", "About"}));
}

TEST_F(StartUp, TheFirstRunCopiesTheStatisticsAndLaterRunsLeaveTheCopyAlone) {
  Load({installation.gamePath, installation.programPath});
  EXPECT_EQ(ReadFileAt(installation.Game("shipstats.def")), ReadFileAt(installation.Game("shipstats.bin")));
  WriteFileAt(installation.Game("shipstats.def"), "the copy of an earlier run");
  session = nullptr;
  session = std::make_unique<Session>(installation);
  EXPECT_EQ(ReadTextAt(installation.Game("shipstats.def")), "the copy of an earlier run");
}

TEST_F(StartUp, MissingStatisticsAreToldOf) {
  fs::remove(installation.Game("shipstats.bin"));
  session->desk.ExpectBox("Can't find shipstats.bin");
  Load({installation.gamePath, installation.programPath});
}

TEST_F(StartUp, AMissingOrEmptyCatalogueLeavesTheListsEmpty) {
  WriteFileAt(installation.Program("ships.dat"), "");
  Load({installation.gamePath, installation.programPath});
  EXPECT_TRUE(session->main.installation.ships.empty());
  EXPECT_TRUE(session->main.switcher.swapOrgList.rows.empty());
}

TEST_F(StartUp, ACatalogueFillsTheSwitcherAndTheStatsTab) {
  Load({installation.gamePath, installation.programPath});
  session->Enable();
  session = nullptr;
  session = std::make_unique<Session>(installation);
  EXPECT_EQ(session->main.switcher.swapOrgList.rows.size(), 6U);
  EXPECT_EQ(session->main.switcher.swapToList.rows.size(), 8U);
  EXPECT_EQ(session->main.stats.shipEditingList.rows.size(), 12U);
}

TEST_F(StartUp, GivenFoldersAreTakenAsTheyAreAndStoredNowhere) {
  Load({WithoutBackslash(installation.gamePath), installation.folder.Native("program").string()});
  ExpectBothFolders();
  EXPECT_FALSE(Chosen().has_value());
  EXPECT_FALSE(fs::exists(installation.Program("oravin.ini")));
}

TEST_F(StartUp, AGivenFolderThatIsNoGameFolderEndsTheProgram) {
  session->desk.ExpectBox(machine.windows + "\nThis is not a StarLancer game directory");
  EXPECT_THROW(Load({machine.windows, installation.programPath}), ProgramEnd);
}

TEST_F(StartUp, AGivenFolderWithLettersBeyondPlainEnglishIsRefusedWithTheReason) {
  const std::string folder = machine.Windows("caf\xC3\xA9\\");
  WriteFileAt(machine.Native("caf\xC3\xA9/resource.hog"), "an archive");
  session->desk.ExpectBox(
      platform::ToWindowsPath(folder) +
      "\nThis is not a StarLancer game directory\nIts path holds letters beyond plain English ones; "
      "Oravin cannot work in such a folder.");
  EXPECT_THROW(Load({folder, installation.programPath}), ProgramEnd);
}

TEST_F(StartUp, AGivenFolderThatIsNoProgramFolderEndsTheProgram) {
  session->desk.ExpectBox(machine.windows + "\nThis is not an Oravin directory");
  EXPECT_THROW(Load({installation.gamePath, machine.windows}), ProgramEnd);
}

TEST_F(StartUp, AGivenProgramFolderWhoseListIsLostWhileEnabledIsTakenAndCanBeDisabled) {
  for (const bool offer : {false, true}) {
    const Bytes list = ReadFileAt(installation.Program("shipsData.txt"));
    const FolderImage before = ImageOf(installation.folder.Native("game"));
    session = std::make_unique<Session>(installation);
    session->Enable();
    fs::remove(installation.Program("shipsData.txt"));
    session = nullptr;
    session = std::make_unique<Session>(installation, false);
    Load({installation.gamePath, installation.programPath, offer});
    ExpectBothFolders();
    EXPECT_FALSE(Found().ships.empty());
    session->Disable();
    EXPECT_TRUE(SameImage(before, ImageOf(installation.folder.Native("game"))));
    session = nullptr;
    WriteFileAt(installation.Program("shipsData.txt"), list);
  }
}

/// Enables, loses the list, and starts anew with nothing but the program folder given.
struct LostList : StartUp {
  LostList() {
    Form_Load(session->main, {installation.gamePath, installation.programPath});
    session->Enable();
    session = nullptr;
    fs::remove(installation.Program("shipsData.txt"));
    session = std::make_unique<Session>(installation, false);
  }
};

TEST_F(LostList, TheGivenProgramFolderIsTakenWithTheGameOfTheRegistry) {
  Register(gameKey, "EXE Path", installation.gamePath);
  Load({"", installation.programPath});
  ExpectBothFolders();
  EXPECT_FALSE(Found().ships.empty());
}

TEST_F(LostList, TheGivenProgramFolderIsTakenWithTheGameOfItsIniFile) {
  WriteFileAt(installation.Program("oravin.ini"), "\"" + installation.gamePath + "\"\r\n\"C:\\elsewhere\\\"\r\n");
  Load({"", installation.programPath});
  ExpectBothFolders();
  EXPECT_FALSE(Found().ships.empty());
}

TEST_F(LostList, TheGivenProgramFolderIsTakenWithAGameThatIsChosenAndNoOtherFolderIsAskedFor) {
  session->desk.ExpectBox(notFound);
  session->desk.AnswerFolder(installation.gamePath);
  Load({"", installation.programPath});
  ExpectBothFolders();
  EXPECT_EQ(ReadTextAt(installation.Program("oravin.ini")),
            "\"" + installation.gamePath + "\"\r\n\"" + installation.programPath + "\"\r\n");
}

TEST_F(LostList, AnEmptyCatalogueDoesNotStandInForTheList) {
  WriteFileAt(installation.Program("ships.dat"), "");
  session->desk.ExpectBox(installation.programPath + "\nThis is not an Oravin directory");
  EXPECT_THROW(Load({installation.gamePath, installation.programPath}), ProgramEnd);
}

TEST_F(StartUp, AChosenGameIsNotedInTheGivenProgramFolderThoughTheUsualOneIsThere) {
  WriteFileAt(own.DriveC("Program Files/Oravin/shipsData.txt"), "1\r\n");
  session->desk.ExpectBox(notFound);
  session->desk.AnswerFolder(installation.gamePath);
  Load({"", installation.programPath});
  ExpectBothFolders();
  EXPECT_FALSE(fs::exists(own.DriveC("Program Files/Oravin/oravin.ini")));
  EXPECT_EQ(ReadTextAt(installation.Program("oravin.ini")),
            "\"" + installation.gamePath + "\"\r\n\"" + installation.programPath + "\"\r\n");
}

TEST_F(StartUp, ASecondCopyOnlyLooks) {
  Load({installation.gamePath, installation.programPath});
  session->Enable();
  const FolderImage before = ImageOf(installation.folder.native);
  {
    Session second(installation, false);
    second.desk.ExpectBox(
        "Another copy of Oravin is working on this installation. This copy only looks: close the other one and start "
        "Oravin again to change anything.",
        programTitle, Icon::information);
    Form_Load(second.main, {installation.gamePath, installation.programPath});
    EXPECT_FALSE(second.main.switcher.swapOrgList.rows.empty());
    for (const Handler& handler : Handlers()) {
      if (!handler.changesFiles) continue;
      second.desk.ExpectBox("Another copy of Oravin works on this installation, so nothing can be changed here now.");
      second.Press(handler.name);
    }
  }
  EXPECT_TRUE(SameImage(before, ImageOf(installation.folder.native)));
  session = nullptr;
  session = std::make_unique<Session>(installation);
  EXPECT_FALSE(session->main.readOnly);
}

TEST_F(StartUp, OneFolderForGameAndProgramIsNoSecondCopy) {
  fs::copy_file(installation.Program("shipsData.txt"), installation.Game("shipsData.txt"));
  Load({installation.gamePath, WithoutBackslash(installation.gamePath)});
  EXPECT_EQ(Found().ProgramPath, installation.gamePath);
  EXPECT_FALSE(session->main.readOnly);
}

TEST_F(StartUp, ACopyAtWorkInTheProgramFolderAloneIsNoticed) {
  platform::FolderLock other;
  ASSERT_TRUE(platform::LockFolder(installation.programPath, other));
  session->desk.AllowOthers([](const Message&) { return Answer::ok; });
  Load({installation.gamePath, installation.programPath});
  EXPECT_TRUE(session->main.readOnly);
  platform::UnlockFolder(other);
}

TEST_F(StartUp, ASecondCopyThatLooksMakesNoCopyOfTheStatistics) {
  Load({installation.gamePath, installation.programPath});
  fs::remove(installation.Game("shipstats.def"));
  Session second(installation, false);
  second.desk.AllowOthers([](const Message&) { return Answer::ok; });
  Form_Load(second.main, {installation.gamePath, installation.programPath});
  EXPECT_FALSE(fs::exists(installation.Game("shipstats.def")));
}

TEST_F(StartUp, TheGameFolderAloneIsFoundAsForTheWholeStartUp) {
  RegisterProgram();
  Register(gameKey, "EXE Path", WithoutBackslash(installation.gamePath));
  FindGameFolder(session->main);
  ExpectBothFolders();
  EXPECT_FALSE(fs::exists(installation.Game("shipstats.def"))) << "nothing more than that is done";
  EXPECT_FALSE(session->main.readOnly);
}

TEST_F(StartUp, TheGameFolderAloneIsAskedForAndStoredNowhere) {
  session->desk.ExpectBox(notFound);
  session->desk.AnswerFolder(machine.windows);
  session->desk.ExpectBox("This is not a StarLancer game directory");
  session->desk.AnswerFolder(installation.gamePath);
  FindGameFolder(session->main, {"", installation.programPath});
  ExpectBothFolders();
  EXPECT_FALSE(Chosen().has_value());
  EXPECT_FALSE(fs::exists(installation.Program("oravin.ini")));
}

TEST_F(StartUp, WithoutAProgramFolderTheGameFolderStandsInForIt) {
  FindGameFolder(session->main, {WithoutBackslash(installation.gamePath), ""});
  EXPECT_EQ(Found().GamePath, installation.gamePath);
  EXPECT_EQ(Found().ProgramPath, installation.gamePath);
}

TEST_F(StartUp, AGivenProgramFolderNeedsNoShipListForTheGameFolderAlone) {
  fs::remove(installation.Program("shipsData.txt"));
  FindGameFolder(session->main, {installation.gamePath, installation.programPath});
  ExpectBothFolders();
}

TEST_F(StartUp, CancellingTheGameFolderAloneEndsTheProgramToo) {
  session->desk.ExpectBox(notFound);
  session->desk.AnswerFolder("");
  EXPECT_THROW(FindGameFolder(session->main), ProgramEnd);
}

TEST_F(StartUp, AGivenFolderThatIsNoGameFolderEndsTheSearchForItAlone) {
  session->desk.ExpectBox(machine.windows + "\nThis is not a StarLancer game directory");
  EXPECT_THROW(FindGameFolder(session->main, {machine.windows, ""}), ProgramEnd);
}

TEST_F(StartUp, ExitEndsTheProgram) {
  Load({installation.gamePath, installation.programPath});
  EXPECT_THROW(session->Press("about.cmdExit"), ProgramEnd);
}

TEST_F(StartUp, AnActionThatDoesNotExistIsAnError) { EXPECT_THROW(session->Press("no.such"), std::out_of_range); }

}  // namespace
}  // namespace oravin::test
