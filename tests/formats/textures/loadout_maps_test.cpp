#include "textures/loadout_maps.h"

#include "support/cache_stage.h"
#include "support/thrown.h"

namespace oravin {
namespace {

using test::LoadoutMapsForTests;
using test::Pattern;

struct TheMaps : test::CacheStage {
  TheMaps() { Write("gloadconv.dat", LoadoutMapsForTests()); }
  LoadoutMaps Read() { return ReadLoadoutMaps(at.host.files, folder.Windows("gloadconv.dat")); }
};

TEST_F(TheMaps, TakeEveryByteThroughItsLevelsMap) {
  const Bytes pixels = Pattern(87380);
  Bytes mapped = pixels;
  MapPixels(mapped, Read());
  EXPECT_TRUE(test::SameBytes(test::Mapped(pixels), mapped));
  EXPECT_EQ(mapped[65535], LoadoutMapsForTests()[pixels[65535]]);
  EXPECT_EQ(mapped[65536], LoadoutMapsForTests()[256 + pixels[65536]]);
  EXPECT_EQ(mapped[87379], LoadoutMapsForTests()[256 * 7 + pixels[87379]]);
}

TEST_F(TheMaps, TakeWhatFollowsTheChainThroughTheLastLevelsMap) {
  Bytes mapped = Pattern(90000);
  MapPixels(mapped, Read());
  EXPECT_TRUE(test::SameBytes(test::Mapped(Pattern(90000)), mapped));
}

TEST_F(TheMaps, OfAMissingOrDamagedFileAreNotRead) {
  for (const std::size_t length : {0U, 2047U, 2049U}) {
    Write("gloadconv.dat", Bytes(length));
    EXPECT_EQ(test::KindThrown([&] { Read(); }), ErrorKind::failed) << length;
  }
  std::filesystem::remove(folder.Native("gloadconv.dat"));
  EXPECT_EQ(test::KindThrown([&] { Read(); }), ErrorKind::missing);
}

TEST(TheLevels, AreThoseOfAFightersMipmapChain) {
  std::size_t begin = 0;
  for (std::size_t level = 0; level < loadoutLevels; ++level) {
    const std::size_t side = std::size_t{256} >> level;
    EXPECT_EQ(LevelAt(begin), level);
    EXPECT_EQ(LevelAt(begin + side * side - 1), level);
    begin += side * side;
  }
  EXPECT_EQ(begin, 87380U);
  EXPECT_EQ(LevelAt(87380), 7U);
}

}  // namespace
}  // namespace oravin
