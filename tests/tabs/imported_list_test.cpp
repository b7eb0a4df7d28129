// The list of imported ships and its buttons.

#include "tabs/imported_list.h"

#include "actions/imported_parts.h"
#include "support/imported_stage.h"

namespace oravin::test {
namespace {

struct ImportedList : testing::Test {
  void Display() { DisplayImported(stage.host, tab, stage.installation); }
  bool Edit(std::size_t row, const std::string& text) {
    tab.lstImported.edited = {row, text, false};
    return lstImported_AfterLabelEdit(stage.host, tab, stage.installation);
  }
  [[nodiscard]] std::vector<std::string> Shown() const {
    std::vector<std::string> shown;
    for (const ListRow& row : tab.lstImported.rows) {
      shown.push_back("s" + std::to_string(row.item + 1) + " " + row.texts[0] + " " + std::to_string(row.image) +
                      (row.selected ? " *" : ""));
    }
    return shown;
  }
  void Rebuild() {
    stage.files.WriteShipList();
    EXPECT_TRUE(stage.Rebuild());
  }

  using Rows = std::vector<std::string>;

  ImportedStage stage;
  ImportTab tab = NewImportTab();
};

TEST_F(ImportedList, ShowsTheImportedShipsWithTheirPictures) {
  Display();
  EXPECT_EQ(Shown(), (Rows{"s12 Manta 5", "s13 Wraith 5", "s14 Colossus 6"}));
}

TEST_F(ImportedList, KnowsWhichOfThemAreCapitalShips) {
  Display();
  EXPECT_EQ(tab.capitalShips, (std::set<int>{colossus}));
  stage.installation.ships.clear();
  Display();
  EXPECT_TRUE(tab.capitalShips.empty());
}

TEST_F(ImportedList, TheSelectedShipsAreThoseOfItsRows) {
  Display();
  EXPECT_TRUE(SelectedImported(tab, stage.installation.ships).empty());
  tab.lstImported.rows[0].selected = true;
  tab.lstImported.rows[2].selected = true;
  EXPECT_EQ(SelectedImported(tab, stage.installation.ships), (std::vector<int>{manta, colossus}));
  for (const int item : {int{alpha}, 14, -1}) {
    tab.lstImported.rows[0].item = item;
    EXPECT_EQ(SelectedImported(tab, stage.installation.ships), std::vector<int>{colossus}) << item;
  }
}

TEST_F(ImportedList, TheEditedLabelIsTakenOrRefused) {
  Display();
  EXPECT_TRUE(Edit(1, " Ghost "));
  EXPECT_FALSE(tab.lstImported.edited.refused);
  EXPECT_EQ(tab.lstImported.rows[1].texts[0], "Ghost");
  EXPECT_EQ(stage.RecordOnDisk(wraith).ShipName.Trimmed(), "Ghost");
  stage.desk.ExpectBox("The ship name 'Manta' has the same name as an existing ship.");
  EXPECT_FALSE(Edit(1, "Manta"));
  EXPECT_TRUE(tab.lstImported.edited.refused);
  EXPECT_EQ(tab.lstImported.rows[1].texts[0], "Ghost");
}

TEST_F(ImportedList, AnEditedRowThatIsNotThereIsRefused) {
  Display();
  const FolderImage before = stage.Image();
  EXPECT_FALSE(Edit(3, "Ghost"));
  EXPECT_TRUE(tab.lstImported.edited.refused);
  tab.lstImported.rows[0].item = 14;  // the sentinel
  EXPECT_FALSE(Edit(0, "Ghost"));
  EXPECT_TRUE(SameImage(before, stage.Image()));
}

TEST_F(ImportedList, IsEmptyWithoutACatalogueAndItsButtonsAreOff) {
  Display();
  stage.installation.ships.clear();
  Display();
  EXPECT_EQ(Shown(), Rows());
  EXPECT_FALSE(tab.cmdRemoveShips.enabled);
  EXPECT_FALSE(tab.cmdRemoveAll.enabled);
}

TEST_F(ImportedList, AButtonIsOnWhereItCanDoSomething) {
  Display();
  EXPECT_FALSE(tab.cmdRemoveShips.enabled);
  EXPECT_TRUE(tab.cmdRemoveAll.enabled);
  SelectOnly(tab.lstImported, 1);
  lstImported_ItemClick(tab);
  EXPECT_TRUE(tab.cmdRemoveShips.enabled);
  SelectOnly(tab.lstImported, std::nullopt);
  lstImported_ItemClick(tab);
  EXPECT_FALSE(tab.cmdRemoveShips.enabled);
}

TEST_F(ImportedList, SelectedShipsStaySelectedByTheirNamesWhereverTheyAre) {
  Display();
  SelectAll(tab.lstImported, true);
  tab.lstImported.rows[0].selected = false;
  stage.installation.ships.erase(stage.installation.ships.begin());
  Display();
  EXPECT_EQ(Shown(), (Rows{"s11 Manta 5", "s12 Wraith 5 *", "s13 Colossus 6 *"}));
  EXPECT_TRUE(tab.cmdRemoveShips.enabled);
}

TEST_F(ImportedList, AMissingModelIsPassedOverWithoutABox) {
  std::filesystem::remove(stage.Model(colossus));
  Display();
  EXPECT_EQ(Shown().back(), "s14 Colossus 5");
}

TEST_F(ImportedList, AShipWithoutAModelIsNotShown) {
  stage.files.ships[wraith].file = "";
  Rebuild();
  Display();
  EXPECT_EQ(Shown(), (Rows{"s12 Manta 5", "s14 Colossus 6"}));
}

TEST_F(ImportedList, TwoImportedPartsAreOneItem) {
  stage.files.ships[wraith].name = "MANTA ";
  Rebuild();
  Display();
  EXPECT_EQ(Shown(), (Rows{"s12 Manta 5", "s14 Colossus 6"}));
  EXPECT_EQ(ImportedParts(stage.installation.ships, manta), (std::vector<std::size_t>{manta, wraith}));
  EXPECT_TRUE(ImportedParts(stage.installation.ships, wraith).empty());
}

TEST_F(ImportedList, OfThreePartsTheThirdIsAnItemAgain) {
  stage.files.ships[wraith].name = "Manta";
  stage.files.ships[colossus].name = "Manta";
  Rebuild();
  Display();
  EXPECT_EQ(Shown(), (Rows{"s12 Manta 5", "s14 Manta 6"}));
  EXPECT_EQ(ImportedParts(stage.installation.ships, colossus), (std::vector<std::size_t>{colossus}));
}

TEST_F(ImportedList, AnImportedShipBehindAStockShipOfItsNameIsAnItem) {
  stage.files.ships[manta].name = "Twin";
  Rebuild();
  Display();
  EXPECT_EQ(Shown(), (Rows{"s12 Twin 5", "s13 Wraith 5", "s14 Colossus 6"}));
}

TEST_F(ImportedList, OnlyAnImportedShipHasImportedParts) {
  for (const int index : {-1, int{alpha}, int{tiger}, 14, 99}) {
    EXPECT_TRUE(ImportedParts(stage.installation.ships, index).empty()) << index;
  }
}

TEST_F(ImportedList, ShowsThreeHundred) {
  for (int i = 0; i < 297; ++i) {
    stage.files.ships.push_back(stage.files.ships[wraith]);
    stage.files.ships.back().name = "Copy " + std::to_string(i);
  }
  Rebuild();
  Display();
  EXPECT_EQ(Shown().size(), 300U);
  EXPECT_EQ(Shown().back(), "s311 Copy 296 5");
}

}  // namespace
}  // namespace oravin::test
