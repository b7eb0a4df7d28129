// The handler table: every action by its name, on installations where it has nothing to do, and the true sample.

#include <set>

#include "app/open_file.h"
#include "session.h"
#include "support/sample_copy.h"

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
  session.desk.AllowOthers([](const Message& box) { return box.buttons == Buttons::ok ? Answer::ok : Answer::no; });
  for (int dialogs = 0; dialogs < 5; ++dialogs) session.desk.AnswerFile("");
  for (int dialogs = 0; dialogs < 2; ++dialogs) session.desk.AnswerFolder("");
  for (const Handler& handler : Handlers()) {
    if (handler.name == "about.cmdExit" || handler.name == "tcache.cmdExit" || handler.name == "about.cmdReadme")
      continue;  // they leave the program
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

TEST(HandlerTable, WithNothingSelectedNoActionOnASelectionChangesAnything) {
  const SmallInstallation installation;
  Session session(installation);
  session.Enable();
  session.Swap(1, 0);
  session.Press("hog.cmdOpen");
  session.Press("tcache.cmdOpenTcache");
  for (ListView* list : {&session.main.switcher.swapOrgList, &session.main.switcher.swapToList,
                         &session.main.stats.shipEditingList, &session.main.imports.lstImported}) {
    ASSERT_FALSE(list->rows.empty());
    SelectOnly(*list, std::nullopt);
  }
  const FolderImage before = ImageOf(installation.folder.native);
  session.desk.AllowOthers([](const Message&) { return Answer::yes; });
  for (const char* action : {"switcher.swapOrgList.ItemClick",
                             "switcher.swapToList.ItemClick",
                             "switcher.cmdSwap",
                             "switcher.cmdUnswap",
                             "switcher.swapOrgList.DblClick",
                             "stats.shipEditingList.ItemClick",
                             "stats.shipWeaponsList.ItemClick",
                             "stats.shipStatsList.AfterLabelEdit",
                             "stats.pldStatsCopy",
                             "stats.pldStatsPaste",
                             "stats.pldStatsRestoreDefault",
                             "stats.cmdRestoreShipStats",
                             "stats.pldGunType",
                             "stats.pldExtGunType",
                             "stats.pldMissileType",
                             "stats.chkHasCloak.MouseUp",
                             "stats.cmdRestoreWeapons",
                             "imports.lstImported.ItemClick",
                             "imports.lstImported.DblClick",
                             "imports.cmdRemoveShips",
                             "hog.hogList.ItemClick",
                             "hog.hogList.DblClick",
                             "hog.pldHogCopy",
                             "hog.pldHogProperties",
                             "hog.cmdFirstBytes",
                             "tcache.lstTcache.ItemClick",
                             "tcache.lstTcache.DblClick"}) {
    session.Press(action);
    EXPECT_TRUE(SameImage(before, ImageOf(installation.folder.native))) << action;
  }
}

TEST(HogHandlers, EnablingAndDisablingCloseTheArchiveFirst) {
  const SmallInstallation installation;
  Session session(installation);
  session.Press("hog.cmdOpen");
  ASSERT_TRUE(IsArchiveOpen(session.main.hog));
  session.Enable();
  EXPECT_FALSE(IsArchiveOpen(session.main.hog));
  EXPECT_TRUE(session.main.hog.hogList.rows.empty());
  session.Press("hog.cmdOpen");
  session.Disable();
  EXPECT_FALSE(IsArchiveOpen(session.main.hog));
}

TEST(HogHandlers, ACopyThatOnlyLooksListsAndExtractsButWritesNothingIntoTheArchive) {
  const SmallInstallation installation;
  Session session(installation);
  session.main.readOnly = true;
  session.Press("hog.cmdOpen");
  session.Press("hog.cmdSelectAll");
  session.main.hog.txtHogDest.text = installation.programPath;
  session.desk.ExpectSuccess("Extraction Complete");
  session.Press("hog.cmdExtract");
  const FolderImage before = ImageOf(installation.folder.native);
  for (const char* action : {"hog.cmdBackupFAT", "hog.cmdRestoreFAT", "hog.pldHogPaste", "FAT_Editor.cmdSave"}) {
    session.desk.ExpectBox("Another copy of Oravin works on this installation, so nothing can be changed here now.");
    session.Press(action);
  }
  EXPECT_TRUE(SameImage(before, ImageOf(installation.folder.native)));
}

TEST(StartingWithAFile, OpensItOnItsTab) {
  const SmallInstallation installation;
  Session session(installation);
  OpenFileOnItsTab(session.main, installation.gamePath + "resource.hog");
  EXPECT_TRUE(IsArchiveOpen(session.main.hog));
  EXPECT_EQ(session.main.tabStrip.captions.at(static_cast<std::size_t>(session.main.tabStrip.chosen - 1)),
            "Hog Editor");
  OpenFileOnItsTab(session.main, installation.gamePath + "tcachehw.dat");
  EXPECT_EQ(session.main.tcache.openCache, installation.gamePath + "tcachehw.dat");
  EXPECT_EQ(session.main.tabStrip.captions.at(static_cast<std::size_t>(session.main.tabStrip.chosen - 1)),
            "Tcache Editor");
  session.desk.ExpectBox("File not found", "File path error");
  OpenFileOnItsTab(session.main, installation.gamePath + "none.hog");
}

TEST(HogHandlers, TheFormAndTheMenuWorkThroughTheTable) {
  const SmallInstallation installation;
  Session session(installation);
  session.Press("hog.cmdOpen");
  SelectOnly(session.main.hog.hogList, 0);
  session.Press("hog.pldHogCopy");
  EXPECT_EQ(session.desk.clipboard.size(), 1U);
  for (const char* action : {"hog.hogList.DblClick", "hog.pldHogProperties"}) {
    session.desk.OnForm([&](const std::string&) {
      session.main.tableEditor.txtSize.text = "77";
      session.Press(std::string_view(action) == "hog.hogList.DblClick" ? "FAT_Editor.cmdCancel" : "FAT_Editor.cmdSave");
      EXPECT_FALSE(session.main.tableEditor.shown);
    });
    session.Press(action);
  }
  EXPECT_EQ(session.main.hog.archive.entries[0].Size, 0x77U);
}

TEST(Sample, TheWholeCycleLeavesTheGameFolderAsItWas) {
  TemporaryFolder folder;
  const demo::Sample sample = NewSample(folder.Native("sample"));
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
