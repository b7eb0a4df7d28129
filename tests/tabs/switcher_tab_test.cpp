// What the two lists of the Switcher tab show.

#include <algorithm>

#include "catalogue/catalogue.h"
#include "support/scripted_desk.h"
#include "support/temporary_folder.h"
#include "tabs/switcher_tab.h"

namespace oravin::test {
namespace {

using Names = std::vector<std::string>;

constexpr std::uint8_t fighterClass = 0;
constexpr std::uint8_t cloakedClass = 2;

struct Display : testing::Test {
  Display() { installation.GamePath = folder.windows; }

  /// Adds a ship with its loose model.
  ShipRecord& Add(int kind, const std::string& name, std::uint8_t classByte) {
    Bytes model(40, 0x55);
    model[26] = classByte;
    ShipRecord ship;
    ship.ShipName.Set(name);
    ship.ShipFile.Set("model" + std::to_string(installation.ships.size()) + ".shp");
    ship.ShipKind = Int16Value(kind);
    WriteFileAt(folder.Native("ships/" + ModelOf(ship)), model);
    installation.ships.push_back(ship);
    return installation.ships.back();
  }
  void Show(bool capitalShips) {
    DisplaySwitcher(here.host, tab, installation, capitalShips ? ShipsShown::capitalShips : ShipsShown::fighters);
  }
  static Names KeysOf(const ListView& list) {
    Names keys;
    for (const ListRow& row : list.rows) keys.push_back("s" + std::to_string(row.item + 1));
    return keys;
  }

  TemporaryFolder folder;
  ScriptedHost here;
  Installation installation;
  SwitcherTab tab = NewSwitcherTab();
};

TEST_F(Display, TheTabsControlsHaveTheirCaptionsAndTooltips) {
  ASSERT_EQ(tab.swapOrgList.columns.size(), 2U);
  EXPECT_EQ(tab.swapOrgList.columns[0].heading, "Ship to change:");
  EXPECT_EQ(tab.swapOrgList.columns[1].heading, "Already changed to:");
  ASSERT_EQ(tab.swapToList.columns.size(), 1U);
  EXPECT_EQ(tab.swapToList.columns[0].heading, "Change to:");
  EXPECT_EQ(tab.cmdSwap.caption, "----->");
  EXPECT_EQ(tab.cmdSwap.tooltip, "Switches Ship");
  EXPECT_EQ(tab.cmdUnswap.caption, "<-----");
  EXPECT_EQ(tab.cmdUnswap.tooltip, "Unswitches Ship");
  EXPECT_EQ(tab.cmdUnswapAll.caption, "Unswap All");
  EXPECT_EQ(tab.cmdUnswapAll.tooltip, "Unswitches all ships");
  EXPECT_EQ(tab.cmdToggle.caption, "&Display Capships");
  EXPECT_EQ(tab.shown, ShipsShown::fighters);
}

/// One row of the table that decides where a ship is listed: 0 stands for no picture, that is for no row.
struct Rule {
  int kind;
  std::uint8_t classByte;
  bool capitalShips;
  int target;  ///< the picture in the left list
  int source;  ///< the picture in the right list
};

TEST_F(Display, KindClassAndModeDecideWhereAShipIsListedAndWithWhichPicture) {
  const std::vector<Rule> rules = {{2, 0, false, 2, 2}, {3, 0, false, 0, 5}, {1, 0, false, 3, 3}, {2, 1, true, 2, 2},
                                   {1, 1, true, 3, 3},  {3, 1, true, 0, 6},  {2, 0, true, 0, 0},  {3, 0, true, 0, 0},
                                   {1, 0, true, 0, 0},  {2, 1, false, 0, 0}, {1, 1, false, 0, 0}, {3, 1, false, 0, 0},
                                   {0, 0, false, 0, 0}, {0, 1, true, 0, 0},  {4, 0, false, 0, 0}, {4, 1, true, 0, 0},
                                   {-1, 0, false, 0, 0}};
  for (const Rule& rule : rules) {
    SCOPED_TRACE(testing::Message() << rule.kind << " " << int{rule.classByte} << " " << rule.capitalShips);
    installation.ships.clear();
    Add(rule.kind, "Name", rule.classByte);
    Show(rule.capitalShips);
    ASSERT_EQ(tab.swapOrgList.rows.size(), rule.target == 0 ? 0U : 1U);
    ASSERT_EQ(tab.swapToList.rows.size(), rule.source == 0 ? 0U : 1U);
    if (rule.target != 0) {
      EXPECT_EQ(tab.swapOrgList.rows[0].item, 0);
      EXPECT_EQ(tab.swapOrgList.rows[0].texts, (Names{"Name", ""}));
      EXPECT_EQ(tab.swapOrgList.rows[0].image, rule.target);
    }
    if (rule.source != 0) {
      EXPECT_EQ(tab.swapToList.rows[0].item, 0);
      EXPECT_EQ(tab.swapToList.rows[0].texts, Names{"Name"});
      EXPECT_EQ(tab.swapToList.rows[0].image, rule.source);
    }
  }
}

TEST_F(Display, ThreeClassesAreCapitalShipsAndACloakIsForFighters) {
  for (const int capitalClass : {1, 3, 5}) Add(1, "Capital", static_cast<std::uint8_t>(capitalClass));
  for (const int fighter : {0, 2, 4, 6, 255})
    Add(1, "Fighter" + std::to_string(fighter), static_cast<std::uint8_t>(fighter));
  for (std::size_t i = 0; i < 3; ++i) installation.ships[i].ShipName.Set("Capital" + std::to_string(i));
  Show(true);
  EXPECT_EQ(KeysOf(tab.swapOrgList), (Names{"s1", "s2", "s3"}));
  Show(false);
  EXPECT_EQ(KeysOf(tab.swapOrgList), (Names{"s4", "s5", "s6", "s7", "s8"}));
}

TEST_F(Display, ShipsComeInTheCataloguesOrderWithKeysCountedFromOne) {
  Add(1, "Alpha", fighterClass);
  Add(3, "Manta", cloakedClass);
  Add(2, "Bravo", cloakedClass);
  Show(false);
  EXPECT_EQ(KeysOf(tab.swapOrgList), (Names{"s1", "s3"}));
  EXPECT_EQ(KeysOf(tab.swapToList), (Names{"s1", "s2", "s3"}));
}

TEST_F(Display, TheListsAreFilledAnew) {
  Add(1, "Alpha", fighterClass);
  Show(false);
  const unsigned revision = tab.swapOrgList.revision;
  Show(false);
  EXPECT_EQ(tab.swapOrgList.rows.size(), 1U);
  EXPECT_EQ(tab.swapToList.rows.size(), 1U);
  EXPECT_NE(tab.swapOrgList.revision, revision);
}

TEST_F(Display, AChangedShipShowsWhatItIsChangedTo) {
  ShipRecord& ship = Add(1, "Alpha", fighterClass);
  ship.ChangedToName.Set("  Manta ");
  Show(false);
  EXPECT_EQ(tab.swapOrgList.rows[0].texts[1], "");
  ship.Changed = true;
  Show(false);
  EXPECT_EQ(tab.swapOrgList.rows[0].texts[1], "--->Manta");
  EXPECT_EQ(tab.swapToList.rows[0].texts.size(), 1U);
}

TEST_F(Display, ATwoPartShipIsOneRowAndItsSecondPartIsNotLookedAt) {
  Add(1, "Tiger", fighterClass);
  Add(1, "TIGER ", fighterClass);
  Add(2, "Bravo", fighterClass);
  MarkSecondParts(installation.ships);
  std::filesystem::remove(folder.Native("ships/model1.shp"));
  Show(false);
  EXPECT_EQ(KeysOf(tab.swapOrgList), (Names{"s1", "s3"}));
  EXPECT_EQ(KeysOf(tab.swapToList), (Names{"s1", "s3"}));
}

TEST_F(Display, ASecondPartIsNeverListedByItselfEvenWhereTheFirstIsNotListed) {
  Add(1, "Tiger", fighterClass);
  Add(1, "Tiger", 1);
  MarkSecondParts(installation.ships);
  Show(true);
  EXPECT_TRUE(tab.swapOrgList.rows.empty());
  EXPECT_TRUE(tab.swapToList.rows.empty());
}

TEST_F(Display, OfThreeRecordsWithOneNameTheThirdIsListedToo) {
  for (int i = 0; i < 3; ++i) Add(1, "Tiger", fighterClass);
  MarkSecondParts(installation.ships);
  Show(false);
  EXPECT_EQ(KeysOf(tab.swapOrgList), (Names{"s1", "s3"}));
}

TEST_F(Display, RecordsWithoutAModelAreNeitherLookedAtNorListed) {
  Add(1, "Alpha", fighterClass);
  installation.ships[0].ShipFile.Set("");
  installation.ships.emplace_back();
  Show(false);
  EXPECT_TRUE(tab.swapOrgList.rows.empty());
  EXPECT_TRUE(tab.swapToList.rows.empty());
}

TEST_F(Display, AMissingModelGivesItsBoxAndCountsAsAFighter) {
  Add(1, "Alpha", 1);
  std::filesystem::remove(folder.Native("ships/model0.shp"));
  here.desk.ExpectBox("Error - file not found", "IsCapitalShip");
  Show(false);
  EXPECT_EQ(KeysOf(tab.swapOrgList), Names{"s1"});
  here.desk.ExpectBox("Error - file not found", "IsCapitalShip");
  Show(true);
  EXPECT_TRUE(tab.swapOrgList.rows.empty());
}

TEST_F(Display, AModelTooShortForAClassCountsAsAFighterWithoutAWord) {
  Add(1, "Alpha", 1);
  WriteFileAt(folder.Native("ships/model0.shp"), Bytes(26, 1));
  Show(false);
  EXPECT_EQ(KeysOf(tab.swapOrgList), Names{"s1"});
}

struct Toggle : Display {
  Toggle() {
    Add(1, "Fighter", fighterClass);
    Add(1, "Capital", 1);
  }
  void Press() { cmdToggle_Click(here.host, tab, installation); }
};

TEST_F(Toggle, ShowsTheOtherKindOfShipsAndFlipsTheCaption) {
  Show(false);
  Press();
  EXPECT_EQ(KeysOf(tab.swapOrgList), Names{"s2"});
  EXPECT_EQ(tab.shown, ShipsShown::capitalShips);
  EXPECT_EQ(tab.cmdToggle.caption, "&Display Fighters");
  Press();
  EXPECT_EQ(KeysOf(tab.swapOrgList), Names{"s1"});
  EXPECT_EQ(tab.shown, ShipsShown::fighters);
  EXPECT_EQ(tab.cmdToggle.caption, "&Display Capships");
}

TEST_F(Toggle, TheFirstRowDecidesNotTheCaption) {
  Show(true);
  Press();
  EXPECT_EQ(KeysOf(tab.swapOrgList), Names{"s1"});
  EXPECT_EQ(tab.cmdToggle.caption, "&Display Fighters");
}

TEST_F(Toggle, TheCaptionIsMadeFromTheKindThatIsShown) {
  tab.cmdToggle.caption = "&Display fighters";
  Show(false);
  Press();
  EXPECT_EQ(tab.shown, ShipsShown::capitalShips);
  EXPECT_EQ(tab.cmdToggle.caption, "&Display Fighters");
  EXPECT_EQ(KeysOf(tab.swapOrgList), Names{"s2"});
}

TEST_F(Toggle, WithoutStockShipsOfTheOtherKindOnlyTheCaptionFlips) {
  installation.ships.pop_back();
  Show(false);
  Press();
  EXPECT_TRUE(tab.swapOrgList.rows.empty());
  EXPECT_EQ(tab.cmdToggle.caption, "&Display Fighters");
  Press();  // the first ship is a fighter, so the capital ships are shown again
  EXPECT_TRUE(tab.swapOrgList.rows.empty());
  EXPECT_EQ(tab.cmdToggle.caption, "&Display Capships");
}

struct Marks : Display {
  Marks() {
    for (const char* name : {"Alpha", "Bravo"}) Add(1, name, fighterClass);
    for (ShipRecord& ship : installation.ships) {
      ship.Changed = true;
      ship.ChangedToName.Set("Manta");
    }
    Show(false);
  }
  [[nodiscard]] Names SecondColumn() const {
    Names texts;
    for (const ListRow& row : tab.swapOrgList.rows) texts.push_back(row.texts.at(1));
    return texts;
  }
};

TEST_F(Marks, TheMarkOfOneShipFollowsItsRecord) {
  EXPECT_EQ(SecondColumn(), (Names{"--->Manta", "--->Manta"}));
  for (ShipRecord& ship : installation.ships) ship.ChangedToName.Set("Wraith");
  ShowMark(tab, installation, 1);
  EXPECT_EQ(SecondColumn(), (Names{"--->Manta", "--->Wraith"}));
  installation.ships[0].Changed = false;
  ShowMark(tab, installation, 0);
  EXPECT_EQ(SecondColumn(), (Names{"", "--->Wraith"}));
  for (const int none : {-1, 2}) ShowMark(tab, installation, none);
  EXPECT_EQ(SecondColumn(), (Names{"", "--->Wraith"}));
}

TEST_F(Marks, AllCanBeCleared) {
  ClearMarks(tab);
  EXPECT_EQ(SecondColumn(), Names(2));
}

TEST_F(Toggle, WithAnEmptyListTheFirstShipDecides) {
  Press();  // the first ship is a fighter
  EXPECT_EQ(KeysOf(tab.swapOrgList), Names{"s2"});
  std::swap(installation.ships[0], installation.ships[1]);
  ClearRows(tab.swapOrgList);
  Press();  // now it is a capital ship
  EXPECT_EQ(KeysOf(tab.swapOrgList), Names{"s2"});
  EXPECT_EQ(tab.swapOrgList.rows[0].texts[0], "Fighter");
}

TEST_F(Toggle, WithAnEmptyListAnImportedFirstShipDecidesAsWell) {
  installation.ships[1].ShipKind = Int16Value(3);
  std::swap(installation.ships[0], installation.ships[1]);
  Press();
  EXPECT_EQ(KeysOf(tab.swapOrgList), Names{"s2"});
}

TEST_F(Toggle, WithoutAnyShipOnlyTheCaptionFlips) {
  installation.ships.clear();
  Press();
  EXPECT_TRUE(tab.swapOrgList.rows.empty());
  EXPECT_EQ(tab.cmdToggle.caption, "&Display Fighters");
  installation.ships.emplace_back();
  Press();
  EXPECT_EQ(tab.cmdToggle.caption, "&Display Capships");
}

}  // namespace
}  // namespace oravin::test
