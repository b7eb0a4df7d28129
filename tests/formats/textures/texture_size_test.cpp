#include "textures/texture_cache.h"

#include <gtest/gtest.h>

#include <limits>

namespace oravin {
namespace {

TEST(TextureDataSize, OfA16BitTextureWithEightImages) { EXPECT_EQ(TextureDataSize(256, 256, 8, 2), 174760); }

TEST(TextureDataSize, OfAnOddTextureIsAFraction) {
  EXPECT_EQ(TextureDataSize(3, 3, 2, 1), 11.25);
  EXPECT_EQ(RoundedSize(TextureDataSize(3, 3, 2, 1)), 11U);
}

TEST(TextureDataSize, OfASingleImage) {
  EXPECT_EQ(TextureDataSize(64, 64, 1, 1), 4096);
  EXPECT_EQ(TextureDataSize(64, 32, 1, 2), 4096);
}

TEST(TextureDataSize, OfAFightersChain) { EXPECT_EQ(TextureDataSize(256, 256, 8, 1), 87380); }

TEST(TextureDataSize, ASideBelowOnePixelCountsAsItIs) {
  EXPECT_EQ(TextureDataSize(1, 1, 3, 1), 1.3125);
  EXPECT_EQ(TextureDataSize(2, 1, 2, 2), 5);
}

TEST(TextureDataSize, NoImagesAtAllCountAsOne) {
  EXPECT_EQ(TextureDataSize(4, 4, 0, 1), 16);
  EXPECT_EQ(TextureDataSize(4, 4, -3, 1), 16);
}

TEST(TextureDataSize, AnAbsurdNumberOfImagesTakesNoTime) {
  EXPECT_NEAR(TextureDataSize(3, 3, std::numeric_limits<int>::max(), 1), 12, 1e-9);
}

TEST(RoundedSize, HalvesGoToTheEvenNeighbour) {
  EXPECT_EQ(RoundedSize(0.5), 0U);
  EXPECT_EQ(RoundedSize(1.5), 2U);
  EXPECT_EQ(RoundedSize(2.5), 2U);
  EXPECT_EQ(RoundedSize(2.500001), 3U);
  EXPECT_EQ(RoundedSize(0), 0U);
  EXPECT_EQ(RoundedSize(-1), 0U);
}

TEST(TcacheLayout, TheFirstUserSlotStartsAfterTheFactorySlots) {
  EXPECT_EQ(TcacheEntryOffset(0), 12U);
  EXPECT_EQ(TcacheEntryOffset(425), 102012U);
  EXPECT_EQ(TcacheEntryOffset(426), 102252U);
  EXPECT_EQ(TcacheEntryOffset(999) + tcacheEntrySize, 240012U);
}

}  // namespace
}  // namespace oravin
