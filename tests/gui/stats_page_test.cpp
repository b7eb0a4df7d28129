#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string>

#include "stats_session.h"

/// What is done with ships' statistics on their page, by clicks and keys, with every file of the game looked at after
/// each step.
namespace oravin::test {

using namespace stats_page;

namespace {

constexpr std::size_t blockSize = 352;
constexpr std::size_t valuesInBlock = 64;

/// The rows with the offsets of their values behind the block's name.
struct Row {
  const char* label;
  std::size_t offset;
};
constexpr std::array<Row, 15> rows = {{{"Max Speed", 0},
                                       {"Inertia", 4},
                                       {"Yaw Max", 8},
                                       {"Yaw Inertia", 12},
                                       {"Pitch Max", 16},
                                       {"Pitch Inertia", 20},
                                       {"Roll Max", 24},
                                       {"Roll Inertia", 28},
                                       {"Shield Strength", 32},
                                       {"Shield Recharge", 44},
                                       {"Armor Strength", 36},
                                       {"Afterburner Fuel", 40},
                                       {"Gun Energy", 48},
                                       {"Gun Recharge", 52},
                                       {"Ammo", 56}}};

const demo::SampleShip& ShipNamed(const Session& session, const std::string& name) {
  const auto& all = session.sample.ships;
  return *std::find_if(all.begin(), all.end(), [&](const demo::SampleShip& ship) { return ship.name == name; });
}

/// Where a ship's value is in shipstats.bin.
std::size_t PlaceOf(const Session& session, const std::string& ship, const std::string& label) {
  const auto row = std::find_if(rows.begin(), rows.end(), [&](const Row& one) { return label == one.label; });
  return static_cast<std::size_t>(ShipNamed(session, ship).statsIndex) * blockSize + valuesInBlock + row->offset;
}

float ValueAt(const Bytes& file, std::size_t at) {
  float value = 0;
  std::memcpy(&value, file.data() + at, sizeof value);
  return value;
}

void PutValue(FolderImage& image, std::size_t at, float value) {
  std::memcpy(image.at("shipstats.bin").data() + at, &value, sizeof value);
}

/// The row of a statistic, as the layout file tells of it.
Json StatOf(const Session& session, const std::string& label) {
  const Json control = Control(session, values);
  for (const Json& row : control["rows"]) {
    if (row["texts"][1] == label) return row;
  }
  return {};
}

std::string TextOf(const Session& session, const std::string& label) {
  const Json row = StatOf(session, label);
  return row.is_null() ? "nothing" : row["texts"][0].get<std::string>();
}

testing::AssertionResult TextBecomes(const Session& session, const std::string& label, const std::string& text) {
  if (Eventually([&] { return TextOf(session, label) == text; })) return testing::AssertionSuccess();
  return testing::AssertionFailure() << label << " is " << TextOf(session, label);
}

testing::AssertionResult EditIsOpen(const Session& session) {
  Json focus;
  if (Eventually([&] { return (focus = Layout(session)["focus"]) == "text"; })) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "the keyboard is in " << focus;
}

/// Writes another value over a statistic's, in its place, and ends with a key.
testing::AssertionResult Write(const Session& session, const std::string& label, const std::string& text,
                               const std::string& key = "Return") {
  Click(session.desktop, MiddleOf(StatOf(session, label)["rectangle"]));
  if (!Eventually([&] { return StatOf(session, label)["selected"] == true; })) {
    return testing::AssertionFailure() << label << " is not selected";
  }
  PressKey(session.desktop, "F2");
  if (const auto open = EditIsOpen(session); !open) return open;
  PressKey(session.desktop, "ctrl+a");
  PressKey(session.desktop, "BackSpace");
  if (!text.empty()) TypeText(session.desktop, text);
  PressKey(session.desktop, key);
  return testing::AssertionSuccess();
}

/// Chooses an item of the statistics' menu, counted from 1 among those that can be chosen.
testing::AssertionResult StatsMenuChosen(const Session& session, int item) {
  int windows = 0;
  if (const auto opened = MenuOpened(session, StatOf(session, "Yaw Max"), windows); !opened) return opened;
  Press(session, "Down", item);
  Press(session, "Return");
  return WindowsBecome(session, windows);
}

testing::AssertionResult BoxAnswered(const Session& session, const std::string& text) {
  if (const auto came = BoxCame(session, text); !came) return came;
  if (Layout(session)["box"]["title"] != "Oravin") return testing::AssertionFailure() << Layout(session)["box"];
  return AnswerBox(session, "Return");
}

}  // namespace

TEST(StatsPage, ControlsHaveTheirCaptionsAndTooltips) {
  const Session session;
  ASSERT_TRUE(ChooseTab(session, "Ship Stats / Guns"));
  struct Expected {
    const char* name;
    const char* caption;
    const char* tooltip;
    bool enabled;
  };
  const std::array<Expected, 9> expected = {
      {{"stats.lblShips", "Ships:", "", true},
       {"stats.lblWeapons", "Weapons:", "", true},
       {"stats.Label2", "Right Click on Weapons to change", "", true},
       {"stats.chkHasCloak", "Cloaking Device", "Toggles Cloak", false},
       {"stats.cmdRestoreShipStats", "&Restore Stats", "Restores stats for the selected ship", false},
       {"stats.cmdRestoreAllStats", "&Restore All Stats", "Restores stats for all ships", false},
       {"stats.cmdRestoreWeapons", "Restore Weapons", "Restores weapons info for the selected ship", false},
       {"stats.cmdEnable2", "&Enable", "Enables editing features - see readme", true},
       {"stats.CmdDisable2", "&Disable / Restore", "Disables editing features - see readme", true}}};
  for (const Expected& one : expected) {
    const Json control = Control(session, one.name);
    EXPECT_EQ(control["shown"], true) << one.name;
    EXPECT_EQ(control["caption"], one.caption);
    EXPECT_EQ(control["tooltip"], one.tooltip) << one.name;
    EXPECT_EQ(control["enabled"], one.enabled) << one.name;
  }
  EXPECT_EQ(Control(session, chart)["words"], "Press Enable to list the ships.");
  EXPECT_EQ(Control(session, topView)["words"], "No ship is chosen.");
  EXPECT_TRUE(SaveScreenshot(session.desktop, "stats_empty"));
}

TEST(StatsPage, ChosenShipShowsItsStatisticsWeaponsAndChart) {
  const StatsSession session;
  EXPECT_EQ(Control(session, chart)["words"], "Choose a ship to compare it with the others.");
  EXPECT_EQ(Control(session, "stats.cmdRestoreAllStats")["enabled"], true);
  ASSERT_TRUE(ShipChosen(session, "Nightjar"));
  const Json list = Control(session, values);
  const Json drawn = Control(session, chart);
  ASSERT_EQ(list["rows"].size(), rows.size()) << "all statistics are in sight";
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const Json& row = list["rows"][i];
    const float value = ValueAt(session.before.at("shipstats.bin"), PlaceOf(session, "Nightjar", rows.at(i).label));
    EXPECT_EQ(row["texts"][1], rows.at(i).label);
    EXPECT_EQ(std::stof(row["texts"][0].get<std::string>()), value) << rows.at(i).label;
    EXPECT_EQ(row["bold"], false);
    EXPECT_EQ(drawn["rows"][i]["selected"].get<float>(), value);
    EXPECT_LE(drawn["rows"][i]["smallest"], drawn["rows"][i]["middle"]);
    EXPECT_LE(drawn["rows"][i]["middle"], drawn["rows"][i]["largest"]);
    EXPECT_EQ(drawn["rows"][i]["rectangle"]["y"], row["rectangle"]["y"]) << "each bar stands in its row's line";
    EXPECT_EQ(drawn["rows"][i]["rectangle"]["height"], row["rectangle"]["height"]);
  }
  EXPECT_EQ(Control(session, weapons)["rows"][0]["texts"][0], "Pair: Proton Cannon");
  EXPECT_EQ(Control(session, topView)["points"].size(), AttachmentsIn(session.before.at("ships/nightjar.shp")).size());
  EXPECT_EQ(Control(session, "stats.lblShipClass")["caption"], "Fighter with a cloaking device");
  EXPECT_EQ(Control(session, "stats.chkHasCloak")["checked"], true);
  ASSERT_TRUE(ShipChosen(session, "Ascension Carrier"));
  EXPECT_TRUE(CaptionHolds(session, "stats.lblShipClass", "Capital ship"));
  EXPECT_EQ(Control(session, "stats.chkHasCloak")["checked"], false);
  EXPECT_TRUE(SaveScreenshot(session.desktop, "stats_ship"));
  EXPECT_TRUE(SameImage(session.before, session.Now()));
}

TEST(StatsPage, ValueIsEditedInItsPlace) {
  const StatsSession session;
  ASSERT_TRUE(ShipChosen(session, "Sabrewing"));
  const std::string old = TextOf(session, "Shield Recharge");
  ASSERT_TRUE(Write(session, "Shield Recharge", " +12.50 "));
  ASSERT_TRUE(TextBecomes(session, "Shield Recharge", "12.5"));
  FolderImage expected = session.before;
  PutValue(expected, PlaceOf(session, "Sabrewing", "Shield Recharge"), 12.5F);
  EXPECT_TRUE(SameImage(expected, session.Now()));
  EXPECT_EQ(StatOf(session, "Shield Recharge")["bold"], true);
  EXPECT_EQ(StatOf(session, "Shield Strength")["bold"], false);
  EXPECT_EQ(Control(session, chart)["rows"][9]["selected"], 12.5);
  EXPECT_TRUE(FocusIs(session, values));

  MoveTo(session.desktop, MiddleOf(StatOf(session, "Shield Strength")["rectangle"]));
  const int windows = WindowsInSight(session.desktop, "Oravin");
  MoveTo(session.desktop, MiddleOf(StatOf(session, "Shield Recharge")["rectangle"]));
  EXPECT_TRUE(Becomes(session, values, "tooltip", "Default: " + old));
  EXPECT_TRUE(WindowsBecome(session, windows + 1)) << "the tooltip's own";
  EXPECT_TRUE(SaveScreenshot(session.desktop, "stats_edited"));
  MoveTo(session.desktop, MiddleOf(StatOf(session, "Shield Strength")["rectangle"]));
  EXPECT_TRUE(Becomes(session, values, "tooltip", ""));

  ASSERT_TRUE(Write(session, "Ammo", ""));
  ASSERT_TRUE(TextBecomes(session, "Ammo", "0"));
  ASSERT_TRUE(Write(session, "Max Speed", "10000000"));
  ASSERT_TRUE(TextBecomes(session, "Max Speed", "1e+07"));
  PutValue(expected, PlaceOf(session, "Sabrewing", "Ammo"), 0);
  PutValue(expected, PlaceOf(session, "Sabrewing", "Max Speed"), 1e7F);
  EXPECT_TRUE(SameImage(expected, session.Now()));
  EXPECT_EQ(Layout(session)["boxes"], 2) << "those of enabling";
}

TEST(StatsPage, DoubleClickOpensAValueAndEscapeLeavesIt) {
  const StatsSession session;
  ASSERT_TRUE(ShipChosen(session, "Sabrewing"));
  const std::string old = TextOf(session, "Roll Max");
  Click(session.desktop, MiddleOf(StatOf(session, "Roll Max")["rectangle"]), 2);
  ASSERT_TRUE(EditIsOpen(session));
  PressKey(session.desktop, "ctrl+a");
  TypeText(session.desktop, "77");
  EXPECT_TRUE(SaveScreenshot(session.desktop, "stats_editing"));
  PressKey(session.desktop, "Escape");
  ASSERT_TRUE(Eventually([&] { return Layout(session)["focus"] != "text"; }));
  EXPECT_EQ(TextOf(session, "Roll Max"), old);
  EXPECT_TRUE(SameImage(session.before, session.Now()));
}

TEST(StatsPage, ValueOutOfRangeShowsTheBoxAndTheOldValueStays) {
  const StatsSession session;
  ASSERT_TRUE(ShipChosen(session, "Sabrewing"));
  struct Refused {
    const char* label;
    const char* text;
    const char* box;
  };
  constexpr const char* inertia = "Inertia must be a value between 0 and 1.";
  constexpr const char* other = "This value must be between 0 and 10,000,000";
  for (const Refused& one : {Refused{"Yaw Inertia", "1.5", inertia}, Refused{"Max Speed", "10000001", other},
                             Refused{"Gun Recharge", " -1", other}, Refused{"Roll Inertia", "fast", inertia}}) {
    SCOPED_TRACE(one.label);
    const std::string old = TextOf(session, one.label);
    ASSERT_TRUE(Write(session, one.label, one.text));
    ASSERT_TRUE(BoxAnswered(session, one.box));
    EXPECT_EQ(TextOf(session, one.label), old);
  }
  EXPECT_TRUE(SameImage(session.before, session.Now()));
}

TEST(StatsPage, StatisticsAreCopiedPastedAndRestoredByTheMenu) {
  const StatsSession session;
  ASSERT_TRUE(ShipChosen(session, "Sabrewing"));
  // Paste cannot be chosen yet: the second item that can is the last.
  ASSERT_TRUE(Write(session, "Ammo", "3"));
  ASSERT_TRUE(TextBecomes(session, "Ammo", "3"));
  ASSERT_TRUE(StatsMenuChosen(session, 2));
  ASSERT_TRUE(ImageBecomes(session, session.before));
  ASSERT_TRUE(StatsMenuChosen(session, 1));
  ASSERT_TRUE(CaptionHolds(session, "stats.legend", "Sabrewing"));

  ASSERT_TRUE(ShipChosen(session, "Nightjar"));
  ASSERT_TRUE(Becomes(session, chart, "compared", "Sabrewing"));
  const Json drawn = Control(session, chart);
  FolderImage expected = session.before;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const std::size_t from = PlaceOf(session, "Sabrewing", rows.at(i).label);
    const float value = ValueAt(session.before.at("shipstats.bin"), from);
    PutValue(expected, PlaceOf(session, "Nightjar", rows.at(i).label), value);
    EXPECT_EQ(drawn["rows"][i]["compared"].get<float>(), value);
  }
  int windows = 0;
  ASSERT_TRUE(MenuOpened(session, StatOf(session, "Yaw Max"), windows));
  EXPECT_TRUE(SaveScreenshot(session.desktop, "stats_menu"));
  Press(session, "Escape");
  ASSERT_TRUE(WindowsBecome(session, windows));
  ASSERT_TRUE(StatsMenuChosen(session, 2));
  EXPECT_TRUE(ImageBecomes(session, expected));
  EXPECT_TRUE(Eventually([&] {
    const Json row = Control(session, chart)["rows"][0];
    return row["selected"] == row["compared"];
  }));
  ASSERT_TRUE(StatsMenuChosen(session, 3));
  EXPECT_TRUE(ImageBecomes(session, session.before));
}

TEST(StatsPage, ButtonsRestoreOneShipAndAllShips) {
  const StatsSession session;
  for (const char* ship : {"Sabrewing", "Nightjar"}) {
    ASSERT_TRUE(ShipChosen(session, ship));
    ASSERT_TRUE(Write(session, "Armor Strength", "4321"));
    ASSERT_TRUE(TextBecomes(session, "Armor Strength", "4321"));
  }
  FolderImage expected = session.before;
  PutValue(expected, PlaceOf(session, "Sabrewing", "Armor Strength"), 4321);
  ClickOn(session, "stats.cmdRestoreShipStats");
  ASSERT_TRUE(ImageBecomes(session, expected)) << "only the selected ship's";
  ClickOn(session, "stats.cmdRestoreAllStats");
  ASSERT_TRUE(BoxAnswered(session, "The statistics of "));
  EXPECT_TRUE(SameImage(session.before, session.Now()));
}

TEST(StatsPage, DisablePutsEveryFileBack) {
  const Session session;
  const FolderImage game = ImageOf(session.sample.game);
  const FolderImage program = ImageOf(session.sample.program);
  ASSERT_TRUE(EnableFeatures(session));
  ASSERT_TRUE(ChooseTab(session, "Ship Stats / Guns"));
  ASSERT_TRUE(ShipChosen(session, "Nightjar"));
  ASSERT_TRUE(Write(session, "Max Speed", "1"));
  ASSERT_TRUE(TextBecomes(session, "Max Speed", "1"));
  ASSERT_TRUE(WeaponMenuChosen(session, 0, 1, 2));
  ASSERT_TRUE(WeaponBecomes(session, 0, "Pair: Pulse Cannon"));
  ClickOn(session, "stats.chkHasCloak");
  ASSERT_TRUE(CaptionHolds(session, "stats.lblShipClass", "Fighter"));
  ClickOn(session, "stats.CmdDisable2");
  ASSERT_TRUE(BoxCame(session, "This will restore all files back to their previous state."));
  ASSERT_TRUE(AnswerBox(session, "alt+y"));
  ASSERT_TRUE(BoxCame(session, "Restoration complete"));
  ASSERT_TRUE(AnswerBox(session, "Return"));
  ASSERT_TRUE(Becomes(session, ships, "rowCount", 0));
  EXPECT_EQ(Control(session, values)["rowCount"], 0);
  EXPECT_EQ(Control(session, weapons)["rowCount"], 0);
  EXPECT_EQ(Control(session, chart)["selected"], "");
  EXPECT_EQ(Control(session, "stats.lblShipClass")["caption"], "");
  const FolderImage now = ImageOf(session.sample.game);
  EXPECT_TRUE(SameImage(Without(game, {"shipstats.def"}), Without(now, {"shipstats.def"})));
  EXPECT_TRUE(SameImage(program, Without(ImageOf(session.sample.program), {"backup/"})));
}

}  // namespace oravin::test
