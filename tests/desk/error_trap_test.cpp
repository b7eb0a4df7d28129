#include "desk/error_trap.h"
#include "files/file.h"
#include "files/look_up.h"

#include <gtest/gtest.h>

#include "desk/program_end.h"
#include "support/scripted_desk.h"
#include "support/temporary_folder.h"

namespace oravin {
namespace {

using test::ScriptedHost;

TEST(ErrorTrap, TellsWhatWentWrongWithWhichFile) {
  const test::TemporaryFolder folder;
  const std::string path = folder.Windows("missing.bin");
  ScriptedHost at;
  at.desk.ExpectBox("Error - could not open " + path + ": it does not exist", "GetHogData", Icon::exclamation);
  EXPECT_FALSE(Trap(at.host, "GetHogData", [&] { File file(at.host.files, path, OpenFor::reading); }));
}

TEST(ErrorTrap, GivesTheNeutralValue) {
  ScriptedHost at;
  at.desk.ExpectBox("Error - could not read X: it ends too early", "Count", Icon::exclamation);
  EXPECT_EQ(
      Trapped(at.host, "Count", -1, [&]() -> int { throw FileError("could not read", "X", "it ends too early"); }), -1);
}

TEST(ErrorTrap, WithoutAnErrorTheResultPassesThroughWithoutABox) {
  ScriptedHost at;
  EXPECT_EQ(Trapped(at.host, "Count", -1, [] { return 7; }), 7);
  EXPECT_TRUE(Trap(at.host, "Count", [] {}));
}

TEST(ErrorTrap, EndsTheProgressThatTheActionBegan) {
  ScriptedHost at;
  at.desk.ExpectBox("Error - could not write X: the disk is full", "Copy", Icon::exclamation);
  Trap(at.host, "Copy", [] { throw FileError("could not write", "X", "the disk is full"); });
  ASSERT_EQ(at.desk.progress.size(), 1U);
  EXPECT_EQ(at.desk.progress[0].text, "");
  EXPECT_EQ(at.desk.progress[0].total, 0);
}

TEST(ErrorTrap, AProcedureMayHaveItsOwnWordsForAKindOfError) {
  ScriptedHost at;
  at.desk.ExpectBox("File not found!", "GetImportStats", Icon::critical);
  const std::string path = test::TemporaryFolder().Windows("missing.txt");
  EXPECT_FALSE(Trap(at.host, "GetImportStats", [&] { RequireFile(at.host.files, path); }));
}

TEST(ErrorTrap, OtherProceduresAndKindsHaveTheGeneralWords) {
  ScriptedHost at;
  at.desk.ExpectBox("Error - could not open X: it does not exist", "Count", Icon::exclamation);
  Trap(at.host, "Count", [] { throw FileError("could not open", "X", "it does not exist", ErrorKind::missing); });
  at.desk.ExpectBox("Error - could not read X: it is damaged", "GetImportStats", Icon::exclamation);
  Trap(at.host, "GetImportStats", [] { throw FileError("could not read", "X", "it is damaged", ErrorKind::damaged); });
}

TEST(ErrorTrap, TheProgramEndsAfterSomeErrors) {
  ScriptedHost at;
  at.desk.ExpectBox("Error in GetPAK - file not found", programTitle, Icon::information);
  const auto fail = [] { throw FileError("could not open", "X", "it does not exist", ErrorKind::missing); };
  EXPECT_THROW(Trap(at.host, "GetPAK", fail), ProgramEnd);
}

TEST(ErrorTrap, LeavesTheEndOfTheProgramAlone) {
  ScriptedHost at;
  EXPECT_THROW(Trap(at.host, "Start", [] { throw ProgramEnd{}; }), ProgramEnd);
}

}  // namespace
}  // namespace oravin
