#include <gtest/gtest.h>

#include <array>
#include <string>

#include "prepared_session.h"
#include "program_under_test.h"

/// What the window is drawn with on Windows where it does not leave that to the toolkit: the tab strip, and the lists'
/// scroll bars.
namespace oravin::test {

namespace {

constexpr int letters = 3;  // colours of a text at least: its ground, its letters, their smooth edges

/// Every tab shows its caption, and an edge is drawn around the page on all sides.
void ExpectTabs(const Session& session) {
  const Json layout = Layout(session);
  ASSERT_EQ(layout["tabs"].size(), 6U);
  for (const Json& tab : layout["tabs"]) {
    EXPECT_GE(ColoursIn(session.desktop, RectangleFrom(tab["rectangle"])), letters) << tab["caption"];
  }
  const Rectangle whole = RectangleFrom(Control(session, "main.TabStrip1")["rectangle"]);
  const int below = RectangleFrom(layout["tabs"][0]["rectangle"]).height + 4;
  const Rectangle page{whole.x, whole.y + below, whole.width, whole.height - below};
  constexpr int edge = 4;
  const std::array<Rectangle, 3> sides = {{{page.x, page.y, edge, page.height},
                                           {page.x + page.width - edge, page.y, edge, page.height},
                                           {page.x, page.y + page.height - edge, page.width, edge}}};
  for (const Rectangle& side : sides) {
    EXPECT_GE(ColoursIn(session.desktop, side), 2) << side.x << "," << side.y << " " << side.width;
  }
}

}  // namespace

TEST(WindowsPainting, TheTabStripIsDrawnAndStaysWhenPagesAreTurnedAndTheWindowIsResized) {
  const Session session;
  ExpectTabs(session);
  ASSERT_TRUE(ChooseTab(session, "Hog Editor"));
  ExpectTabs(session);
  ResizeWindow(session.desktop, session.frame, 1240, 800);
  ASSERT_TRUE(Eventually([&] { return RectangleFrom(Control(session, "main.TabStrip1")["rectangle"]).width > 1200; }));
  ExpectTabs(session);
  EXPECT_TRUE(SaveScreenshot(session.desktop, "tabs_resized"));
}

TEST(WindowsPainting, TheListsHaveTheirScrollBarsFromTheStart) {
  const PreparedSession session("wine '" + WindowsPrograms().value() +
                                "/oravin-cli.exe' --yes --game \"$(winepath -w \"$game\")\" --program \"$(winepath -w "
                                "\"$program\")\" enable >/dev/null\n");
  for (const std::string name : {"switcher.swapOrgList", "switcher.swapToList"}) {
    const Json list = Control(session, name);
    ASSERT_GT(list["rows"].size(), 20U);
    const Rectangle whole = RectangleFrom(list["rectangle"]);
    constexpr int bar = 15;
    const Rectangle lowestArrow{whole.x + whole.width - bar, whole.y + whole.height - bar, bar, bar};
    EXPECT_GE(ColoursIn(session.desktop, lowestArrow), letters) << name;
  }
  EXPECT_TRUE(SaveScreenshot(session.desktop, "scroll_bars"));
}

}  // namespace oravin::test
