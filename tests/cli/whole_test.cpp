#include "sample_runs.h"
#include "support/folder_image.h"

namespace oravin::test {
namespace {

struct EnableAndDisable : SampleRuns {
  [[nodiscard]] bool CatalogueThere() const { return std::filesystem::exists(sample.program / "ships.dat"); }
};

constexpr const char* enabledText =
    "Options Enabled. If you haven't read the readme.txt file, do so and \n"
    "use the ''Disable / Restore'' button BEFORE uninstalling.\n"
    "If you have any suggestions or bug reports, please send the to me.";

constexpr const char* disableQuestionText =
    "This will restore all files back to their previous state.\n"
    "This will also remove all StarLancer fighters from the\n"
    "StarLancer\\Ships\\ folder.\n"
    "If you want to keep any of these files make copies of them.\n"
    "Are you sure you want to continue?";

TEST_F(EnableAndDisable, EnableTellsTheNumberOfShips) {
  const Outcome outcome = RunWords({"enable", "--yes"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Enabled: the catalogue holds 15 ships.\n");
  EXPECT_TRUE(CatalogueThere());
}

TEST_F(EnableAndDisable, EnableShowsItsBoxesInPlainTextOnStandardError) {
  EXPECT_EQ(RunWords({"enable", "--yes"}).err,
            "Oravin: Enabling these features will require about 6 MB of storage space\n"
            "  and will make reversable modifications to key StarLancer files.\n"
            "  StarLancer must not be open and it may take up to 20 seconds\n"
            "  to make all the Necessary changes. \n"
            "  You should read the readme.txt before enabling these options.\n"
            "  Are you sure you want to continue?\n"
            "  [yes/no] yes\n"
            "Oravin: Options Enabled. If you haven't read the readme.txt file, do so and \n"
            "  use the ''Disable / Restore'' button BEFORE uninstalling.\n"
            "  If you have any suggestions or bug reports, please send the to me.\n");
}

TEST_F(EnableAndDisable, EnableInJsonIsOneDocumentAndALineForEachBox) {
  const Outcome outcome = RunWords({"enable", "--yes", "--json"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "{\n  \"action\": \"enable\",\n  \"done\": true,\n  \"enabled\": true,\n  \"ships\": 15\n}\n");
  EXPECT_EQ(outcome.ErrorLines(), (std::vector<Json>{BoxLine("Oravin", enableQuestionText, "question", "yesno", "yes"),
                                                     BoxLine("Oravin", enabledText, "none", "ok", "ok")}));
}

TEST_F(EnableAndDisable, AwayFromATerminalTheAnswerIsNoAndNothingIsDone) {
  const FolderImage before = ImageOf(sample.program);
  const Outcome outcome = RunWords({"enable"}, "yes\n");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Nothing was done.\n");
  EXPECT_TRUE(SameImage(before, ImageOf(sample.program)));
}

TEST_F(EnableAndDisable, NoIsAnsweredWithNo) {
  const Outcome outcome = RunWords({"enable", "--no", "--json"}, "yes\n", true);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.Document(), Json::parse(R"({"action":"enable","done":false,"enabled":false,"ships":0})"));
  EXPECT_FALSE(CatalogueThere());
}

TEST_F(EnableAndDisable, AtATerminalThePersonIsAsked) {
  EXPECT_EQ(RunWords({"enable"}, "no\n", true).out, "Nothing was done.\n");
  EXPECT_FALSE(CatalogueThere());
  EXPECT_EQ(RunWords({"enable"}, "yes\n", true).out, "Enabled: the catalogue holds 15 ships.\n");
  EXPECT_TRUE(CatalogueThere());
}

TEST_F(EnableAndDisable, TheFirstAnswerOfTheListIsTheFirstQuestions) {
  EXPECT_EQ(RunWords({"enable", "--answers", "no,yes"}).out, "Nothing was done.\n");
  EXPECT_EQ(RunWords({"enable", "--answers", "ok,no"}).status, 0);
  EXPECT_TRUE(CatalogueThere());
}

TEST_F(EnableAndDisable, ProgressIsWrittenAtATerminalAloneAndNotOnStandardOutput) {
  const Outcome terminal = RunWords({"enable", "--yes"}, "", true);
  EXPECT_NE(terminal.err.find("(0/1)\r"), std::string::npos);
  EXPECT_EQ(terminal.out.find('\r'), std::string::npos);
  RunWords({"disable", "--yes"});
  EXPECT_EQ(RunWords({"enable", "--yes"}).err.find('\r'), std::string::npos);
}

TEST_F(EnableAndDisable, NothingIsColoured) {
  const Outcome outcome = RunWords({"enable", "--yes"}, "", true);
  EXPECT_EQ((outcome.out + outcome.err).find('\x1b'), std::string::npos);
}

TEST_F(EnableAndDisable, DisableRestoresTheGameByteForByte) {
  const FolderImage before = ImageOf(sample.game);
  Enable();
  ASSERT_EQ(RunWords({"ships", "swap", "Predator", "Manta"}).status, 0);
  const Outcome outcome = RunWords({"disable", "--yes", "--json"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.Document(), Json::parse(R"({"action":"disable","done":true,"enabled":false,"ships":0})"));
  EXPECT_EQ(outcome.ErrorLines(),
            (std::vector<Json>{BoxLine("Oravin", disableQuestionText, "question", "yesno", "yes"),
                               BoxLine("Oravin", "Restoration complete", "information", "ok", "ok")}));
  EXPECT_TRUE(SameImage(before, Without(ImageOf(sample.game), {"shipstats.def"})));
  EXPECT_FALSE(CatalogueThere());
}

TEST_F(EnableAndDisable, DisableTellsThatItIsDone) {
  Enable();
  EXPECT_EQ(RunWords({"disable", "--yes"}).out, "Disabled: the game's files are restored.\n");
}

TEST_F(EnableAndDisable, DisableAnsweredWithNoLeavesTheFeaturesEnabled) {
  Enable();
  const Outcome outcome = RunWords({"disable", "--no", "--json"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.Document(), Json::parse(R"({"action":"disable","done":false,"enabled":true,"ships":15})"));
}

TEST_F(EnableAndDisable, StatusTellsFoldersStateAndFiles) {
  const Outcome outcome = RunWords({"status", "--json"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  const Json status = outcome.Document();
  EXPECT_EQ(status["gameFolder"], folder.Windows("sample/StarLancer") + "\\");
  EXPECT_EQ(status["programFolder"], folder.Windows("sample/Oravin") + "\\");
  EXPECT_EQ(status["enabled"], false);
  EXPECT_EQ(status["onlyLooks"], false);
  EXPECT_EQ(status["ships"], 0);
  ASSERT_EQ(status["files"].size(), 4U);
  EXPECT_EQ(status["files"][0]["name"], "resource.hog");
  EXPECT_EQ(status["files"][0]["size"], std::filesystem::file_size(sample.game / "resource.hog"));
  EXPECT_EQ(status["files"][1]["count"], 426);
}

TEST_F(EnableAndDisable, StatusOfAnEnabledInstallationCountsTheShips) {
  Enable();
  RunWords({"ships", "swap", "Predator", "Manta"});
  const Json status = RunWords({"status", "--json"}).Document();
  EXPECT_EQ(status["enabled"], true);
  EXPECT_EQ(status["ships"], 15);
  EXPECT_EQ(status["changedShips"], 2);
}

TEST_F(EnableAndDisable, StatusInTextIsALineForEach) {
  Enable();
  const std::string text = RunWords({"status"}).out;
  EXPECT_EQ(text.substr(0, text.find('\n')), "Game folder:     " + folder.Windows("sample/StarLancer") + "\\");
  EXPECT_NE(text.find("\nEnabled:         yes, 15 ships, 0 of them changed\n"), std::string::npos);
  EXPECT_NE(text.find("\ntcachehw.dat:    "), std::string::npos);
  EXPECT_NE(text.find(" bytes, 437 textures\n"), std::string::npos);
}

}  // namespace
}  // namespace oravin::test
