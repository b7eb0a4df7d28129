#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "prepared_session.h"
#include "program_under_test.h"

/// The Windows program on installations that are not as they should be, and beside Windows' own programs.
namespace oravin::test {

namespace {

/// Enable is refused by a box that names a file, and nothing has been changed.
void ExpectRefusal(const PreparedSession& session, const std::string& file, const std::string& reason) {
  const FolderImage before = session.Image();
  ClickOn(session, "switcher.cmdEnable");
  ASSERT_TRUE(BoxCame(session, "Are you sure you want to continue?"));
  ASSERT_TRUE(AnswerBox(session, "alt+y"));
  ASSERT_TRUE(BoxCame(session, session.folder.Windows(file)));
  EXPECT_NE(Layout(session)["box"]["text"].get<std::string>().find(reason), std::string::npos)
      << Layout(session)["box"];
  ASSERT_TRUE(AnswerBox(session, "Return"));
  EXPECT_TRUE(SameImage(before, session.Image()));
}

}  // namespace

TEST(WindowsInstallation, AnArchiveThatAnotherProgramHoldsOpenIsLeftAlone) {
  const PreparedSession session("sleep 60 | wine '" + WindowsPrograms().value() +
                                "/hold_file.exe' \"$(winepath -w \"$game/resource.hog\")\" >held &\n"
                                "until grep -qs held held; do sleep 0.1; done\n");
  ExpectRefusal(session, "sample/StarLancer/resource.hog", "another program");
}

TEST(WindowsInstallation, AReadOnlyArchiveIsLeftAlone) {
  const PreparedSession session("chmod a-w \"$game/resource.hog\"\n");
  ExpectRefusal(session, "sample/StarLancer/resource.hog", "read-only");
}

TEST(WindowsInstallation, AFolderWithoutRightsIsLeftAlone) {
  const PreparedSession session("chmod a-w \"$game/ships\"\n");
  ExpectRefusal(session, "sample/StarLancer/ships\\", "cannot be written");
}

TEST(WindowsInstallation, NamesInAnotherCaseAreFoundAndPutBack) {
  const PreparedSession session(
      "cd \"$game\"; mv resource.hog RESOURCE.Hog; mv shipstats.bin ShipStats.BIN; mv ships SHIPS\n"
      "mv tcachehw.dat TCacheHW.dat; mv \"$program/shipsData.txt\" \"$program/SHIPSDATA.TXT\"\n");
  const FolderImage game = ImageOf(session.sample.game);
  ASSERT_TRUE(game.contains("RESOURCE.Hog"));
  ASSERT_TRUE(EnableFeatures(session));
  EXPECT_FALSE(SameImage(game, ImageOf(session.sample.game)));
  ClickOn(session, "switcher.cmdDisable");
  ASSERT_TRUE(BoxCame(session, "This will restore all files back to their previous state."));
  ASSERT_TRUE(AnswerBox(session, "alt+y"));
  ASSERT_TRUE(BoxCame(session, "Restoration complete"));
  ASSERT_TRUE(AnswerBox(session, "Return"));
  EXPECT_TRUE(SameImage(Without(game, {"shipstats.def"}), Without(ImageOf(session.sample.game), {"shipstats.def"})));
}

TEST(WindowsInstallation, TheReadmeOpensInNotepad) {
  const PreparedSession session("");
  ASSERT_TRUE(ChooseTab(session, "About"));
  PressKey(session.desktop, "alt+v");
  EXPECT_TRUE(Eventually([&] { return ActiveWindowTitle(session.desktop) == "readme.txt - Notepad"; }))
      << ActiveWindowTitle(session.desktop);
  EXPECT_TRUE(SaveScreenshot(session.desktop, "readme"));
}

}  // namespace oravin::test
