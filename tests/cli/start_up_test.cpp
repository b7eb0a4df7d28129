#include "sample_runs.h"

namespace oravin::test {
namespace {

/// The same installation, but nothing that start-up's search could find it by.
struct StartUpFolders : SampleRuns {
  StartUpFolders() : empty("XDG_CONFIG_HOME", folder.Native("empty").string()) {}

  Environment empty;
};

constexpr const char* notInRegistry = "Registy entries for StarLancer not found!";

TEST_F(StartUpFolders, TheFoldersAreTakenFromTheOptionsAsNativePaths) {
  const Outcome outcome =
      RunWords({"status", "--json", "--game", sample.game.string(), "--program", sample.program.string()});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.Document()["gameFolder"], folder.Windows("sample/StarLancer") + "\\");
  EXPECT_EQ(outcome.Document()["programFolder"], folder.Windows("sample/Oravin") + "\\");
}

TEST_F(StartUpFolders, TheFoldersAreTakenFromTheOptionsAsWindowsPaths) {
  const Outcome outcome = RunWords({"--game", folder.Windows("sample/StarLancer"), "--program",
                                    folder.Windows("sample/Oravin") + "\\", "status", "--json"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.Document()["gameFolder"], folder.Windows("sample/StarLancer") + "\\");
}

TEST_F(SampleRuns, TheGameFolderAloneIsGivenAndTheOtherSearchedFor) {
  const Outcome outcome = RunWords({"--game", sample.game.string(), "status", "--json"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.Document()["programFolder"], folder.Windows("sample/Oravin") + "\\");
}

TEST_F(SampleRuns, TheProgramFolderAloneIsGivenAndTheOtherSearchedFor) {
  const Outcome outcome = RunWords({"--program", sample.program.string(), "status", "--json"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.Document()["gameFolder"], folder.Windows("sample/StarLancer") + "\\");
}

TEST_F(SampleRuns, AFolderThatIsNoGameFolderEndsTheProgram) {
  const Outcome outcome = RunWords({"status", "--json", "--game", sample.program.string()});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.ErrorLines(),
            std::vector<Json>{BoxLine("Oravin",
                                      folder.Windows("sample/Oravin") + "\\\nThis is not a StarLancer game directory",
                                      "exclamation", "ok", "ok")});
}

TEST_F(SampleRuns, AFolderThatIsNotThereEndsTheProgram) {
  EXPECT_EQ(RunWords({"status", "--program", folder.Native("nowhere").string()}).status, 3);
}

TEST_F(StartUpFolders, AwayFromATerminalTheQuestionForAFolderIsCancelledAndEndsTheProgram) {
  const Outcome outcome = RunWords({"status", "--json"}, sample.game.string() + "\n");
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.out, "");
  const auto lines = outcome.ErrorLines();
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0], BoxLine("Oravin", notInRegistry, "exclamation", "ok", "ok"));
  EXPECT_TRUE(lines[1].contains("error"));
}

TEST_F(StartUpFolders, AtATerminalTheFoldersAreTypedAndKept) {
  const Outcome first =
      RunWords({"status", "--json"}, sample.game.string() + "\n" + sample.program.string() + "\n", true);
  EXPECT_EQ(first.status, 1);  // the boxes that asked bear the exclamation icon
  EXPECT_EQ(first.Document()["gameFolder"], folder.Windows("sample/StarLancer") + "\\");
  EXPECT_EQ(first.Document()["programFolder"], folder.Windows("sample/Oravin") + "\\");
  EXPECT_NE(first.err.find("Select your StarLancer Game Directory (an empty line cancels): "), std::string::npos);
}

TEST_F(StartUpFolders, AtATerminalAnEmptyLineEndsTheProgram) { EXPECT_EQ(RunWords({"status"}, "\n", true).status, 3); }

TEST_F(SampleRuns, AGivenProgramFolderWhoseListIsLostCanStillBeDisabled) {
  ASSERT_EQ(RunWords({"enable", "--yes"}).status, 0);
  std::filesystem::remove(sample.program / "shipsData.txt");
  const Outcome outcome =
      RunWords({"disable", "--yes", "--game", sample.game.string(), "--program", sample.program.string()});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_FALSE(std::filesystem::exists(sample.program / "ships.dat"));
  EXPECT_EQ(RunWords({"status", "--program", sample.program.string()}).status, 3) << "now it is no program folder";
}

TEST_F(SampleRuns, AListOfNoShipsEndsTheProgram) {
  WriteFileAt(sample.program / "shipsData.txt", "0\r\n");
  const Outcome outcome = RunWords({"enable", "--yes", "--json"});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.out, "");
  const auto lines = outcome.ErrorLines();
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[1], BoxLine("Oravin", "Error in shipsData.txt file", "critical", "ok", "ok"));
}

}  // namespace
}  // namespace oravin::test
