#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <string>

#include "demo/bitmap_writer.h"
#include "demo/cache_writer.h"
#include "demo/palettes.h"
#include "demo/texture_plan.h"
#include "reading.h"

namespace oravin::demo {
namespace {

using reading::Little32;

struct Slot {
  std::string name;
  std::uint32_t format, width, height, images, serial, offset;
};

std::vector<Slot> ReadSlots(const Bytes& cache) {
  std::vector<Slot> slots;
  for (std::size_t i = 0; i < Little32(cache, 4); ++i) {
    const std::size_t e = 12 + 240 * i;
    slots.push_back({reading::TextAt(cache, e + 72), Little32(cache, e), Little32(cache, e + 64),
                     Little32(cache, e + 68), Little32(cache, e + 116), Little32(cache, e + 104),
                     Little32(cache, e + 224)});
    EXPECT_EQ(Little32(cache, e + 120), slots.back().width);
    EXPECT_EQ(Little32(cache, e + 124), slots.back().height);
    EXPECT_NE(Little32(cache, e + 192), 474747U);
  }
  return slots;
}

std::size_t DataSize(const Slot& slot) {
  std::size_t total = 0;
  for (std::uint32_t k = 0; k < slot.images; ++k) total += std::size_t{slot.width >> k} * (slot.height >> k);
  return total * slot.format;
}

class FactoryCache : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    maps = BuildConversionMaps(SpacePalette(), LoadoutPalette());
    cache = BuildFactoryCache(SpacePalette(), maps);
  }
  inline static Bytes maps;
  inline static Bytes cache;
};

TEST_F(FactoryCache, HeaderTells426TexturesAndTheFilesEnd) {
  EXPECT_EQ(Little32(cache, 0), 102U);
  EXPECT_EQ(Little32(cache, 4), 426U);
  EXPECT_EQ(Little32(cache, 8), cache.size());
}

TEST_F(FactoryCache, DataRunsFollowOneAnotherToTheEnd) {
  std::size_t position = 240012;
  for (const Slot& slot : ReadSlots(cache)) {
    EXPECT_EQ(slot.offset, position) << slot.name;
    position += DataSize(slot);
  }
  EXPECT_EQ(position, cache.size());
}

TEST_F(FactoryCache, NamesAreDistinctAndSerialsRun) {
  std::set<std::string> names;
  std::uint32_t serial = 1001;
  for (const Slot& slot : ReadSlots(cache)) {
    EXPECT_TRUE(names.insert(slot.name).second) << slot.name;
    EXPECT_LE(slot.name.size(), 30U);
    EXPECT_EQ(slot.serial, serial++);
  }
}

TEST_F(FactoryCache, SlotsBehindTheTexturesAreZero) {
  for (std::size_t i = 12 + 240 * 426; i < 240012; ++i) ASSERT_EQ(cache[i], 0);
}

TEST_F(FactoryCache, BothFormatsAndSeveralSizesOccur) {
  std::set<std::uint32_t> formats;
  std::set<std::pair<std::uint32_t, std::uint32_t>> sizes;
  std::size_t chains = 0;
  for (const Slot& slot : ReadSlots(cache)) {
    formats.insert(slot.format);
    sizes.insert({slot.width, slot.height});
    if (slot.format == 1 && slot.width == 256 && slot.height == 256 && slot.images == 8) ++chains;
    EXPECT_EQ(slot.width & (slot.width - 1), 0U);
    EXPECT_EQ(slot.height & (slot.height - 1), 0U);
  }
  EXPECT_EQ(formats, (std::set<std::uint32_t>{1, 2}));
  EXPECT_GE(sizes.size(), 6U);
  EXPECT_GE(chains, 100U);
}

// The ranges of a fighter's chain, as the conversion counts them.
std::size_t LevelOf(std::size_t p) {
  constexpr std::array<std::size_t, 7> kEnds{65536, 81920, 86016, 87040, 87296, 87360, 87376};
  std::size_t level = 0;
  while (level < kEnds.size() && p >= kEnds[level]) ++level;
  return level;
}

TEST_F(FactoryCache, CompanionsAreTheirOriginalsThroughTheMapsPixelForPixel) {
  std::map<std::string, Slot> byName;
  for (const Slot& slot : ReadSlots(cache)) byName[slot.name] = slot;
  std::size_t companions = 0;
  for (const auto& [name, slot] : byName) {
    const auto companion = byName.find("g" + name);
    if (companion == byName.end()) continue;
    ++companions;
    ASSERT_EQ(slot.format, 1U) << name;
    ASSERT_EQ(DataSize(slot), DataSize(companion->second));
    for (std::size_t p = 0; p < DataSize(slot); ++p) {
      const std::size_t expected = maps[256 * LevelOf(p) + cache[slot.offset + p]];
      ASSERT_EQ(cache[companion->second.offset + p], expected) << name << " at " << p;
    }
  }
  EXPECT_EQ(companions, 112U);
}

TEST_F(FactoryCache, PicturesAreNoFlatAreas) {
  for (const Slot& slot : ReadSlots(cache)) {
    const auto pixels = std::span(cache).subspan(slot.offset, DataSize(slot));
    EXPECT_TRUE(std::any_of(pixels.begin(), pixels.end(), [&](std::uint8_t p) { return p != pixels[0]; })) << slot.name;
  }
}

TEST(ConversionMaps, AreEightAndDiffer) {
  const Bytes maps = BuildConversionMaps(SpacePalette(), LoadoutPalette());
  ASSERT_EQ(maps.size(), 2048U);
  std::set<Bytes> different;
  for (std::ptrdiff_t k = 0; k < 8; ++k) different.insert(Bytes(maps.begin() + 256 * k, maps.begin() + 256 * (k + 1)));
  EXPECT_EQ(different.size(), 8U);
}

TEST(ConversionMaps, TheFirstByteOfASmallerImageTakesTheNextMap) {
  Bytes maps(2048);
  for (std::size_t i = 0; i < maps.size(); ++i) maps[i] = static_cast<std::uint8_t>(i / 256);
  const Bytes converted = ConvertPixels(Bytes(87380, 5), maps);
  for (std::size_t p = 0; p < converted.size(); ++p) ASSERT_EQ(converted[p], LevelOf(p)) << p;
}

TEST(CacheWriter, AWrongNumberOfPixelBytesIsRefused) {
  CacheBuilder cache = BeginCache(0);
  EXPECT_THROW(AddTexture(cache, {"x", 1, 4, 4, 1}, Bytes(15)), std::length_error);
  EXPECT_NO_THROW(AddTexture(cache, {"x", 1, 4, 4, 1}, Bytes(16)));
  EXPECT_EQ(cache.textures, 1U);
}

TEST(BitmapWriter, AnEightBitBitmapHasItsPixelsAt1078) {
  const Bytes bitmap = BuildBitmap8(4, 2, SpacePalette(), Bytes(8, 0xAB));
  ASSERT_EQ(bitmap.size(), 1086U);
  EXPECT_EQ(bitmap[0], 'B');
  EXPECT_EQ(bitmap[1], 'M');
  EXPECT_EQ(Little32(bitmap, 2), 1086U);
  EXPECT_EQ(Little32(bitmap, 10), 1078U);
  EXPECT_EQ(Little32(bitmap, 18), 4U);
  EXPECT_EQ(Little32(bitmap, 22), 2U);
  EXPECT_EQ(reading::Little16(bitmap, 28), 8U);
  EXPECT_EQ(bitmap[1078], 0xAB);
}

TEST(BitmapWriter, ADeepBitmapHasItsPixelsAt54) {
  const Bytes bitmap = BuildBitmap24(4, 1, Bytes(12, 0xCD));
  ASSERT_EQ(bitmap.size(), 66U);
  EXPECT_EQ(Little32(bitmap, 10), 54U);
  EXPECT_EQ(reading::Little16(bitmap, 28), 24U);
  EXPECT_EQ(bitmap[54], 0xCD);
}

}  // namespace
}  // namespace oravin::demo
