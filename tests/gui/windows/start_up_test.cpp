#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <filesystem>
#include <string>
#include <thread>

#include "program_under_test.h"
#include "session.h"

/// The Windows program's start, with Windows' own registry, boxes and folder browser.
namespace oravin::test {

namespace {

constexpr const char* gameKey = "Software\\Microsoft\\Microsoft Games\\StarLancer\\1.0";
constexpr const char* directPlayKey = "Software\\Microsoft\\DirectPlay\\Applications\\StarLancer";
constexpr const char* appPathsKey = "Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\Oravin.exe";
constexpr const char* notFound = "Registy entries for StarLancer not found!";

struct RegistryValue {
  std::string key;
  std::string name;  ///< empty for the key's default value
  std::string text;
};

/// A registry file, in which every backslash is written twice.
std::string RegistryFile(const std::vector<RegistryValue>& values) {
  std::string text = "REGEDIT4\r\n";
  for (const RegistryValue& value : values) {
    std::string path;
    for (const char c : value.text) path.append(c == '\\' ? 2U : 1U, c);
    text += "\r\n[HKEY_LOCAL_MACHINE\\" + value.key + "]\r\n";
    text += (value.name.empty() ? "@" : '"' + value.name + '"') + "=\"" + path + "\"\r\n";
  }
  return text;
}

/// A desktop with the sample, and a Windows machine whose registry has nothing but what is put into it.
struct StartUpSession : Session {
  explicit StartUpSession(const std::vector<RegistryValue>& values = {}) : Session(Beginning::desktop) { Have(values); }

  void Have(const std::vector<RegistryValue>& values) const {
    WriteFileAt(sample.config / "oravin" / "registry.reg", RegistryFile(values));
  }
  void Start() {
    StartProgram(*this);
    AwaitWindow(*this);
  }
  [[nodiscard]] std::string Game() const { return folder.Windows("sample/StarLancer/"); }
  [[nodiscard]] std::string Program() const { return folder.Windows("sample/Oravin/"); }
  [[nodiscard]] RegistryValue ProgramValue() const { return {appPathsKey, "", Program() + "Oravin.exe"}; }

  /// What the machine's registry had of the program when it had ended.
  [[nodiscard]] std::string RegistryAfter() const {
    const std::filesystem::path file = folder.Native("registry.txt");
    if (!Eventually([&] { return std::filesystem::exists(file); })) return "the program goes on";
    return ReadTextAt(file);
  }
};

void ExpectFolders(const StartUpSession& session) {
  EXPECT_TRUE(Becomes(session, "about.txtSLPath", "text", session.Game()));
  EXPECT_TRUE(Becomes(session, "about.txtProgramPath", "text", session.Program()));
}

/// Waits until a window of that title has the keyboard.
testing::AssertionResult DialogCame(const Session& session, const std::string& title) {
  if (Eventually([&] { return ActiveWindowTitle(session.desktop) == title; })) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "the keyboard is in " << ActiveWindowTitle(session.desktop);
}

/// Walks down the tree of the folder browser, which is in front, to a folder of this machine. A name is found by its
/// first letters.
void WalkTo(const Session& session, const std::filesystem::path& folder) {
  constexpr std::chrono::milliseconds letterTime(2000);  // letters that come later begin a new name
  PressKey(session.desktop, "shift+Tab");                // from the button to the tree
  PressKey(session.desktop, "Home");
  PressKey(session.desktop, "Down");  // the root folder
  for (const std::filesystem::path& part : folder.relative_path()) {
    PressKey(session.desktop, "Right");
    std::this_thread::sleep_for(letterTime);
    TypeText(session.desktop, part.string());
    std::this_thread::sleep_for(letterTime);
  }
}

void ChooseFolder(const Session& session, const std::filesystem::path& folder) {
  WalkTo(session, folder);
  PressKey(session.desktop, "Return");
}

/// Answers the box that is in front before there is a window, and waits for the folder browser.
testing::AssertionResult BoxAnswered(const Session& session, const std::string& text) {
  if (const auto came = BoxCame(session, text); !came) return came;
  // A key that came before the box had the keyboard is lost.
  const bool browses = Eventually([&] {
    if (ActiveWindowTitle(session.desktop) == "Browse for Folder") return true;
    if (ActiveWindowTitle(session.desktop) == "Oravin") PressKey(session.desktop, "Return");
    std::this_thread::sleep_for(std::chrono::seconds(1));
    return false;
  });
  return browses ? testing::AssertionSuccess() : DialogCame(session, "Browse for Folder");
}

testing::AssertionResult EndsQuietly(Session& session) {
  const int status = ExitStatus(session.program);
  if (status == 0) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "it ended with " << status;
}

}  // namespace

struct GameFolder : testing::TestWithParam<std::size_t> {};

/// The values are looked through in their order; those before lead nowhere.
TEST_P(GameFolder, IsFoundByEachOfTheRegistrysValues) {
  StartUpSession session;
  std::vector<RegistryValue> values = {{gameKey, "EXE Path", "C:\\nowhere"},
                                       {gameKey, "InstallationDirectory", "C:\\windows"},
                                       {directPlayKey, "Path", "C:\\nowhere\\"},
                                       {appPathsKey, "StarLancerPath", ""}};
  values.resize(GetParam() + 1);
  values.back().text = session.Game();
  values.push_back(session.ProgramValue());
  session.Have(values);
  session.Start();
  ExpectFolders(session);
  EXPECT_TRUE(Layout(session)["box"].is_null());
}

INSTANTIATE_TEST_SUITE_P(Windows, GameFolder, testing::Range(std::size_t{0}, std::size_t{4}));

TEST(WindowsStart, TheUsualProgramFolderIsTakenWhereTheRegistryHasNone) {
  StartUpSession session;
  session.Have({{gameKey, "EXE Path", session.Game()}});
  session.before = "cp -r '" + session.sample.program.string() + "' \"$WINEPREFIX/drive_c/Program Files/Oravin\"";
  session.Start();
  EXPECT_TRUE(Becomes(session, "about.txtSLPath", "text", session.Game()));
  EXPECT_TRUE(Becomes(session, "about.txtProgramPath", "text", "C:\\Program Files\\Oravin\\"));
}

TEST(WindowsStart, AChosenGameFolderIsNotedInTheRegistryAndTheIniFile) {
  StartUpSession session;
  session.Have({session.ProgramValue()});
  StartProgram(session);
  ASSERT_TRUE(BoxCame(session, notFound));
  EXPECT_TRUE(SaveScreenshot(session.desktop, "start_up_box"));
  ASSERT_TRUE(BoxAnswered(session, notFound));
  // One that has no archive is refused, and the folder is asked for again.
  ChooseFolder(session, session.sample.program);
  ASSERT_TRUE(BoxAnswered(session, "This is not a StarLancer game directory"));
  WalkTo(session, session.sample.game);
  EXPECT_TRUE(SaveScreenshot(session.desktop, "folder_browser"));
  PressKey(session.desktop, "Return");
  AwaitWindow(session);
  ExpectFolders(session);
  EXPECT_EQ(ReadTextAt(session.sample.program / "oravin.ini"),
            "\"" + session.Game() + "\"\r\n\"" + session.Program() + "\"\r\n");
  ASSERT_TRUE(ChooseTab(session, "About"));
  PressKey(session.desktop, "alt+x");
  ASSERT_TRUE(EndsQuietly(session));
  EXPECT_NE(session.RegistryAfter().find("StarLancerPath    REG_SZ    " + session.Game()), std::string::npos)
      << session.RegistryAfter();
}

TEST(WindowsStart, ARegistryThatRefusesTheChosenFolderIsToldOfAndTheProgramGoesOn) {
  StartUpSession session;
  const std::string programs = WindowsPrograms().value();
  session.before = "wine '" + programs +
                   "/refuse_key.exe' 'Software\\Microsoft\\Windows\\CurrentVersion\\App Paths'\n" + "cp -r '" +
                   session.sample.program.string() + "' \"$WINEPREFIX/drive_c/Program Files/Oravin\"";
  StartProgram(session);
  ASSERT_TRUE(BoxAnswered(session, notFound));
  ChooseFolder(session, session.sample.game);
  ASSERT_TRUE(BoxCame(session, "Can't Create Registry entry"));
  EXPECT_TRUE(SaveScreenshot(session.desktop, "registry_box"));
  PressKey(session.desktop, "Return");
  AwaitWindow(session);
  EXPECT_TRUE(Becomes(session, "about.txtSLPath", "text", session.Game()));
  ASSERT_TRUE(ChooseTab(session, "About"));
  PressKey(session.desktop, "alt+x");
  ASSERT_TRUE(EndsQuietly(session));
  EXPECT_EQ(session.RegistryAfter().find("StarLancerPath"), std::string::npos);
}

TEST(WindowsStart, WhoLeavesTheFolderBrowserEndsTheProgramAndNothingIsNoted) {
  StartUpSession session;
  session.Have({session.ProgramValue()});
  const FolderImage before = ImageOf(session.sample.program);
  StartProgram(session);
  ASSERT_TRUE(BoxAnswered(session, notFound));
  PressKey(session.desktop, "Escape");
  ASSERT_TRUE(EndsQuietly(session));
  EXPECT_EQ(session.RegistryAfter().find("StarLancerPath"), std::string::npos);
  EXPECT_TRUE(SameImage(before, ImageOf(session.sample.program)));
}

}  // namespace oravin::test
