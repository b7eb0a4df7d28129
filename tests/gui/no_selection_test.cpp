#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "session.h"
#include "support/folder_image.h"

/// Lists in which no row is selected: whatever heading is clicked and whatever key is pressed there, none is selected
/// unless the screen shows it, and no action works on one.
namespace oravin::test {

namespace {

/// Keys that select nothing and leave the focus where it is; the Tab key has tests of its own.
const std::vector<std::string> keys = {"Return", "Escape", "Delete", "BackSpace", "ctrl+c", "F5"};

/// Keys that may select the row that they lead to.
const std::vector<std::string> ways = {"Down", "End", "Up", "Home", "Next", "Prior", "space"};

struct NoSelection : testing::Test {
  NoSelection() {
    if (!EnableFeatures(session)) throw std::runtime_error("the features are not enabled");
    before = ImageOf(session.folder.native / "sample");
  }

  [[nodiscard]] std::size_t SelectedInRecord(const std::string& list) const {
    return Control(session, list)["selected"].get<std::size_t>();
  }

  [[nodiscard]] std::size_t SelectedOnScreen(const std::string& list) const {
    std::size_t count = 0;
    const Json control = Control(session, list);
    for (const Json& row : control["rows"]) count += row["selected"] == true ? 1U : 0U;
    return count;
  }

  /// Brings the focus to a list by the Tab key, which selects nothing.
  [[nodiscard]] bool FocusByKey(const std::string& list) const {
    constexpr int controlsOnAPage = 40;
    for (int presses = 0; presses < controlsOnAPage; ++presses) {
      const Json focus = Layout(session)["focus"];
      if (focus == list) return true;
      PressKey(session.desktop, "Tab");
      if (!Eventually([&] { return Layout(session)["focus"] != focus; })) return false;
    }
    return false;
  }

  /// The window has handled all that was sent to it: the next tab that is chosen comes after it.
  void Settle(const std::string& tab) const {
    ASSERT_TRUE(ChooseTab(session, "About"));
    ASSERT_TRUE(ChooseTab(session, tab));
  }

  void ExpectNone(const std::string& list, const std::string& after) const {
    EXPECT_EQ(SelectedInRecord(list), 0U) << list << " after " << after;
    EXPECT_EQ(SelectedOnScreen(list), 0U) << list << " after " << after;
    EXPECT_TRUE(Layout(session)["box"].is_null()) << list << " after " << after;
  }

  /// Clicks on each heading of a list and presses each key in it.
  void Walk(const std::string& tab, const std::string& list) const {
    const Json control = Control(session, list);
    ASSERT_GT(control["rowCount"], 0) << list;
    for (std::size_t column = 0; column < control["columns"].size(); ++column) {
      ClickHeading(session, list, column);
      Settle(tab);
      ExpectNone(list, "heading " + std::to_string(column));
    }
    ASSERT_TRUE(FocusByKey(list)) << list;
    for (const std::string& key : keys) {
      PressKey(session.desktop, key);
      ExpectNone(list, key);
    }
    Settle(tab);
    ExpectNone(list, "all keys");
  }

  void ExpectUntouched() const { EXPECT_TRUE(SameImage(before, ImageOf(session.folder.native / "sample"))); }

  Session session;
  FolderImage before;
};

TEST_F(NoSelection, HeadingsAndKeysOfTheSwitcherSwitchNoHiddenShip) {
  for (const std::string list : {"switcher.swapOrgList", "switcher.swapToList"}) {
    ASSERT_NO_FATAL_FAILURE(Walk("Switcher", list));
  }
  for (const std::string button : {"switcher.cmdSwap", "switcher.cmdUnswap"}) {
    EXPECT_EQ(Control(session, button)["enabled"], false) << button;
    ClickOn(session, button);
  }
  EXPECT_TRUE(SaveScreenshot(session.desktop, "nothing_selected"));
  Settle("Switcher");
  ExpectUntouched();
}

TEST_F(NoSelection, ATabKeyLoadsNoShipOnTheStatsPage) {
  ASSERT_TRUE(ChooseTab(session, "Ship Stats / Guns"));
  for (int walk = 0; walk < 12; ++walk) {
    PressKey(session.desktop, walk < 6 ? "Tab" : "shift+Tab");
    ExpectNone("stats.shipEditingList", "a Tab key");
  }
  Settle("Ship Stats / Guns");
  ExpectNone("stats.shipEditingList", "the Tab keys");
  EXPECT_EQ(Control(session, "stats.shipStatsList")["rowCount"], 0);
  EXPECT_EQ(Control(session, "stats.shipWeaponsList")["rowCount"], 0);
  EXPECT_EQ(Control(session, "stats.cmdRestoreShipStats")["enabled"], false);
  EXPECT_TRUE(SaveScreenshot(session.desktop, "nothing_selected_stats"));
  ExpectUntouched();
}

TEST_F(NoSelection, HeadingsAndKeysOfTheOtherPagesChangeNothing) {
  ASSERT_TRUE(ChooseTab(session, "Import Ships"));
  ASSERT_NO_FATAL_FAILURE(Walk("Import Ships", "imports.lstImported"));
  EXPECT_EQ(Control(session, "imports.cmdRemoveShips")["enabled"], false);
  ASSERT_TRUE(ChooseTab(session, "Hog Editor"));
  ClickOn(session, "hog.cmdOpen");
  ASSERT_TRUE(Becomes(session, "hog.cmdCloseHog", "enabled", true));
  ASSERT_NO_FATAL_FAILURE(Walk("Hog Editor", "hog.hogList"));
  ASSERT_TRUE(ChooseTab(session, "Tcache Editor"));
  ClickOn(session, "tcache.cmdOpenTcache");
  ASSERT_TRUE(Becomes(session, "tcache.cmdCloseTcache", "enabled", true));
  ASSERT_NO_FATAL_FAILURE(Walk("Tcache Editor", "tcache.lstTcache"));
  EXPECT_TRUE(SaveScreenshot(session.desktop, "nothing_selected_tcache"));
  ExpectUntouched();
}

TEST_F(NoSelection, AKeyThatLeadsToARowSelectsTheOneInSight) {
  ASSERT_TRUE(FocusByKey("switcher.swapOrgList"));
  for (const std::string& key : ways) {
    PressKey(session.desktop, key);
    EXPECT_TRUE(Eventually([&] {
      return SelectedInRecord("switcher.swapOrgList") == SelectedOnScreen("switcher.swapOrgList");
    })) << key;
    EXPECT_LE(SelectedOnScreen("switcher.swapOrgList"), 1U) << key;
  }
  EXPECT_EQ(Control(session, "switcher.cmdSwap")["enabled"], false) << "no row on the right is selected";
  Settle("Switcher");
  ExpectUntouched();
}

TEST_F(NoSelection, UnswitchingByTheKeyboardHandsTheFocusOn) {
  const std::string target = Control(session, "switcher.swapOrgList")["rows"][0]["texts"][0];
  const std::string source = Control(session, "switcher.swapToList")["rows"][1]["texts"][0];
  ASSERT_TRUE(SelectRow(session, "switcher.swapOrgList", target));
  EXPECT_EQ(Control(session, "switcher.cmdSwap")["enabled"], false) << "no row on the right is selected";
  ASSERT_TRUE(SelectRow(session, "switcher.swapToList", source));
  ASSERT_TRUE(Becomes(session, "switcher.cmdSwap", "enabled", true));
  EXPECT_EQ(Control(session, "switcher.cmdUnswap")["enabled"], false) << "the ship is not switched";
  ClickOn(session, "switcher.cmdSwap");
  ASSERT_TRUE(Becomes(session, "switcher.cmdUnswap", "enabled", true));
  EXPECT_EQ(RowOf(session, "switcher.swapOrgList", target)["texts"][1], "--->" + source);
  EXPECT_TRUE(SaveScreenshot(session.desktop, "switched"));
  PressKey(session.desktop, "Tab");
  ASSERT_TRUE(FocusIs(session, "switcher.cmdUnswap"));
  PressKey(session.desktop, "space");
  ASSERT_TRUE(Becomes(session, "switcher.cmdUnswap", "enabled", false));
  EXPECT_TRUE(FocusIs(session, "switcher.cmdUnswapAll"));
  PressKey(session.desktop, "Tab");
  EXPECT_TRUE(FocusIs(session, "switcher.cmdToggle"));
}

}  // namespace

}  // namespace oravin::test
