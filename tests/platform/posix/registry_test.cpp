#include "platform/registry.h"

#include <gtest/gtest.h>

#include "support/environment.h"
#include "support/file_marks.h"
#include "support/temporary_folder.h"

namespace oravin::platform {
namespace {

using test::Environment;
using test::ReadTextAt;
using test::TemporaryFolder;
using test::WriteFileAt;

/// A configuration folder and a Wine prefix of the test's own.
struct Registry : testing::Test {
  TemporaryFolder folder;
  Environment config{"XDG_CONFIG_HOME", folder.Native("config")};
  Environment prefix{"WINEPREFIX", folder.Native("wine")};
  Environment home{"HOME", folder.Native("home")};

  [[nodiscard]] std::filesystem::path Store() const { return folder.Native("config/oravin/registry.reg"); }
  [[nodiscard]] std::filesystem::path Wine() const { return folder.Native("wine/system.reg"); }
  static std::optional<std::string> Read(const std::string& key, const std::string& value) {
    return RegReadString(localMachine, key, value);
  }
  static bool Write(const std::string& key, const std::string& value, const std::string& text) {
    return RegWriteString(localMachine, key, value, text);
  }
};

TEST_F(Registry, WithoutAnyStoreThereIsNoValue) { EXPECT_EQ(Read("Software\\Maker", "Path"), std::nullopt); }

TEST_F(Registry, TheOwnStoreIsReadFirst) {
  WriteFileAt(Store(), "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\Software\\Maker]\n\"Path\"=\"own\"\n");
  WriteFileAt(Wine(), "WINE REGISTRY Version 2\n\n[Software\\\\Maker] 17\n\"Path\"=\"wine\"\n");
  EXPECT_EQ(Read("Software\\Maker", "Path"), "own");
}

TEST_F(Registry, AValueThatTheOwnStoreLacksIsReadFromWine) {
  WriteFileAt(Store(), "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\Software\\Maker]\n\"Other\"=\"own\"\n");
  WriteFileAt(Wine(), "WINE REGISTRY Version 2\n\n[Software\\\\Maker] 17\n#time=1d\n\"Path\"=\"wine\"\n");
  EXPECT_EQ(Read("Software\\Maker", "Path"), "wine");
}

TEST_F(Registry, WineIsReadInItsPlainViewBeforeThe32BitOne) {
  WriteFileAt(Wine(),
              "WINE REGISTRY Version 2\n\n"
              "[Software\\\\Wow6432Node\\\\Maker] 17\n\"Path\"=\"narrow\"\n\"Only\"=\"here\"\n\n"
              "[Software\\\\Maker] 17\n\"Path\"=\"plain\"\n");
  EXPECT_EQ(Read("Software\\Maker", "Path"), "plain");
  EXPECT_EQ(Read("Software\\Maker", "Only"), "here");
}

TEST_F(Registry, WithoutWineprefixThePrefixOfTheHomeFolderIsRead) {
  const Environment none("WINEPREFIX", std::nullopt);
  WriteFileAt(folder.Native("home/.wine/system.reg"), "[Software\\\\Maker] 17\n\"Path\"=\"home\"\n");
  EXPECT_EQ(Read("Software\\Maker", "Path"), "home");
}

TEST_F(Registry, WithoutXdgConfigHomeTheStoreLiesBelowTheHomeFolder) {
  const Environment none("XDG_CONFIG_HOME", std::nullopt);
  EXPECT_TRUE(Write("Software\\Maker", "Path", "x"));
  EXPECT_TRUE(std::filesystem::exists(folder.Native("home/.config/oravin/registry.reg")));
  EXPECT_EQ(Read("Software\\Maker", "Path"), "x");
}

TEST_F(Registry, AnEmptyNameStandsForTheDefaultValue) {
  WriteFileAt(Store(), "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\Software\\Maker]\n\"Path\"=\"p\"\n@=\"default\"\n");
  EXPECT_EQ(Read("Software\\Maker", ""), "default");
}

TEST_F(Registry, BackslashesAndQuotesAreEscaped) {
  const std::string text = "C:\\Games\\\"Star\"\\";
  EXPECT_TRUE(Write("Software\\Maker", "Quote \" and \\", text));
  EXPECT_EQ(Read("Software\\Maker", "Quote \" and \\"), text);
  EXPECT_EQ(ReadTextAt(Store()),
            "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\Software\\Maker]\n"
            "\"Quote \\\" and \\\\\"=\"C:\\\\Games\\\\\\\"Star\\\"\\\\\"\n");
}

TEST_F(Registry, LetterCaseDoesNotMatterInKeysAndNames) {
  WriteFileAt(Store(), "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Maker]\n\"PATH\"=\"p\"\n");
  EXPECT_EQ(Read("software\\MAKER", "path"), "p");
}

TEST_F(Registry, ABackslashAtTheKeysEndDoesNotMatter) {
  WriteFileAt(Store(), "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\Software\\Maker]\n\"Path\"=\"p\"\n");
  EXPECT_EQ(Read("Software\\Maker\\", "Path"), "p");
  EXPECT_TRUE(Write("Software\\Maker\\", "Path", "q"));
  EXPECT_TRUE(Write("Software\\New\\", "Path", "r"));
  EXPECT_EQ(ReadTextAt(Store()),
            "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\Software\\Maker]\n\"Path\"=\"q\"\n\n"
            "[HKEY_LOCAL_MACHINE\\Software\\New]\n\"Path\"=\"r\"\n");
}

TEST_F(Registry, AKeyBelowIsNotTheKey) {
  WriteFileAt(Store(), "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\Software\\Maker\\Sub]\n\"Path\"=\"p\"\n");
  EXPECT_EQ(Read("Software\\Maker", "Path"), std::nullopt);
}

TEST_F(Registry, AValueThatIsNoStringIsNone) {
  WriteFileAt(Store(), "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\Software\\Maker]\n\"Path\"=dword:00000001\n");
  EXPECT_EQ(Read("Software\\Maker", "Path"), std::nullopt);
}

TEST_F(Registry, ATextWithoutItsClosingQuoteIsNone) {
  WriteFileAt(Store(), "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\Software\\Maker]\n\"Path\"=\"cut off\n");
  EXPECT_EQ(Read("Software\\Maker", "Path"), std::nullopt);
}

TEST_F(Registry, WindowsLineEndsAreRead) {
  WriteFileAt(Store(), "REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\Software\\Maker]\r\n\"Path\"=\"p\"\r\n");
  EXPECT_EQ(Read("Software\\Maker", "Path"), "p");
}

TEST_F(Registry, AWriteMakesTheStore) {
  EXPECT_TRUE(Write("Software\\Maker", "Path", "p"));
  EXPECT_EQ(ReadTextAt(Store()), "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\Software\\Maker]\n\"Path\"=\"p\"\n");
  EXPECT_FALSE(std::filesystem::exists(Store().string() + ".new"));
}

TEST_F(Registry, AWriteKeepsAllOtherLines) {
  const std::string before =
      "REGEDIT4\n; a note\n\n[HKEY_LOCAL_MACHINE\\Software\\One]\n\"A\"=\"1\"\n\"Odd\"=hex:01,02\n\n"
      "[HKEY_LOCAL_MACHINE\\Software\\Two]\n\"A\"=\"2\"\n";
  WriteFileAt(Store(), before);
  EXPECT_TRUE(Write("Software\\One", "B", "3"));
  EXPECT_TRUE(Write("Software\\Two", "A", "4"));
  EXPECT_EQ(ReadTextAt(Store()),
            "REGEDIT4\n; a note\n\n[HKEY_LOCAL_MACHINE\\Software\\One]\n\"A\"=\"1\"\n\"Odd\"=hex:01,02\n\"B\"=\"3\"\n\n"
            "[HKEY_LOCAL_MACHINE\\Software\\Two]\n\"A\"=\"4\"\n");
}

TEST_F(Registry, AWriteSetsTheDefaultValue) {
  EXPECT_TRUE(Write("Software\\Maker", "", "first"));
  EXPECT_TRUE(Write("Software\\Maker", "", "second"));
  EXPECT_EQ(Read("Software\\Maker", ""), "second");
  EXPECT_EQ(ReadTextAt(Store()), "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\Software\\Maker]\n@=\"second\"\n");
}

TEST_F(Registry, AWriteLeavesWineAsItIs) {
  const std::string wine = "WINE REGISTRY Version 2\n\n[Software\\\\Maker] 17\n\"Path\"=\"wine\"\n";
  WriteFileAt(Wine(), wine);
  EXPECT_TRUE(Write("Software\\Maker", "Path", "own"));
  EXPECT_EQ(ReadTextAt(Wine()), wine);
  EXPECT_EQ(Read("Software\\Maker", "Path"), "own");
}

TEST_F(Registry, AWriteFailsWhereTheFolderOfTheStoreCannotBeMade) {
  WriteFileAt(folder.Native("config"), "a file stands where the folder would be");
  EXPECT_FALSE(Write("Software\\Maker", "Path", "p"));
  EXPECT_EQ(ReadTextAt(folder.Native("config")), "a file stands where the folder would be");
}

TEST_F(Registry, AWriteFailsWhereTheStoreItselfIsAFolder) {
  test::MakeFolderAt(Store());
  EXPECT_FALSE(Write("Software\\Maker", "Path", "p"));
  EXPECT_FALSE(std::filesystem::exists(Store().string() + ".new"));
}

}  // namespace
}  // namespace oravin::platform
