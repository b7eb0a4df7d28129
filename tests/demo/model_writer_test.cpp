#include "demo/model_writer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>

#include "reading.h"

namespace oravin::demo {
namespace {

using reading::Chunk;
using reading::Little16;
using reading::Little32;

ModelOptions SomeModel(std::uint8_t classByte, int size) {
  ModelOptions options;
  options.seed = static_cast<std::uint64_t>(size) + classByte;
  options.name = "some";
  options.classByte = classByte;
  options.size = size;
  options.textures = {"hull1", "hull2"};
  options.attachments = ArmShip(options.seed, classByte);
  return options;
}

TEST(ModelWriter, TheClassByteStandsAtOffset26) {
  for (const std::uint8_t classByte : std::array<std::uint8_t, 5>{0, 1, 2, 3, 5}) {
    EXPECT_EQ(BuildModel(SomeModel(classByte, 30000)).at(26), classByte);
  }
}

TEST(ModelWriter, ChunksEndExactlyAtTheFilesEnd) {
  for (const int size : {1000, 20000, 70000, 200000}) {
    for (const std::uint8_t classByte : std::array<std::uint8_t, 2>{0, 1}) {
      const Bytes model = BuildModel(SomeModel(classByte, size));
      EXPECT_NO_THROW(reading::WalkChunks(model));
      if (size > 1000) {
        EXPECT_GT(model.size(), static_cast<std::size_t>(size) * 7 / 10);
        EXPECT_LT(model.size(), static_cast<std::size_t>(size) * 13 / 10 + 12000);
      }
    }
  }
}

TEST(ModelWriter, AttachmentsStandAsTheyWereGiven) {
  ModelOptions options = SomeModel(1, 100000);
  options.attachments = {
      {kGun, 10, -20, 30, 0, 7}, {kExternalGun, -70000, 5, 6, 11, 0}, {kMissileLauncher, 1, 2, 3, 0, 0}};
  const Bytes model = BuildModel(options);
  std::vector<ModelAttachment> read;
  for (const Chunk& chunk : reading::WalkChunks(model)) {
    if (chunk.type != 9) continue;
    EXPECT_GE(chunk.elementSize, 104U);
    for (std::size_t i = 0; i < chunk.count; ++i) {
      const std::size_t at = chunk.elements + i * chunk.elementSize;
      const auto number = [&](std::size_t offset) { return static_cast<std::int32_t>(Little32(model, at + offset)); };
      read.push_back({static_cast<int>(Little16(model, at)), number(4), number(8), number(12),
                      static_cast<int>(Little16(model, at + 52)), static_cast<int>(Little16(model, at + 100))});
    }
  }
  ASSERT_EQ(read.size(), options.attachments.size());
  for (std::size_t i = 0; i < read.size(); ++i) {
    EXPECT_EQ(read[i].kind, options.attachments[i].kind);
    EXPECT_EQ(read[i].x, options.attachments[i].x);
    EXPECT_EQ(read[i].y, options.attachments[i].y);
    EXPECT_EQ(read[i].z, options.attachments[i].z);
    EXPECT_EQ(read[i].externalGun, options.attachments[i].externalGun);
    EXPECT_EQ(read[i].gun, options.attachments[i].gun);
  }
}

TEST(ModelWriter, ACapitalShipNamesItsFirstTextureInBothLists) {
  const Bytes model = BuildModel(SomeModel(3, 100000));
  std::vector<std::string> names;
  for (const Chunk& chunk : reading::WalkChunks(model)) {
    if (chunk.type != 6) continue;
    for (std::size_t i = 0; i < chunk.count; ++i) {
      names.push_back(reading::TextAt(model, chunk.elements + i * chunk.elementSize));
    }
  }
  EXPECT_EQ(names, (std::vector<std::string>{"hull1", "hull2", "hull1"}));
}

TEST(ModelWriter, WeaponsMirrorInXAndNeverExceed118) {
  for (std::uint64_t seed = 0; seed < 200; ++seed) {
    for (const std::uint8_t classByte : std::array<std::uint8_t, 2>{0, 1}) {
      const auto weapons = ArmShip(seed, classByte);
      EXPECT_LE(weapons.size(), 118U);
      const auto mirrored = [&](const ModelAttachment& a) {
        return std::any_of(weapons.begin(), weapons.end(), [&](const ModelAttachment& b) {
          return &a != &b && a.kind == b.kind && std::abs(a.x + b.x) <= 3 && a.y == b.y && a.z == b.z;
        });
      };
      const auto alone = std::count_if(weapons.begin(), weapons.end(), [&](const auto& a) { return !mirrored(a); });
      EXPECT_LE(alone, 1);
      EXPECT_GE(weapons.size(), 4U);
    }
  }
}

}  // namespace
}  // namespace oravin::demo
