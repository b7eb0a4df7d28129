#include "tabs/weapons_edit.h"

#include <gtest/gtest.h>

#include "demo/archive_writer.h"
#include "demo/compressor.h"
#include "support/fault.h"
#include "support/file_marks.h"
#include "support/stats_tab_stage.h"

namespace oravin::test {
namespace {

using Strings = std::vector<std::string>;

struct WeaponEditing : TabStage {
  void ChangeTo(void (*click)(Host&, StatsTab&, const Installation&), int code) {
    tab.clickedType = code;
    click(at.host, tab, installation);
  }
  /// What a model is after its attachments of these numbers have become something else.
  void Become(FolderImage& image, const std::string& file, const std::vector<std::size_t>& numbers, int kind,
              int gunType, int externalGunType) const {
    for (const std::size_t number : numbers) {
      ShpAttachment attachment = weapons[number];
      attachment.kind = static_cast<std::uint16_t>(kind);
      if (gunType >= 0) attachment.gunType = static_cast<std::uint16_t>(gunType);
      if (externalGunType >= 0) attachment.externalGunType = static_cast<std::uint16_t>(externalGunType);
      PutElement(image.at("game/ships/" + file), static_cast<std::size_t>(attachment.filePosition), attachment);
    }
  }
};

TEST_F(WeaponEditing, APairHasOneRowAndASingleOneItsOwn) {
  Choose(alpha);
  EXPECT_EQ(Texts(tab.shipWeaponsList, 0),
            (Strings{"Pair: Pulse Cannon", "Nova Cannon", "Pair: Missiles", "External - Laser Cannon Type 4"}));
}

TEST_F(WeaponEditing, EveryKindHasItsTextAloneAndAsAPair) {
  ShpAttachments all = {ExternalGun(100, 0, 0, 11), ExternalGun(-100, 0, 0, 11), Missile(0, 900, 0),
                        Gun(300, 0, 900, 99),       Gun(-300, 0, 900, 99),       {0, 2, 500, 0, 0, 1, 0},
                        {0, 2, -500, 0, 0, 1, 0},   ExternalGun(0, 0, 5000, 8)};
  WriteFileAt(Game("ships/alpha.shp"), ModelWith(all));
  Choose(alpha);
  EXPECT_EQ(Texts(tab.shipWeaponsList, 0), (Strings{"Pair: External - Laser Cannon Type 5", "Missile",
                                                    "Pair: Unknown Gun", "Laser", "Laser", "External - Unknown"}));
}

TEST_F(WeaponEditing, AMissingModelHasOneBoxAndNoWeapons) {
  Choose(alpha);
  std::filesystem::remove(Game("ships/bravo.shp"));
  at.desk.ExpectBox("Error - Path not found");
  Choose(bravo);
  EXPECT_TRUE(tab.shipWeaponsList.rows.empty());
  EXPECT_TRUE(tab.weapons.attachments.empty());
  EXPECT_EQ(tab.lblShipClass.caption, "");
}

TEST_F(WeaponEditing, EveryGunOfTheMenuWritesItsCode) {
  Choose(alpha);
  ChooseWeapon(1);
  for (const TypeItem& item : tab.pldGunType) {
    FolderImage expected = Image();
    ChangeTo(pldGunType_Click, item.Index);
    Become(expected, "alpha.shp", {2}, 3, item.Index, -1);
    EXPECT_TRUE(SameImage(expected, Image()));
    EXPECT_EQ(tab.shipWeaponsList.rows.at(1).texts.at(0), GetGunName(item.Index));
  }
}

TEST_F(WeaponEditing, EveryExternalGunOfTheMenuWritesItsCode) {
  Choose(alpha);
  ChooseWeapon(3);
  for (const TypeItem& item : tab.pldExtGunType) {
    FolderImage expected = Image();
    ChangeTo(pldExtGunType_Click, item.Index);
    Become(expected, "alpha.shp", {5}, 1, -1, item.Index);
    EXPECT_TRUE(SameImage(expected, Image()));
    EXPECT_EQ(tab.shipWeaponsList.rows.at(3).texts.at(0), "External - " + GetExtGunName(item.Index));
  }
}

TEST_F(WeaponEditing, AMissilePointGetsBothTypes) {
  Choose(alpha);
  ChooseWeapon(1);
  FolderImage expected = Image();
  ChangeTo(pldMissileType_Click, 0);
  Become(expected, "alpha.shp", {2}, 0, 64, 6);
  EXPECT_TRUE(SameImage(expected, Image()));
  EXPECT_EQ(tab.shipWeaponsList.rows.at(1).texts.at(0), "Missile");
}

TEST_F(WeaponEditing, ChangingAPairChangesBothAttachments) {
  Choose(alpha);
  ChooseWeapon(0);
  FolderImage expected = Image();
  ChangeTo(pldGunType_Click, 7);
  Become(expected, "alpha.shp", {0, 1}, 3, 7, -1);
  EXPECT_TRUE(SameImage(expected, Image()));
  EXPECT_EQ(tab.shipWeaponsList.rows.at(0).texts.at(0), "Pair: Neutron Particle Gun");
  EXPECT_EQ(SelectedAttachment(tab), 0U);
}

TEST_F(WeaponEditing, TheVariantIsChangedAsWell) {
  Choose(twin);
  ChooseWeapon(2);
  FolderImage expected = Image();
  ChangeTo(pldExtGunType_Click, 2);
  for (const char* file : {"twin.shp", "t_twin.shp"}) Become(expected, file, {3, 4}, 1, -1, 2);
  EXPECT_TRUE(SameImage(expected, Image()));
}

TEST_F(WeaponEditing, AVariantKeepsItsOwnPlaces) {
  ShpAttachments other = weapons;
  for (ShpAttachment& attachment : other) attachment.z += 5;
  Bytes model = ModelHead();
  AddOther(model, 2, 50);
  AddAttachments(model, other);
  WriteFileAt(Game("ships/t_twin.shp"), model);
  Choose(twin);
  ChooseWeapon(1);
  ChangeTo(pldGunType_Click, 1);
  other[2].gunType = 1;
  PutElement(model, static_cast<std::size_t>(other[2].filePosition), other[2]);
  EXPECT_TRUE(SameBytes(model, ReadFileAt(Game("ships/t_twin.shp"))));
}

TEST_F(WeaponEditing, AVariantWithAnotherNumberOfAttachmentsCannotBeChanged) {
  ShpAttachments fewer(weapons.begin(), weapons.end() - 1);
  WriteFileAt(Game("ships/t_twin.shp"), ModelWith(fewer));
  const FolderImage before = Image();
  Choose(twin);
  ChooseWeapon(0);
  at.desk.ExpectBox("Error - standard ship and Tiger ship attachments don't match");
  ChangeTo(pldGunType_Click, 7);
  EXPECT_TRUE(SameImage(before, Image()));
}

TEST_F(WeaponEditing, AReadOnlyVariantKeepsBothAsTheyWere) {
  const FolderImage before = Image();
  Choose(twin);
  ChooseWeapon(0);
  SetReadOnly(Game("ships/t_twin.shp"), true);
  at.desk.ExpectBox(ModelPath("t_twin.shp") +
                    " cannot be written: it is read-only.\nTake the read-only mark away and try again. Nothing has "
                    "been changed.");
  ChangeTo(pldGunType_Click, 7);
  EXPECT_TRUE(SameImage(before, Image()));
}

TEST_F(WeaponEditing, AModelThatIsNoLongerTheListedOneIsNotChanged) {
  Choose(alpha);
  ChooseWeapon(0);
  ShpAttachments other = weapons;
  other[5].externalGunType = 3;
  WriteFileAt(Game("ships/alpha.shp"), ModelWith(other));
  const FolderImage before = Image();
  at.desk.ExpectBox(ModelPath("alpha.shp") +
                    " has been changed since its weapons were listed.\nNothing was changed now. Choose again.");
  ChangeTo(pldGunType_Click, 7);
  EXPECT_TRUE(SameImage(before, Image()));
  EXPECT_EQ(tab.shipWeaponsList.rows.at(3).texts.at(0), "External - Dbl. Barrel Lasers");
}

TEST_F(WeaponEditing, AModelThatIsGoneIsTold) {
  Choose(alpha);
  ChooseWeapon(0);
  std::filesystem::remove(Game("ships/alpha.shp"));
  at.desk.ExpectBox("Error - Path not found");
  ChangeTo(pldGunType_Click, 7);
  EXPECT_FALSE(std::filesystem::exists(Game("ships/alpha.shp")));
}

TEST_F(WeaponEditing, AnAttachmentThatWasOnlyCountedCannotBeChanged) {
  ShpAttachments many;
  for (int i = 0; i < 121; ++i) many.push_back({0, 2, i, i, i, 1, 0});
  WriteFileAt(Game("ships/alpha.shp"), ModelWith(many));
  const FolderImage before = Image();
  Choose(alpha);
  ASSERT_EQ(tab.shipWeaponsList.rows.size(), 121U);
  EXPECT_EQ(tab.shipWeaponsList.rows.back().texts.at(0), "Missile");
  EXPECT_EQ(tab.topView.points.size(), 120U);
  ChooseWeapon(120);
  at.desk.ExpectBox("This weapon cannot be changed: the table of attachments in " + ModelPath("alpha.shp") +
                    "\nhas no room for its type, or it is not among the first 120. Nothing was changed.");
  ChangeTo(pldGunType_Click, 7);
  EXPECT_TRUE(SameImage(before, Image()));
}

TEST_F(WeaponEditing, AnElementWithoutRoomForTheTypesCannotBeChanged) {
  ShpAttachments one = {Gun(1, 2, 3)};
  Bytes model = ModelHead();
  AddAttachments(model, one, 101);
  AddOther(model, 2, 300);
  WriteFileAt(Game("ships/alpha.shp"), model);
  const FolderImage before = Image();
  Choose(alpha);
  ChooseWeapon(0);
  at.desk.ExpectBox("This weapon cannot be changed: the table of attachments in " + ModelPath("alpha.shp") +
                    "\nhas no room for its type, or it is not among the first 120. Nothing was changed.");
  ChangeTo(pldGunType_Click, 7);
  EXPECT_TRUE(SameImage(before, Image()));
}

TEST_F(WeaponEditing, WithoutASelectedWeaponNothingIsChanged) {
  const FolderImage before = Image();
  ChangeTo(pldGunType_Click, 7);
  Choose(alpha);
  EXPECT_FALSE(tab.pldChangeToGun.enabled);
  ChangeTo(pldGunType_Click, 7);
  ChangeTo(pldExtGunType_Click, 7);
  ChangeTo(pldMissileType_Click, 0);
  EXPECT_TRUE(SameImage(before, Image()));
}

TEST_F(WeaponEditing, AFailureAnywhereLeavesEveryAttachmentOldOrNewAndCanBeMended) {
  const Bytes model = ReadFileAt(Game("ships/twin.shp"));
  FolderImage done = Image();
  for (const char* file : {"twin.shp", "t_twin.shp"}) Become(done, file, {0, 1}, 3, 7, -1);
  for (const FaultKind kind : {FaultKind::failure, FaultKind::stop}) {
    const int operations = AtEachOperation(kind, [&](Fault& fault) {
      for (const char* file : {"twin.shp", "t_twin.shp"}) WriteFileAt(Game("ships/" + std::string(file)), model);
      Choose(twin);
      ChooseWeapon(0);
      tab.clickedType = 7;
      {
        ScriptedHost here;
        here.desk.AllowOthers([](const Message&) { return Answer::ok; });
        Watch(here.host.files, fault);
        Stopped([&] { pldGunType_Click(here.host, tab, installation); });
      }
      for (const char* file : {"twin.shp", "t_twin.shp"}) {
        Bytes now = ReadFileAt(Game("ships/" + std::string(file)));
        ASSERT_EQ(now.size(), model.size());
        for (const std::size_t number : {0U, 1U}) {
          const auto place = static_cast<std::size_t>(weapons[number].filePosition) + 100;
          EXPECT_TRUE(now[place] == 2 || now[place] == 7);
          now[place] = 2;
        }
        EXPECT_TRUE(SameBytes(model, now));
      }
      Choose(twin);
      ChooseWeapon(0);
      ChangeTo(pldGunType_Click, 7);
      EXPECT_TRUE(SameImage(done, Image()));
    });
    EXPECT_GT(operations, 10);
  }
}

TEST_F(WeaponEditing, TheCheckBoxTogglesTheClassByteAlone) {
  Choose(alpha);
  EXPECT_FALSE(tab.chkHasCloak.checked);
  EXPECT_EQ(tab.lblShipClass.caption, "Fighter");
  FolderImage expected = Image();
  chkHasCloak_MouseUp(at.host, tab, installation);
  expected.at("game/ships/alpha.shp").at(26) = 2;
  EXPECT_TRUE(SameImage(expected, Image()));
  EXPECT_TRUE(tab.chkHasCloak.checked);
  EXPECT_EQ(tab.lblShipClass.caption, "Fighter with a cloaking device");
  chkHasCloak_MouseUp(at.host, tab, installation);
  expected.at("game/ships/alpha.shp").at(26) = 0;
  EXPECT_TRUE(SameImage(expected, Image()));
  EXPECT_FALSE(tab.chkHasCloak.checked);
}

TEST_F(WeaponEditing, ACapitalShipIsToldApartAndToggledToo) {
  WriteFileAt(Game("ships/alpha.shp"), ModelWith(weapons, 3));
  Choose(alpha);
  EXPECT_EQ(tab.lblShipClass.caption, "Capital ship");
  chkHasCloak_MouseUp(at.host, tab, installation);
  EXPECT_EQ(ReadFileAt(Game("ships/alpha.shp")).at(26), 2);
}

TEST_F(WeaponEditing, TogglingAMissingModelHasItsBox) {
  Choose(alpha);
  std::filesystem::remove(Game("ships/alpha.shp"));
  at.desk.ExpectBox("Error - file not found", "IsCloaked");
  chkHasCloak_MouseUp(at.host, tab, installation);
}

TEST_F(WeaponEditing, RestoredWeaponsAreShown) {
  const Bytes stock = ReadFileAt(Game("ships/alpha.shp"));
  WriteFileAt(Game("resource.hog"), demo::BuildArchive({{"alpha.shp", demo::Compress(stock)}}));
  Choose(alpha);
  ChooseWeapon(0);
  ChangeTo(pldExtGunType_Click, 11);
  EXPECT_EQ(tab.shipWeaponsList.rows.at(0).texts.at(0), "Pair: External - Laser Cannon Type 5");
  cmdRestoreWeapons_Click(at.host, tab, installation);
  EXPECT_EQ(tab.shipWeaponsList.rows.at(0).texts.at(0), "Pair: Pulse Cannon");
  EXPECT_TRUE(SameBytes(stock, ReadFileAt(Game("ships/alpha.shp"))));
}

TEST_F(WeaponEditing, TheTopViewShowsEveryAttachmentAndMarksTheSelectedPair) {
  Choose(alpha);
  ASSERT_EQ(tab.topView.points.size(), 6U);
  for (const TopViewPoint& point : tab.topView.points) EXPECT_FALSE(point.selected);
  ChooseWeapon(2);
  // The largest extent is the length from z = -300 to 400.
  const auto& missile = tab.topView.points[3];
  EXPECT_DOUBLE_EQ(missile.across, 0.5 + 250.0 / 700);
  EXPECT_DOUBLE_EQ(missile.along, 0.5 + 50.0 / 700);
  EXPECT_TRUE(missile.missile);
  for (const TopViewPoint& point : tab.topView.points) {
    EXPECT_EQ(point.selected, point.attachment == 3 || point.attachment == 4);
  }
  EXPECT_DOUBLE_EQ(tab.topView.points[2].along, 0);
  EXPECT_DOUBLE_EQ(tab.topView.points[5].along, 1);
}

TEST(TopView, HoldsTheExtremesOfTheCoordinates) {
  const std::int32_t low = -2147483647 - 1;
  const ShpAttachments all = {
      {6, 3, low, 0, low, 1, 0}, {9, 3, 2147483647, 0, 2147483647, 1, 0}, {0, 3, 5, 5, 5, 1, 0}};
  const TopView view = TopViewOf(all, FindWeaponPairs(all), std::nullopt);
  ASSERT_EQ(view.points.size(), 2U);
  for (const TopViewPoint& point : view.points) {
    EXPECT_TRUE(point.across >= 0 && point.across <= 1);
    EXPECT_TRUE(point.along >= 0 && point.along <= 1);
  }
}

TEST(TopView, OfOneAttachmentAndOfNone) {
  EXPECT_TRUE(TopViewOf({}, {}, std::nullopt).points.empty());
  const ShpAttachments one = {{6, 3, 0, 0, 77, 1, 0}};
  const TopView view = TopViewOf(one, FindWeaponPairs(one), 0);
  EXPECT_DOUBLE_EQ(view.points.at(0).across, 0.5);
  EXPECT_DOUBLE_EQ(view.points.at(0).along, 0.5);
  EXPECT_TRUE(view.points.at(0).selected);
}

}  // namespace
}  // namespace oravin::test
