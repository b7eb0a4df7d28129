#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "session.h"

/// Where things are in the window, and how they are reached.
namespace oravin::test {

namespace {

const std::vector<std::string>& Tabs() {
  static const std::vector<std::string> tabs = {"Switcher",   "Ship Stats / Guns", "Import Ships",
                                                "Hog Editor", "Tcache Editor",     "About"};
  return tabs;
}

bool Inside(const Json& inner, const Json& outer) {
  return inner["x"] >= outer["x"] && inner["y"] >= outer["y"] &&
         inner["x"].get<int>() + inner["width"].get<int>() <= outer["x"].get<int>() + outer["width"].get<int>() &&
         inner["y"].get<int>() + inner["height"].get<int>() <= outer["y"].get<int>() + outer["height"].get<int>();
}

bool Apart(const Json& a, const Json& b) {
  return a["x"].get<int>() + a["width"].get<int>() <= b["x"] || b["x"].get<int>() + b["width"].get<int>() <= a["x"] ||
         a["y"].get<int>() + a["height"].get<int>() <= b["y"] || b["y"].get<int>() + b["height"].get<int>() <= a["y"];
}

/// The controls of the page in sight.
std::vector<Json> ControlsInSight(const Json& layout) {
  std::vector<Json> controls;
  for (const Json& control : layout["controls"]) {
    if (control["shown"] == true && control["name"] != "main.TabStrip1") controls.push_back(control);
  }
  return controls;
}

void ExpectInPlace(const Session& session) {
  for (const std::string& tab : Tabs()) {
    SCOPED_TRACE(tab);
    ASSERT_TRUE(ChooseTab(session, tab));
    const Json layout = Layout(session);
    const std::vector<Json> controls = ControlsInSight(layout);
    ASSERT_FALSE(controls.empty());
    for (std::size_t i = 0; i < controls.size(); ++i) {
      const Json& rectangle = controls[i]["rectangle"];
      EXPECT_TRUE(Inside(rectangle, layout["client"])) << controls[i].dump();
      EXPECT_GE(rectangle["width"], controls[i]["wants"]["width"]) << controls[i].dump();
      EXPECT_GE(rectangle["height"], controls[i]["wants"]["height"]) << controls[i].dump();
      for (std::size_t j = 0; j < i; ++j) {
        EXPECT_TRUE(Apart(rectangle, controls[j]["rectangle"]))
            << controls[i]["name"] << " and " << controls[j]["name"];
      }
    }
  }
}

bool BecomesWide(const Session& session, int width, int height) {
  ResizeWindow(session.desktop, session.frame, width, height);
  return Eventually([&] {
    const Json client = Layout(session)["client"];
    return client["width"] == width && client["height"].get<int>() > height - 60 && client["height"] <= height;
  });
}

}  // namespace

TEST(WindowLayout, EveryTabByClick) {
  const Session session;
  std::vector<std::string> captions;
  const Json layout = Layout(session);
  for (const Json& tab : layout["tabs"]) captions.push_back(tab["caption"]);
  ASSERT_EQ(captions, Tabs());
  for (std::size_t i = 0; i < Tabs().size(); ++i) {
    ASSERT_TRUE(ChooseTab(session, Tabs()[i])) << Tabs()[i];
    EXPECT_FALSE(ControlsInSight(Layout(session)).empty());
    EXPECT_TRUE(SaveScreenshot(session.desktop, "tab_" + std::to_string(i + 1)));
  }
}

TEST(WindowLayout, EveryTabByKeyboard) {
  const Session session;
  ASSERT_TRUE(EnableFeatures(session));  // so that the lists have rows, in which these keys would turn pages
  for (std::size_t i = 1; i <= Tabs().size(); ++i) {
    PressKey(session.desktop, "ctrl+Next");
    const std::string& tab = Tabs()[i % Tabs().size()];
    ASSERT_TRUE(Eventually([&] { return Layout(session)["tab"] == tab; })) << tab;
  }
  PressKey(session.desktop, "ctrl+Prior");
  EXPECT_TRUE(Eventually([&] { return Layout(session)["tab"] == Tabs().back(); }));
}

TEST(WindowLayout, AccessKeys) {
  const Session session;
  PressKey(session.desktop, "alt+d");
  EXPECT_TRUE(Eventually([&] { return Control(session, "switcher.cmdToggle")["caption"] == "&Display Fighters"; }));
  PressKey(session.desktop, "alt+e");
  ASSERT_TRUE(BoxCame(session, "Enabling these features"));
  ASSERT_TRUE(AnswerBox(session, "alt+n"));
  PressKey(session.desktop, "alt+i");
  ASSERT_TRUE(BoxCame(session, "This will restore all files"));
  ASSERT_TRUE(AnswerBox(session, "alt+n"));
  ASSERT_TRUE(ChooseTab(session, "Ship Stats / Guns"));
  PressKey(session.desktop, "alt+d");
  ASSERT_TRUE(BoxCame(session, "This will restore all files"));
  ASSERT_TRUE(AnswerBox(session, "alt+n"));
}

TEST(WindowLayout, AccessKeysOfLabelsLeadToTheirFields) {
  const Session session;
  ASSERT_TRUE(ChooseTab(session, "About"));
  PressKey(session.desktop, "alt+p");
  EXPECT_TRUE(FocusIs(session, "about.txtProgramPath"));
  PressKey(session.desktop, "alt+g");
  EXPECT_TRUE(FocusIs(session, "about.txtSLPath"));
}

TEST(WindowLayout, TabKeyWalksTheSwitcherFromLeftToRight) {
  const Session session;
  constexpr std::array<const char*, 8> order = {"switcher.swapOrgList",  "switcher.cmdSwap",   "switcher.cmdUnswap",
                                                "switcher.cmdUnswapAll", "switcher.cmdToggle", "switcher.swapToList",
                                                "switcher.cmdEnable",    "switcher.cmdDisable"};
  // A switched ship is selected, so that every button can be used.
  ASSERT_TRUE(EnableFeatures(session));
  const std::string target = Control(session, order[0])["rows"][0]["texts"][0];
  const std::string source = Control(session, order[5])["rows"][1]["texts"][0];
  ASSERT_TRUE(SelectRow(session, order[5], source));
  ASSERT_TRUE(SelectRow(session, order[0], target));
  ASSERT_TRUE(Becomes(session, order[1], "enabled", true));
  ClickOn(session, order[1]);
  ASSERT_TRUE(Becomes(session, order[2], "enabled", true));
  ASSERT_TRUE(FocusIs(session, order[1]));
  PressKey(session.desktop, "shift+Tab");
  ASSERT_TRUE(FocusIs(session, order[0]));
  for (std::size_t i = 1; i < order.size(); ++i) {
    PressKey(session.desktop, "Tab");
    ASSERT_TRUE(FocusIs(session, order.at(i))) << order.at(i) << " but " << Layout(session)["focus"];
  }
}

TEST(WindowLayout, FoldersAreShown) {
  const Session session;
  ASSERT_TRUE(ChooseTab(session, "About"));
  const std::string game = Control(session, "about.txtSLPath")["text"];
  const std::string program = Control(session, "about.txtProgramPath")["text"];
  EXPECT_TRUE(game.ends_with("\\StarLancer\\")) << game;
  EXPECT_TRUE(program.ends_with("\\Oravin\\")) << program;
  EXPECT_EQ(Control(session, "about.lblVersion")["caption"].get<std::string>().rfind("Version ", 0), 0U);
}

TEST(WindowLayout, NothingLeavesTheWindowOrOverlaps) {
  const Session session;
  ASSERT_TRUE(EnableFeatures(session));
  ASSERT_TRUE(BecomesWide(session, 1024, 700));
  ExpectInPlace(session);
  EXPECT_TRUE(SaveScreenshot(session.desktop, "small"));
  ASSERT_TRUE(ChooseTab(session, "Switcher"));
  ClickOn(session, "switcher.cmdToggle");
  ASSERT_TRUE(Eventually([&] { return Control(session, "switcher.cmdToggle")["caption"] == "&Display Fighters"; }));
  ExpectInPlace(session);
  ASSERT_TRUE(BecomesWide(session, 1590, 950));
  ExpectInPlace(session);
}

TEST(WindowLayout, ColumnsKeepTheirSharesOfTheWidth) {
  const Session session;
  const auto share = [&] {
    const Json columns = Control(session, "switcher.swapOrgList")["columns"];
    return columns[0]["width"].get<double>() / (columns[0]["width"].get<double>() + columns[1]["width"].get<double>());
  };
  constexpr double rounding = 0.01;
  for (const int width : {1024, 1590, 1200}) {
    ASSERT_TRUE(BecomesWide(session, width, 720));
    EXPECT_TRUE(Eventually([&] {
      const Json list = Control(session, "switcher.swapOrgList");
      const int columns = list["columns"][0]["width"].get<int>() + list["columns"][1]["width"].get<int>();
      return columns == list["rectangle"]["width"];
    }));
    EXPECT_NEAR(share(), 0.5, rounding);
  }
}

}  // namespace oravin::test
