#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "stats_session.h"

/// What is done with ships' weapons on their page, by clicks and keys, with every file of the game looked at after each
/// step.
namespace oravin::test {

using namespace stats_page;

namespace {

constexpr std::size_t classByteAt = 26;

void PutShort(Bytes& bytes, std::size_t at, int value) {
  bytes.at(at) = static_cast<std::uint8_t>(value & 255);
  bytes.at(at + 1) = static_cast<std::uint8_t>(value >> 8);
}

struct Weapon {
  int kind = 0;
  int gunType = -1;  ///< -1: as it is
  int externalGunType = -1;
};

/// What a model becomes when attachments of these numbers are changed.
void PutWeapon(FolderImage& image, const std::string& file, const std::vector<std::size_t>& numbers,
               const Weapon& weapon) {
  Bytes& model = image.at("ships/" + file);
  const std::vector<std::size_t> places = AttachmentsIn(model);
  for (const std::size_t number : numbers) {
    PutShort(model, places.at(number), weapon.kind);
    if (weapon.externalGunType >= 0) PutShort(model, places.at(number) + 52, weapon.externalGunType);
    if (weapon.gunType >= 0) PutShort(model, places.at(number) + 100, weapon.gunType);
  }
}

std::vector<std::size_t> MarkedPoints(const Session& session) {
  std::vector<std::size_t> marked;
  const Json control = Control(session, topView);
  for (const Json& point : control["points"]) {
    if (point["selected"] == true) marked.push_back(point["attachment"]);
  }
  return marked;
}

testing::AssertionResult MarkedBecome(const Session& session, const std::vector<std::size_t>& points) {
  if (Eventually([&] { return MarkedPoints(session) == points; })) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "marked are " << Json(MarkedPoints(session)).dump();
}

}  // namespace

TEST(StatsPage, PairOfGunsIsChangedByTheMenu) {
  const StatsSession session;
  ASSERT_TRUE(ShipChosen(session, "Nightjar"));
  ASSERT_TRUE(WeaponMenuChosen(session, 0, 1, 11));
  ASSERT_TRUE(WeaponBecomes(session, 0, "Pair: Nova Cannon"));
  FolderImage expected = session.before;
  PutWeapon(expected, "nightjar.shp", {0, 1}, {3, 11, -1});
  EXPECT_TRUE(SameImage(expected, session.Now()));
  EXPECT_TRUE(MarkedBecome(session, {0, 1}));
  ASSERT_TRUE(WeaponMenuChosen(session, 0, 3, 1));
  ASSERT_TRUE(WeaponBecomes(session, 0, "Pair: Missiles"));
  PutWeapon(expected, "nightjar.shp", {0, 1}, {0, 64, 6});
  EXPECT_TRUE(SameImage(expected, session.Now()));
  ClickOn(session, "stats.cmdRestoreWeapons");
  ASSERT_TRUE(WeaponBecomes(session, 0, "Pair: Proton Cannon"));
  EXPECT_TRUE(SameImage(session.before, session.Now()));
}

TEST(StatsPage, ExternalGunIsChangedByTheMenu) {
  const StatsSession session;
  ASSERT_TRUE(ShipChosen(session, "Nightjar"));
  const Json list = Control(session, weapons)["rows"];
  const std::size_t last = list.size() - 1;
  ASSERT_EQ(list[last]["texts"][0], "External - Laser Cannon Type 1");
  const std::size_t number = std::stoul(list[last]["key"].get<std::string>().substr(1)) - 1;
  ASSERT_TRUE(WeaponMenuChosen(session, last, 2, 9));
  ASSERT_TRUE(WeaponBecomes(session, last, "External - Laser Cannon Type 5"));
  FolderImage expected = session.before;
  PutWeapon(expected, "nightjar.shp", {number}, {1, -1, 11});
  EXPECT_TRUE(SameImage(expected, session.Now()));
}

TEST(StatsPage, MissilePointIsChangedByTheKeyboardInTheVariantToo) {
  const StatsSession session;
  ASSERT_TRUE(ShipChosen(session, "Longbow"));
  const Json missiles = RowOf(session, weapons, "Pair: Missiles");
  ASSERT_FALSE(missiles.is_null());
  const auto row = missiles["row"].get<std::size_t>();
  ASSERT_TRUE(SelectRow(session, weapons, "Pair: Missiles"));
  ASSERT_TRUE(Eventually([&] { return MarkedPoints(session).size() == 2; }));
  const std::vector<std::size_t> numbers = MarkedPoints(session);
  const int windows = WindowsWithoutMenu(session);
  PressKey(session.desktop, "shift+F10");
  ASSERT_TRUE(WindowsBecome(session, windows + 1));
  ASSERT_TRUE(SubmenuChosen(session, windows, 1, 1));
  ASSERT_TRUE(WeaponBecomes(session, row, "Pair: Laser"));
  FolderImage expected = session.before;
  for (const char* file : {"longbow.shp", "t_longbow.shp"}) PutWeapon(expected, file, numbers, {3, 1, -1});
  EXPECT_TRUE(SameImage(expected, session.Now()));
  PressKey(session.desktop, "Menu");
  ASSERT_TRUE(WindowsBecome(session, windows + 1));
  ASSERT_TRUE(SubmenuChosen(session, windows, 3, 1));
  ASSERT_TRUE(WeaponBecomes(session, row, "Pair: Missiles"));
  for (const char* file : {"longbow.shp", "t_longbow.shp"}) PutWeapon(expected, file, numbers, {0, 64, 6});
  EXPECT_TRUE(SameImage(expected, session.Now()));
}

TEST(StatsPage, ClickOnAPointSelectsItsWeapon) {
  const StatsSession session;
  ASSERT_TRUE(ShipChosen(session, "Nightjar"));
  ASSERT_TRUE(MarkedBecome(session, {}));
  const Json point = Control(session, topView)["points"][3];
  const auto number = point["attachment"].get<std::size_t>();
  Click(session.desktop, MiddleOf(point["rectangle"]));
  ASSERT_TRUE(Eventually([&] { return !MarkedPoints(session).empty(); }));
  const std::vector<std::size_t> marked = MarkedPoints(session);
  EXPECT_NE(std::find(marked.begin(), marked.end(), number), marked.end());
  int selected = 0;
  const Json list = Control(session, weapons)["rows"];
  for (const Json& row : list) {
    if (row["selected"] == true) ++selected;
  }
  EXPECT_EQ(selected, 1);
  EXPECT_TRUE(CaptionHolds(session, topView, "selected: Pair: "));
}

TEST(StatsPage, CloakIsToggled) {
  const StatsSession session;
  ASSERT_TRUE(ShipChosen(session, "Sabrewing"));
  ClickOn(session, "stats.chkHasCloak");
  ASSERT_TRUE(CaptionHolds(session, "stats.lblShipClass", "Fighter with a cloaking device"));
  FolderImage expected = session.before;
  expected.at("ships/sabrewing.shp").at(classByteAt) = 2;
  EXPECT_TRUE(SameImage(expected, session.Now()));
  EXPECT_EQ(Control(session, "stats.chkHasCloak")["checked"], true);
  ClickOn(session, "stats.chkHasCloak");
  ASSERT_TRUE(Becomes(session, "stats.chkHasCloak", "checked", false));
  EXPECT_TRUE(ImageBecomes(session, session.before));
}

}  // namespace oravin::test
