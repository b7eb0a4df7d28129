// Start-up of a program that came as a package: the program folder that it lays out, and the ship list it offers there.

#include <filesystem>

#include "app/start_up.h"
#include "desk/program_end.h"
#include "platform/registry.h"
#include "session.h"
#include "support/own_machine.h"

namespace oravin::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* gameNotFound = "Registy entries for StarLancer not found!";
constexpr const char* gamesKey = "Software\\Microsoft\\Microsoft Games\\StarLancer\\1.0\\";
constexpr const char* programsKey = "Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\Oravin.exe\\";

/// A machine on which a package was installed and nothing was started yet.
struct Package : testing::Test {
  Package() {
    WriteFileAt(machine.Native("package/readme.txt"), "the manual");
    WriteFileAt(machine.Native("package/3D/cube.bmp"), "a template");
    fs::current_path(machine.native);
  }
  ~Package() override { fs::current_path("/"); }

  void RegisterGame() const {
    ASSERT_TRUE(platform::RegWriteString(platform::localMachine, gamesKey, "EXE Path", installation.gamePath));
  }
  [[nodiscard]] fs::path User(const char* name) const { return machine.Native("home/data/oravin") / name; }
  [[nodiscard]] GivenFolders Places(bool offer = false) const {
    return {{}, {}, offer, {machine.Windows("package\\"), programPath}};
  }
  void Load(bool offer = false) { Form_Load(main, Places(offer)); }
  void ExpectOffer(Answer answer) {
    desk.ExpectQuestion("This folder has no ship list (shipsData.txt), which Oravin needs:\n" + programPath +
                            "\n\nOravin can draft one from the game's own files. You can look through it and change "
                            "it before it is saved.\n\nShall it do that?",
                        answer);
  }
  void SaveTheDraft() {
    ExpectOffer(Answer::yes);
    desk.OnForm([this](const std::string&) { session.Press("ShipList.cmdSave"); });
  }
  /// A package brings no loadout maps, and the small installation's cache teaches none.
  void EnableWithoutMaps() {
    desk.ExpectQuestion(enableQuestion, Answer::yes);
    desk.ExpectBox(
        "gloadconv.dat cannot be made: the game's textures in tcachehw.dat hold no 8-bit texture with its companion.",
        "LearnLoadout");
    desk.ExpectSuccess(enabledText, programTitle, Icon::none);
    session.Press("switcher.cmdEnable");
  }

  SmallInstallation installation;
  TemporaryFolder machine;
  OwnMachine own{machine};
  const std::string programPath = machine.Windows("home\\data\\oravin\\");
  Session session{installation, false};
  Main& main = session.main;
  ScriptedDesk& desk = session.desk;
};

TEST_F(Package, TheFirstStartLaysTheProgramFolderOut) {
  RegisterGame();
  Load();
  EXPECT_EQ(main.installation.ProgramPath, programPath);
  EXPECT_TRUE(SameImage(FolderImage({{"addons/", {}},
                                     {"addons/ships/", {}},
                                     {"addons/stats/", {}},
                                     {"addons/textures/", {}},
                                     {"3D/", {}},
                                     {"3D/cube.bmp", BytesOf("a template")},
                                     {"readme.txt", BytesOf("the manual")}}),
                        ImageOf(machine.Native("home/data/oravin"))));
}

TEST_F(Package, LaterStartsRenewTheManualAndNothingElse) {
  RegisterGame();
  WriteFileAt(User("readme.txt"), "the manual of an older version");
  WriteFileAt(User("3D/cube.bmp"), "a better template");
  WriteFileAt(User("shipsData.txt"), "1\r\n");
  Load();
  EXPECT_EQ(ReadTextAt(User("readme.txt")), "the manual");
  EXPECT_EQ(ReadTextAt(User("3D/cube.bmp")), "a better template");
  EXPECT_EQ(ReadTextAt(User("shipsData.txt")), "1\r\n");
}

TEST_F(Package, AFolderThatThePackageLaidOutItselfOnlyGetsWhatIsMissing) {
  RegisterGame();
  GivenFolders given = Places();
  given.package.program = given.package.data;
  FolderImage expected = ImageOf(machine.Native("package"));
  for (const char* folder : {"addons/", "addons/ships/", "addons/stats/", "addons/textures/"}) expected[folder] = {};
  Form_Load(main, given);
  EXPECT_EQ(main.installation.ProgramPath, given.package.data);
  EXPECT_TRUE(SameImage(expected, ImageOf(machine.Native("package"))));
}

TEST_F(Package, TheRegistrysProgramFolderGoesFirst) {
  RegisterGame();
  ASSERT_TRUE(
      platform::RegWriteString(platform::localMachine, programsKey, "", installation.programPath + "Oravin.exe"));
  Load(true);
  EXPECT_EQ(main.installation.ProgramPath, installation.programPath);
  EXPECT_FALSE(fs::exists(machine.Native("home")));
}

TEST_F(Package, TheUsualProgramFolderGoesFirst) {
  RegisterGame();
  fs::create_directories(own.DriveC("Program Files/Oravin"));
  Load(true);
  EXPECT_EQ(main.installation.ProgramPath, "C:\\Program Files\\Oravin\\");
  EXPECT_FALSE(fs::exists(machine.Native("home")));
}

TEST_F(Package, AGivenProgramFolderGoesFirst) {
  GivenFolders given = Places(true);
  given.game = installation.gamePath;
  given.program = installation.programPath;
  Form_Load(main, given);
  EXPECT_EQ(main.installation.ProgramPath, installation.programPath);
  EXPECT_FALSE(fs::exists(machine.Native("home")));
}

TEST_F(Package, StandsInForARegisteredFolderThatIsGone) {
  RegisterGame();
  ASSERT_TRUE(platform::RegWriteString(platform::localMachine, programsKey, "", machine.Windows("gone\\Oravin.exe")));
  Load();
  EXPECT_EQ(main.installation.ProgramPath, programPath);
}

TEST_F(Package, AFolderWithLettersBeyondPlainEnglishIsNotTaken) {
  RegisterGame();
  GivenFolders given = Places();
  given.package.program = machine.Windows("caf\xC3\xA9\\");
  Form_Load(main, given);
  EXPECT_EQ(main.installation.ProgramPath, "");
  EXPECT_FALSE(fs::exists(machine.Native("caf\xC3\xA9")));
}

TEST_F(Package, AFolderThatCannotBeMadeIsToldOf) {
  RegisterGame();
  WriteFileAt(machine.Native("home"), "a file where the folder should be");
  desk.AllowOthers([](const Message&) { return Answer::ok; });
  Load();
  ASSERT_FALSE(desk.shown.empty());
  EXPECT_EQ(desk.shown.front().title, "Form_Load");
  EXPECT_NE(desk.shown.front().text.find(machine.windows + "home\\"), std::string::npos) << desk.shown.front().text;
}

TEST_F(Package, TheWindowOffersAShipListWhenTheGameWasFound) {
  RegisterGame();
  SaveTheDraft();
  Load(true);
  EXPECT_TRUE(fs::exists(User("shipsData.txt")));
  EnableWithoutMaps();
  EXPECT_FALSE(main.installation.ships.empty());
}

TEST_F(Package, TheWindowOffersAShipListAfterAskingForTheGame) {
  desk.ExpectBox(gameNotFound);
  desk.AnswerFolder(installation.gamePath);
  SaveTheDraft();
  Load(true);
  EXPECT_EQ(main.installation.ProgramPath, programPath);
  EXPECT_EQ(desk.prompts.size(), 1U) << "the program folder is not asked for";
  EXPECT_EQ(ReadTextAt(User("oravin.ini")), "\"" + installation.gamePath + "\"\r\n\"" + programPath + "\"\r\n");
}

TEST_F(Package, TheNextStartAsksNothing) {
  {
    Session first(installation, false);
    first.desk.ExpectBox(gameNotFound);
    first.desk.AnswerFolder(installation.gamePath);
    first.desk.AllowOthers([](const Message&) { return Answer::yes; });
    first.desk.OnForm([&first](const std::string&) { first.Press("ShipList.cmdSave"); });
    Form_Load(first.main, Places(true));
  }
  Load(true);
  EXPECT_EQ(main.installation.GamePath, installation.gamePath);
  EXPECT_EQ(main.installation.ProgramPath, programPath);
  EXPECT_TRUE(desk.shown.empty());
}

TEST_F(Package, NoToTheOfferGoesOnWithoutAList) {
  RegisterGame();
  ExpectOffer(Answer::no);
  Load(true);
  EXPECT_FALSE(fs::exists(User("shipsData.txt")));
}

TEST_F(Package, NothingIsOfferedWhileTheFeaturesAreEnabled) {
  RegisterGame();
  SaveTheDraft();
  Load(true);
  EnableWithoutMaps();
  fs::remove(User("shipsData.txt"));
  Session next(installation, false);
  next.desk.AllowOthers([](const Message& box) {
    EXPECT_NE(box.buttons, Buttons::yesNo) << box.text;
    return Answer::ok;
  });
  Form_Load(next.main, Places(true));
}

TEST_F(Package, TheCommandLineOffersNothing) {
  RegisterGame();
  Load(false);
  EXPECT_TRUE(desk.shown.empty());
}

}  // namespace
}  // namespace oravin::test
