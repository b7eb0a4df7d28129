// The handler table: every action by its name, on installations where it has nothing to do, and the true sample.

#include <set>

#include "demo/sample.h"
#include "session.h"

namespace oravin::test {
namespace {

TEST(HandlerTable, NamesEveryActionOnce) {
  std::set<std::string_view> names;
  for (const Handler& handler : Handlers()) EXPECT_TRUE(names.insert(handler.name).second) << handler.name;
  EXPECT_GE(names.size(), 11U);
}

TEST(HandlerTable, WithoutACatalogueAndWithEveryQuestionRefusedNoActionChangesAnything) {
  const SmallInstallation installation;
  Session session(installation);
  const FolderImage before = ImageOf(installation.folder.native);
  session.desk.AllowOthers([](const MessageBox& box) { return box.buttons == Buttons::ok ? Answer::ok : Answer::no; });
  for (const Handler& handler : Handlers()) {
    if (handler.name == "about.cmdExit" || handler.name == "about.cmdReadme") continue;  // they leave the program
    session.Press(handler.name);
    EXPECT_TRUE(SameImage(before, ImageOf(installation.folder.native))) << handler.name;
  }
}

TEST(HandlerTable, SwapWithoutASelectionDoesNothing) {
  const SmallInstallation installation;
  Session session(installation);
  session.Enable();
  const FolderImage before = ImageOf(installation.folder.native);
  session.Press("switcher.cmdSwap");
  session.Press("switcher.cmdUnswap");
  SelectOnly(session.main.switcher.swapOrgList, 0);
  session.Press("switcher.cmdSwap");
  EXPECT_TRUE(SameImage(before, ImageOf(installation.folder.native)));
}

TEST(Sample, TheWholeCycleLeavesTheGameFolderAsItWas) {
  TemporaryFolder folder;
  const demo::Sample sample = demo::WriteSample(folder.Native("sample"));
  const FolderImage before = ImageOf(sample.game);
  Main main;
  ScriptedDesk desk(main.host);
  Form_Load(main, {sample.game.string(), sample.program.string()});
  desk.ExpectQuestion(enableQuestion, Answer::yes);
  desk.ExpectSuccess(enabledText, programTitle, Icon::none);
  oravin::Run(main, "switcher.cmdEnable");
  EXPECT_EQ(main.installation.ships.size(), sample.ships.size() + 1);
  // Every target once, each to another source, fighters first.
  for (int mode = 0; mode < 2; ++mode) {
    const std::size_t sources = main.switcher.swapToList.rows.size();
    for (std::size_t row = 0; row < main.switcher.swapOrgList.rows.size(); ++row) {
      SelectOnly(main.switcher.swapOrgList, row);
      SelectOnly(main.switcher.swapToList, (row * 7 + 3) % sources);
      oravin::Run(main, "switcher.cmdSwap");
    }
    oravin::Run(main, "switcher.cmdToggle");
  }
  desk.ExpectQuestion(disableQuestion, Answer::yes);
  desk.ExpectSuccess("Restoration complete");
  oravin::Run(main, "switcher.cmdDisable");
  EXPECT_TRUE(SameImage(before, Without(ImageOf(sample.game), {"shipstats.def"})));
}

}  // namespace
}  // namespace oravin::test
