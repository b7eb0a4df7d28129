// Removing imported ships on their tab: what is asked, and what is shown afterwards.

#include "base/file_error.h"
#include "session.h"
#include "tabs/archive_tab.h"
#include "tabs/stats_tab.h"

namespace oravin::test {
namespace {

constexpr const char* question = "Are you sure that you want to remove these ships?";
constexpr const char* textureQuestion =
    "Do you also want to remove the associated textures for this model?\n"
    "It may take up to ten seconds to rebuild TCACHE file.\n"
    "(Won't remove textures shared with ships not being removed)";

/// An enabled installation with the archive open on its tab.
struct RemoveHandlers : testing::Test {
  RemoveHandlers() {
    session.Enable();
    session.Press("hog.cmdOpen");
  }

  void SelectImported(const std::vector<int>& ships) {
    SelectAll(imports.lstImported, false);
    for (const int ship : ships) imports.lstImported.rows.at(*RowOf(imports.lstImported, ship)).selected = true;
    session.Press("imports.lstImported.ItemClick");
  }
  void AnswerBoth() {
    session.desk.ExpectQuestion(question, Answer::yes, "Oravin - Manage Switcher");
    session.desk.ExpectQuestion(textureQuestion, Answer::yes);
  }
  void Remove(const std::vector<int>& ships) {
    SelectImported(ships);
    AnswerBoth();
    session.desk.ExpectSuccess("Removal Complete");
    session.Press("imports.cmdRemoveShips");
    EXPECT_TRUE(session.desk.Done());
  }
  [[nodiscard]] FolderImage Image() const { return ImageOf(installation.folder.native); }
  void ExpectNothingDone(const FolderImage& before) const {
    EXPECT_TRUE(SameImage(before, Image()));
    EXPECT_TRUE(IsArchiveOpen(session.main.hog));
  }

  SmallInstallation installation;
  Session session{installation};
  ImportTab& imports = session.main.imports;
};

TEST_F(RemoveHandlers, TheListsAreFilledBeforeTheLastMessage) {
  SelectImported({manta});
  AnswerBoth();
  bool listed = true;
  session.desk.AllowOthers([&](const Message& box) {
    EXPECT_EQ(box.text, "Removal Complete");
    listed = RowOf(imports.lstImported, colossus).has_value() || RowOf(session.main.switcher.swapToList, colossus);
    return Answer::ok;
  });
  session.Press("imports.cmdRemoveShips");
  EXPECT_FALSE(listed);
  EXPECT_FALSE(IsArchiveOpen(session.main.hog));
}

TEST_F(RemoveHandlers, NoToTheFirstQuestionEndsIt) {
  const FolderImage before = Image();
  SelectImported({manta});
  session.desk.ExpectQuestion(question, Answer::no, "Oravin - Manage Switcher");
  session.Press("imports.cmdRemoveShips");
  ExpectNothingDone(before);
}

TEST_F(RemoveHandlers, WithoutASelectedShipNothingIsAsked) {
  const FolderImage before = Image();
  session.Press("imports.cmdRemoveShips");
  for (const int item : {int{alpha}, 14, -1}) {
    imports.lstImported.rows[0].item = item;
    imports.lstImported.rows[0].selected = true;
    session.Press("imports.cmdRemoveShips");
  }
  ExpectNothingDone(before);
}

TEST_F(RemoveHandlers, WithoutTheCatalogueItSaysSoAndTouchesNothing) {
  std::filesystem::remove(installation.Program("ships.dat"));
  const FolderImage before = Image();
  SelectImported({manta});
  session.desk.ExpectQuestion(question, Answer::yes, "Oravin - Manage Switcher");
  session.desk.ExpectBox("Error - ships.dat not found - Reinstall", "cmdRemoveShips_Click()");
  session.Press("imports.cmdRemoveShips");
  ExpectNothingDone(before);
}

TEST_F(RemoveHandlers, AllRemovesEveryShipAndOfNoShipsAsksNothing) {
  AnswerBoth();
  session.desk.ExpectSuccess("Removal Complete");
  session.Press("imports.cmdRemoveAll");
  EXPECT_TRUE(session.desk.Done());
  EXPECT_TRUE(imports.lstImported.rows.empty());
  EXPECT_FALSE(imports.cmdRemoveAll.enabled);
  EXPECT_EQ(session.main.installation.ships.size(), 12U);
  session.Press("imports.cmdRemoveAll");
}

TEST_F(RemoveHandlers, TheStatsTabKeepsTheShipsThatItShowsAndRemembers) {
  StatsTab& stats = session.main.stats;
  SelectOnly(stats.shipEditingList, RowOf(stats.shipEditingList, colossus));
  stats.remembered = RememberedShip{wraith, "Wraith"};
  Remove({manta});
  EXPECT_EQ(SelectedShip(stats), colossus - 1);
  EXPECT_EQ(RememberedShipIn(stats, session.main.installation.ships), wraith - 1);
  Remove({wraith - 1, colossus - 1});
  EXPECT_EQ(SelectedShip(stats), -1);
  EXPECT_FALSE(stats.remembered);
}

TEST_F(RemoveHandlers, ARemovalThatFailsHalfWayShowsWhatIsLeft) {
  session.Swap(alpha, manta);
  SelectImported({manta});
  AnswerBoth();
  session.main.host.files.before = [&](const FileOperation& operation) {
    if (operation.kind == FileOperation::Kind::rename && operation.second.ends_with("ships.dat")) {
      throw FileError("could not write", operation.second, "the disk is full");
    }
  };
  session.desk.ExpectBox("Error - could not write " + installation.programPath + "ships.dat: the disk is full",
                         "cmdRemoveShips_Click()");
  // The model is deleted already, and the switcher's lists look for it.
  session.desk.AllowOthers([](const Message&) { return Answer::ok; });
  session.Press("imports.cmdRemoveShips");
  const ListView& targets = session.main.switcher.swapOrgList;
  EXPECT_EQ(targets.rows.at(*RowOf(targets, alpha)).texts.at(1), "");
  EXPECT_TRUE(RowOf(imports.lstImported, manta));
}

}  // namespace
}  // namespace oravin::test
