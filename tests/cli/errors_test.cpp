#include <sstream>

#include "cli/run_command.h"
#include "platform/installation_lock.h"
#include "sample_runs.h"

namespace oravin::test {
namespace {

struct CommandFailures : SampleRuns {};

TEST_F(CommandFailures, ACriticalBoxIsStatusOne) {
  std::filesystem::remove(sample.program / "shipsData.txt");
  const Outcome outcome = RunWords({"enable", "--yes", "--json"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.ErrorLines(),
            (std::vector<Json>{BoxLine("Oravin", enableQuestionText, "question", "yesno", "yes"),
                               BoxLine("Oravin", "shipsData.txt not found", "critical", "ok", "ok")}));
}

TEST_F(CommandFailures, AnExclamationBoxIsStatusOne) {
  std::filesystem::resize_file(sample.game / "resource.hog", 14);
  const Outcome outcome = RunWords({"enable", "--yes", "--json"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.ErrorLines().back()["box"]["icon"], "exclamation");
}

TEST_F(CommandFailures, AnActionThatIsDoneWithAWarningTellsItsResultAndIsStatusOne) {
  EditShipList("sabrewing.shp", "nowhere.shp");
  const Outcome outcome = RunWords({"enable", "--yes", "--json"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.Document(), Json::parse(R"({"action":"enable","done":true,"enabled":true,"ships":15})"));
}

TEST_F(CommandFailures, WrongUsageIsStatusTwoAndStartsNothing) {
  const Outcome outcome = RunWords({"enable", "--yes", "--no"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "oravin-cli: --yes excludes --no\n\"oravin-cli --help\" shows how it is used.\n");
  EXPECT_FALSE(std::filesystem::exists(sample.game / "shipstats.def"));
}

TEST(HelpAndVersion, NeedNoInstallationAndGoToStandardOutput) {
  const Outcome help = RunWords({"--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_EQ(help.err, "");
  EXPECT_NE(help.out.find("\nUsage: oravin-cli [options] [COMMAND]\n"), std::string::npos);
  const Outcome version = RunWords({"--version"});
  EXPECT_EQ(version.status, 0);
  EXPECT_EQ(version.out, "oravin-cli 0.1.0\n");
}

TEST_F(CommandFailures, AnotherCopyAtWorkKeepsThisOneFromChangingAnything) {
  platform::FolderLock other;
  ASSERT_TRUE(platform::LockFolder(folder.Windows("sample/StarLancer") + "\\", other));
  const Outcome outcome = RunWords({"enable", "--yes", "--json"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  const auto lines = outcome.ErrorLines();
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0]["box"]["icon"], "information");
  EXPECT_EQ(lines[1],
            BoxLine("Oravin", "Another copy of Oravin works on this installation, so nothing can be changed here now.",
                    "exclamation", "ok", "ok"));
  platform::UnlockFolder(other);
}

TEST_F(CommandFailures, AnotherCopyAtWorkLetsThisOneLook) {
  platform::FolderLock other;
  ASSERT_TRUE(platform::LockFolder(folder.Windows("sample/StarLancer") + "\\", other));
  const Outcome outcome = RunWords({"status", "--json"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.Document()["onlyLooks"], true);
  EXPECT_NE(RunWords({"status"}).out.find("Only looks:"), std::string::npos);
  platform::UnlockFolder(other);
}

TEST_F(CommandFailures, AResultThatCannotBeWrittenIsStatusOne) {
  std::ostringstream out;
  std::ostringstream err;
  std::istringstream in;
  out.setstate(std::ios::badbit);
  EXPECT_EQ(RunCommand({"status"}, out, err, in, false), 1);
  EXPECT_EQ(err.str(), "oravin-cli: the result could not be written to standard output\n");
}

}  // namespace
}  // namespace oravin::test
