// The Switcher tab's actions over the whole program: what is selected, what is shown afterwards, what is closed before.

#include "base/file_error.h"
#include "session.h"
#include "tabs/archive_tab.h"

namespace oravin::test {
namespace {

constexpr const char* noCatalogue = "Error - ships.dat not found - Reinstall";

using Names = std::vector<std::string>;

/// An enabled installation with the archive open on its tab.
struct SwitcherHandlers : testing::Test {
  SwitcherHandlers() {
    session.Enable();
    session.Press("hog.cmdOpen");
  }

  void Swap(int target, int source) { session.Swap(target, source); }
  [[nodiscard]] bool ArchiveOpen() const { return IsArchiveOpen(session.main.hog); }
  [[nodiscard]] std::string Mark(int ship) const {
    return tab.swapOrgList.rows.at(*RowOf(tab.swapOrgList, ship)).texts.at(1);
  }
  [[nodiscard]] Names Marks() const {
    Names marks;
    for (const ListRow& row : tab.swapOrgList.rows) marks.push_back(row.texts.at(1));
    return marks;
  }
  [[nodiscard]] FolderImage Image() const { return ImageOf(installation.folder.native); }
  void ExpectNothingDone(const FolderImage& before) const {
    EXPECT_TRUE(SameImage(before, Image()));
    EXPECT_TRUE(ArchiveOpen());
  }

  SmallInstallation installation;
  Session session{installation};
  SwitcherTab& tab = session.main.switcher;
  ListView& statsShips = session.main.stats.shipEditingList;
};

TEST_F(SwitcherHandlers, ASwapShowsTheMarkInTheSelectedRowAndRefreshesTheStatsTab) {
  ClearRows(statsShips);
  Swap(alpha, manta);
  EXPECT_EQ(Mark(alpha), "--->Manta");
  EXPECT_EQ(Mark(bravo), "");
  EXPECT_FALSE(statsShips.rows.empty());
}

TEST_F(SwitcherHandlers, ASwapAndAnUnswapCloseTheArchive) {
  Swap(alpha, manta);
  EXPECT_FALSE(ArchiveOpen());
  session.Press("hog.cmdOpen");
  session.Unswap(alpha);
  EXPECT_FALSE(ArchiveOpen());
  session.Press("hog.cmdOpen");
  session.UnswapAll();
  EXPECT_FALSE(ArchiveOpen());
}

TEST_F(SwitcherHandlers, WithoutTheCatalogueNeitherASwapNorAnUnswapDoesAnything) {
  Swap(alpha, manta);
  session.Press("hog.cmdOpen");
  std::filesystem::remove(installation.Program("ships.dat"));
  const FolderImage before = Image();
  session.desk.ExpectBox(noCatalogue, "cmdSwap_Click()");
  Swap(bravo, manta);
  session.desk.ExpectBox(noCatalogue, "cmdUnSwap_Click()");
  session.Unswap(alpha);
  ExpectNothingDone(before);
  EXPECT_EQ(Mark(alpha), "--->Manta");
  EXPECT_EQ(Mark(bravo), "");
}

TEST_F(SwitcherHandlers, WithoutOneSelectedRowInEachListNothingHappens) {
  const FolderImage before = Image();
  session.Select(alpha, -1);
  session.Press("switcher.cmdSwap");
  session.Select(alpha, manta);
  SelectOnly(tab.swapOrgList, std::nullopt);
  session.Press("switcher.cmdSwap");
  session.Press("switcher.cmdUnswap");
  for (ListView* list : {&tab.swapOrgList, &tab.swapToList}) {
    session.Select(alpha, manta);
    list->rows.at(*RowOf(*list, bravo)).selected = true;
    session.Press("switcher.swapOrgList.ItemClick");
    EXPECT_FALSE(tab.cmdSwap.enabled);
    session.Press("switcher.cmdSwap");
  }
  ExpectNothingDone(before);
}

TEST_F(SwitcherHandlers, ARowOfAShipThatIsNotInTheCatalogueDoesNothing) {
  const FolderImage before = Image();
  session.Select(alpha, manta);
  for (const int item : {14, 98, -1}) {  // the 15th record is the sentinel
    tab.swapToList.rows[*SelectedRow(tab.swapToList)].item = item;
    session.Press("switcher.cmdSwap");
  }
  ExpectNothingDone(before);
}

TEST_F(SwitcherHandlers, WhatIsSwappedAlreadyAndWhatIsNotSwappedStayAsTheyAre) {
  Swap(alpha, manta);
  session.Press("hog.cmdOpen");
  const FolderImage before = Image();
  Swap(alpha, manta);
  session.Unswap(bravo);
  ExpectNothingDone(before);
}

TEST_F(SwitcherHandlers, ASwapThatFailsAfterTheCatalogueWasWrittenShowsTheMark) {
  std::filesystem::remove(installation.Game("ships/manta.shp"));
  session.desk.AllowOthers([](const Message&) { return Answer::ok; });
  Swap(alpha, manta);
  EXPECT_EQ(Mark(alpha), "--->Manta");
}

TEST_F(SwitcherHandlers, TheButtonsAreOnWithShipsThatTheyCanChange) {
  const auto select = [&](int target, int source) {
    session.Select(target, source);
    session.Press("switcher.swapOrgList.ItemClick");
  };
  EXPECT_FALSE(tab.cmdSwap.enabled) << "nothing is selected";
  EXPECT_FALSE(tab.cmdUnswap.enabled) << "nothing is selected";
  select(alpha, -1);
  EXPECT_FALSE(tab.cmdSwap.enabled) << "nothing on the right";
  select(alpha, manta);
  EXPECT_TRUE(tab.cmdSwap.enabled);
  EXPECT_FALSE(tab.cmdUnswap.enabled) << "it is not changed";
  session.Press("switcher.cmdSwap");
  EXPECT_TRUE(tab.cmdUnswap.enabled) << "it is changed";
  session.Press("switcher.cmdUnswap");
  EXPECT_FALSE(tab.cmdUnswap.enabled) << "it is restored";
  EXPECT_TRUE(tab.cmdSwap.enabled) << "the selection stays";
  session.Press("switcher.cmdSwap");
  session.UnswapAll();
  EXPECT_FALSE(tab.cmdUnswap.enabled) << "no ship is changed";
  session.Press("switcher.cmdToggle");
  EXPECT_FALSE(tab.cmdSwap.enabled) << "the lists were filled anew";
}

TEST_F(SwitcherHandlers, AnUnswapClearsItsMarkAndAllClearEveryMark) {
  for (const int target : {alpha, bravo, tiger}) Swap(target, manta);
  session.Unswap(alpha);
  EXPECT_EQ(Mark(alpha), "");
  EXPECT_EQ(Mark(bravo), "--->Manta");
  ClearRows(statsShips);
  session.UnswapAll();
  EXPECT_EQ(Marks(), Names(6));
  EXPECT_FALSE(statsShips.rows.empty());
}

TEST_F(SwitcherHandlers, AllWithoutTheCatalogueStillClearsTheMarks) {
  Swap(alpha, manta);
  std::filesystem::remove(installation.Program("ships.dat"));
  session.desk.ExpectBox(noCatalogue, "cmdUnSwap_Click()");
  session.UnswapAll();
  EXPECT_EQ(Marks(), Names(6));
}

TEST_F(SwitcherHandlers, EnablingAgainClearsTheMarksAlsoWhereItFailsAfterwards) {
  Swap(alpha, manta);
  session.main.host.files.before = [&](const FileOperation& operation) {
    if (operation.kind == FileOperation::Kind::rename && operation.second.ends_with("ships.dat")) {
      throw FileError("could not write", operation.second, "the disk is full");
    }
  };
  session.desk.AllowOthers([](const Message& box) { return box.buttons == Buttons::ok ? Answer::ok : Answer::yes; });
  session.Press("switcher.cmdEnable");
  EXPECT_EQ(Marks(), Names(6));
}

TEST_F(SwitcherHandlers, ARefillKeepsTheKindOfShipsAndEnablingShowsTheFighters) {
  session.Press("switcher.cmdToggle");
  EXPECT_EQ(tab.shown, ShipsShown::capitalShips);
  session.main.imports.lstImported.edited = {0, "Ray", false};
  session.Press("imports.lstImported.AfterLabelEdit");
  EXPECT_EQ(tab.shown, ShipsShown::capitalShips);
  EXPECT_TRUE(RowOf(tab.swapOrgList, cruiser));
  session.Enable();
  EXPECT_EQ(tab.shown, ShipsShown::fighters);
  EXPECT_EQ(tab.cmdToggle.caption, "&Display Capships");
  EXPECT_TRUE(RowOf(tab.swapOrgList, alpha));
}

TEST_F(SwitcherHandlers, DisablingEmptiesTheLists) {
  session.Press("switcher.cmdToggle");
  session.Disable();
  EXPECT_EQ(tab.shown, ShipsShown::fighters);
  EXPECT_EQ(tab.cmdToggle.caption, "&Display Capships");
  EXPECT_TRUE(tab.swapOrgList.rows.empty());
  EXPECT_TRUE(tab.swapToList.rows.empty());
  EXPECT_TRUE(statsShips.rows.empty());
  EXPECT_TRUE(session.main.imports.lstImported.rows.empty());
}

TEST_F(SwitcherHandlers, DisablingChangesNothingWhereTheSystemCannotSayWhetherTheCatalogueIsThere) {
  const std::string catalogue = installation.programPath + "ships.dat";
  session.main.host.files.before = [&](const FileOperation& operation) {
    if (operation.kind == FileOperation::Kind::look && operation.path == catalogue) {
      throw FileError("could not look for", catalogue, "the disk does not answer");
    }
  };
  const FolderImage before = Image();
  session.desk.ExpectQuestion(disableQuestion, Answer::yes);
  session.desk.ExpectBox("Error - could not look for " + catalogue + ": the disk does not answer",
                         "cmdDisable_Click()");
  session.Press("switcher.cmdDisable");
  EXPECT_TRUE(SameImage(before, Image()));
  session.desk.ExpectQuestion(enableQuestion, Answer::yes);
  session.desk.ExpectBox("Error - could not look for " + catalogue + ": the disk does not answer", "cmdEnable_Click()");
  session.Press("switcher.cmdEnable");
  EXPECT_TRUE(SameImage(before, Image()));
}

}  // namespace
}  // namespace oravin::test
