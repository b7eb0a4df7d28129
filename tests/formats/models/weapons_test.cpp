#include <gtest/gtest.h>

#include <array>
#include <random>

#include "models/weapons.h"
#include "support/model_file.h"

namespace oravin {
namespace {

using test::ExternalGun;
using test::Gun;
using test::Missile;

TEST(WeaponNames, OfGunsAreThoseOfTheGame) {
  const std::vector<std::string> names = {"Unspecified Gun",
                                          "Laser",
                                          "Pulse Cannon",
                                          "Messon Blaster",
                                          "Proton Cannon",
                                          "Gatling Lasers",
                                          "Tachyon Gun",
                                          "Neutron Particle Gun",
                                          "Collapser Guns",
                                          "Gattling Plasma Cannon",
                                          "Vulcan Battery",
                                          "Nova Cannon",
                                          "Turret Flak Projectiles",
                                          "Turret Lasers",
                                          "Allied Huge Gun",
                                          "Coalition Huge Gun"};
  for (std::size_t i = 0; i < names.size(); ++i) EXPECT_EQ(GetGunName(static_cast<int>(i)), names[i]);
  for (const int code : {-1, 16, 64, 65535}) EXPECT_EQ(GetGunName(code), "Unknown Gun");
}

TEST(WeaponNames, OfExternalGunsSkipEightNineAndTen) {
  const std::vector<std::string> names = {"Pulse Cannon",        "Gatling Laser",       "Proton Cannon",
                                          "Dbl. Barrel Lasers",  "Laser Cannon Type 1", "Laser Cannon Type 2",
                                          "Laser Cannon Type 3", "Laser Cannon Type 4"};
  for (std::size_t i = 0; i < names.size(); ++i) EXPECT_EQ(GetExtGunName(static_cast<int>(i)), names[i]);
  for (const int code : {8, 9, 10, 12, -1, 65535}) EXPECT_EQ(GetExtGunName(code), "Unknown");
  EXPECT_EQ(GetExtGunName(11), "Laser Cannon Type 5");
}

std::vector<std::int32_t> PartnersOf(const ShpAttachments& attachments) {
  const WeaponPairs pairs = FindWeaponPairs(attachments);
  EXPECT_EQ(pairs.partner.size(), attachments.size());
  for (std::size_t i = 0; i < pairs.partner.size(); ++i) EXPECT_EQ(pairs.paired[i], pairs.partner[i] >= 0);
  return pairs.partner;
}

using Partners = std::vector<std::int32_t>;

TEST(WeaponPairs, TwoThatMirrorEachOtherInXPair) {
  EXPECT_EQ(PartnersOf({Gun(100, 5, 5), Gun(-100, 5, 5)}), (Partners{1, 0}));
}

TEST(WeaponPairs, TwoAtTheSameXDoNotPair) {
  EXPECT_EQ(PartnersOf({Gun(100, 5, 5), Gun(100, 5, 5)}), (Partners{-1, -1}));
}

TEST(WeaponPairs, MirroringXMayBeOffBySixtyNine) {
  EXPECT_EQ(PartnersOf({Gun(100, 0, 0), Gun(-169, 0, 0)}), (Partners{1, 0}));
  EXPECT_EQ(PartnersOf({Gun(100, 0, 0), Gun(-170, 0, 0)}), (Partners{-1, -1}));
  EXPECT_EQ(PartnersOf({Gun(100, 0, 0), Gun(-31, 0, 0)}), (Partners{1, 0}));
  EXPECT_EQ(PartnersOf({Gun(100, 0, 0), Gun(-30, 0, 0)}), (Partners{-1, -1}));
}

TEST(WeaponPairs, ZMayBeOffByTwentyFour) {
  EXPECT_EQ(PartnersOf({Gun(100, 0, 0), Gun(-100, 0, 24)}), (Partners{1, 0}));
  EXPECT_EQ(PartnersOf({Gun(100, 0, 0), Gun(-100, 0, 25)}), (Partners{-1, -1}));
}

TEST(WeaponPairs, YIsTheSameOrMirrored) {
  EXPECT_EQ(PartnersOf({Gun(100, 500, 0), Gun(-100, 529, 0)}), (Partners{1, 0}));
  EXPECT_EQ(PartnersOf({Gun(100, 500, 0), Gun(-100, 530, 0)}), (Partners{-1, -1}));
  EXPECT_EQ(PartnersOf({Gun(100, 500, 0), Gun(-100, -529, 0)}), (Partners{1, 0}));
  EXPECT_EQ(PartnersOf({Gun(100, 500, 0), Gun(-100, -530, 0)}), (Partners{-1, -1}));
}

TEST(WeaponPairs, OnlyTheSameKindPairs) {
  EXPECT_EQ(PartnersOf({Gun(100, 0, 0), ExternalGun(-100, 0, 0)}), (Partners{-1, -1}));
  EXPECT_EQ(PartnersOf({Missile(100, 0, 0), Missile(-100, 0, 0)}), (Partners{1, 0}));
}

TEST(WeaponPairs, OtherKindsNeverPair) {
  for (const std::uint16_t kind : std::vector<std::uint16_t>{2, 4, 65535}) {
    EXPECT_EQ(PartnersOf({{0, kind, 100, 0, 0, 0, 0}, {0, kind, -100, 0, 0, 0, 0}}), (Partners{-1, -1}));
  }
}

TEST(WeaponPairs, TheFirstAcceptablePartnerWins) {
  EXPECT_EQ(PartnersOf({Gun(100, 0, 0), Gun(-160, 0, 0), Gun(-100, 0, 0)}), (Partners{1, 0, -1}));
}

TEST(WeaponPairs, OneThatHasAPartnerIsNotTakenAgain) {
  EXPECT_EQ(PartnersOf({Gun(100, 0, 0), Gun(100, 0, 0), Gun(-100, 0, 0), Gun(-100, 0, 0)}), (Partners{2, 3, 0, 1}));
}

/// The rule itself, in numbers that are wide enough for anything.
Partners BruteForce(const ShpAttachments& attachments) {
  using Wide = std::int64_t;
  const auto positive = [](Wide value) { return value < 0 ? -value : value; };
  const auto dist = [&](Wide a, Wide b) { return positive(a - b); };
  Partners partner(attachments.size(), -1);
  for (std::size_t i = 0; i < attachments.size(); ++i) {
    const ShpAttachment& a = attachments[i];
    if (a.kind != 0 && a.kind != 1 && a.kind != 3) continue;
    for (std::size_t j = i + 1; j < attachments.size() && partner[i] < 0; ++j) {
      const ShpAttachment& b = attachments[j];
      if (partner[j] >= 0 || b.kind != a.kind) continue;
      const Wide mirrorX = positive(dist(b.x, a.x) - positive(Wide{2} * a.x));
      const Wide mirrorY = positive(dist(b.y, a.y) - positive(Wide{2} * a.y));
      if (!(mirrorX < 70 && dist(b.z, a.z) < 25 && (dist(b.y, a.y) < 30 || mirrorY < 30))) continue;
      partner[i] = static_cast<std::int32_t>(j);
      partner[j] = static_cast<std::int32_t>(i);
    }
  }
  return partner;
}

TEST(WeaponPairs, OfThousandsOfGeneratedSetsAreThoseOfTheRule) {
  std::mt19937 random(4711);
  const auto coordinate = [&]() -> std::int32_t {
    static constexpr std::array<std::int32_t, 8> corners = {
        2147483647, -2147483647 - 1, -2147483647, 1073741824, -1073741824, 0, 35, -35};
    const std::uint32_t choice = random() % 8;
    if (choice == 0) return corners.at(random() % 8);
    if (choice == 1) return static_cast<std::int32_t>(static_cast<std::uint32_t>(random()));
    return static_cast<std::int32_t>(random() % 4) * 34 - 51;
  };
  int paired = 0;
  for (int set = 0; set < 5000; ++set) {
    ShpAttachments attachments(random() % 40);
    for (ShpAttachment& a : attachments) {
      a = {0, static_cast<std::uint16_t>(random() % 5), coordinate(), coordinate(), coordinate(), 0, 0};
    }
    const Partners partners = PartnersOf(attachments);
    ASSERT_EQ(partners, BruteForce(attachments)) << "set " << set;
    for (const std::int32_t partner : partners) paired += partner >= 0 ? 1 : 0;
  }
  EXPECT_GT(paired, 5000);
}

}  // namespace
}  // namespace oravin
