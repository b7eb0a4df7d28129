#include "textures/picture.h"
#include "files/file.h"

#include "base/file_error.h"
#include "support/cache_stage.h"
#include "support/image_program.h"
#include "textures/extract_texture.h"

namespace oravin {
namespace {

using test::Bitmap;
using test::CacheWith;
using test::Pattern;
using test::SetLong;

/// A palette in which every index has its own colour.
Palette Colours() {
  Palette palette;
  for (std::size_t i = 0; i < 256; ++i) {
    palette.at(i) = {static_cast<std::uint8_t>(i), static_cast<std::uint8_t>(255 - i),
                     static_cast<std::uint8_t>(i / 2)};
  }
  return palette;
}

struct ThePicture : test::CacheStage {
  TcacheEntry EntryAt(std::size_t slot) { return GetTcacheTable(at.host.files, Path()).at(slot); }
  std::optional<Picture> Show(const TcacheEntry& entry, int image) {
    return TexturePicture(at.host.files, Path(), entry, image, Colours());
  }
};

TEST_F(ThePicture, OfAn8BitTextureGoesThroughThePaletteTheLowestRowFirst) {
  Make(CacheWith({{"a", 1, 4, 2, 2}}));
  const auto large = Show(EntryAt(426), 0);
  ASSERT_TRUE(large);
  EXPECT_EQ(large->width, 4);
  EXPECT_EQ(large->height, 2);
  Bytes expected;
  for (const int row : {1, 0}) {
    for (int x = 0; x < 4; ++x) {
      const Rgb colour = Colours().at(Pattern(10, 426)[static_cast<std::size_t>(row * 4 + x)]);
      expected.insert(expected.end(), {colour.red, colour.green, colour.blue});
    }
  }
  EXPECT_EQ(large->rgb, expected);
  const auto small = Show(EntryAt(426), 1);
  ASSERT_TRUE(small);
  EXPECT_EQ(small->width, 2);
  EXPECT_EQ(small->height, 1);
  const Rgb first = Colours().at(Pattern(10, 426)[8]);
  EXPECT_EQ(small->rgb[0], first.red);
  EXPECT_EQ(small->rgb[1], first.green);
}

TEST_F(ThePicture, OfA16BitTextureHasItsTrueColours) {
  Bytes cache = CacheWith({{"a", 2, 2, 2, 1}});
  const Bytes pixels = {0x00, 0xF8, 0xE0, 0x07, 0x1F, 0x00, 0x10, 0x84};
  std::copy(pixels.begin(), pixels.end(), cache.end() - 8);
  Make(cache);
  const auto picture = Show(EntryAt(426), 0);
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->rgb, (Bytes{0, 0, 255, 132, 130, 132, 255, 0, 0, 0, 255, 0}));
}

TEST_F(ThePicture, IsWhatAnImageProgramShowsOfTheExtractedBitmap) {
  Make(CacheWith({{"a", 1, 64, 32, 6}, {"b", 2, 32, 64, 6}}));
  Bytes lender = Bitmap(4, 4, 8, Pattern(16));
  // The extracted bitmap states its template's length, and the image program compares it with the file's.
  SetLong(lender, 2, 1078 + 2048 + 512 + 128 + 32 + 8 + 2);
  for (std::size_t i = 0; i < 256; ++i) SetLong(lender, 54 + 4 * i, static_cast<std::uint32_t>(i * 40503 % 0x1000000));
  Write("cube.bmp", lender);
  const Palette palette = TemplatePalette(at.host.files, folder.Windows("cube.bmp"));
  for (const std::size_t slot : {426U, 427U}) {
    const TcacheEntry entry = EntryAt(slot);
    std::size_t header = 0;
    ExtractTexture(at.host.files, Path(), entry, folder.Windows("cube.bmp"), folder.Windows("out.bmp"), header);
    const auto picture = TexturePicture(at.host.files, Path(), entry, 0, palette);
    ASSERT_TRUE(picture);
    EXPECT_TRUE(test::SameBytes(test::ShownPixels(folder.Native("out.bmp")), picture->rgb));
  }
}

TEST_F(ThePicture, OfNothingThatCanBeShownIsNone) {
  Make(CacheWith({{"a", 1, 4, 4, 2}}));
  const TcacheEntry good = EntryAt(426);
  const auto with = [&](auto change) {
    TcacheEntry entry = good;
    change(entry);
    return Show(entry, 0);
  };
  EXPECT_TRUE(Show(good, 1));
  EXPECT_FALSE(Show(good, 2));
  EXPECT_FALSE(Show(good, -1));
  EXPECT_FALSE(with([](TcacheEntry& e) { e.pixelFormat = 3; }));
  EXPECT_FALSE(with([](TcacheEntry& e) { e.pixelFormat = 0; }));
  EXPECT_FALSE(with([](TcacheEntry& e) { e.dataOffset = 0x7FFFFFFF; }));
  EXPECT_FALSE(with([](TcacheEntry& e) { e.dataOffset = -1; }));
  EXPECT_FALSE(with([](TcacheEntry& e) { e.width = 0; }));
  EXPECT_FALSE(with([](TcacheEntry& e) { e.width = -4; }));
  EXPECT_FALSE(with([](TcacheEntry& e) { e.height = 0x7FFFFFFF; }));
  EXPECT_FALSE(with([](TcacheEntry& e) { e.width = e.height = 0x7FFFFFFF; }));
  EXPECT_TRUE(with([](TcacheEntry& e) { e.imageCount = 0; }));
  EXPECT_THROW(TexturePicture(at.host.files, folder.Windows("none"), good, 0, Colours()), FileError);
}

TEST_F(ThePicture, OfEveryImageOfAnOddTextureStaysInItsData) {
  Bytes cache = CacheWith({{"a", 1, 4, 4, 2}});  // its 20 bytes are the last of the file
  for (std::uint32_t width = 1; width < 8; ++width) {
    for (std::uint32_t height = 1; height < 8; ++height) {
      for (std::uint32_t images = 1; images < 5; ++images) {
        SetLong(cache, 102252 + 64, width);
        SetLong(cache, 102252 + 68, height);
        SetLong(cache, 102252 + 116, images);
        Make(cache);
        const TcacheEntry entry = EntryAt(426);
        if (!DataLiesIn(entry, cache.size())) continue;
        for (int image = 0; image < VisibleImages(entry); ++image) {
          const auto picture = Show(entry, image);
          ASSERT_TRUE(picture);
          EXPECT_EQ(picture->rgb.size(), static_cast<std::size_t>(picture->width * picture->height * 3));
        }
      }
    }
  }
}

TEST_F(ThePicture, OfAThumbnailIsNoLargerThanAskedAndKeepsItsShape) {
  Make(CacheWith({{"a", 1, 256, 128, 8}, {"b", 2, 128, 128, 1}, {"c", 1, 16, 16, 1}}));
  const auto thumbnail = [&](std::size_t slot, int side) {
    return TextureThumbnail(at.host.files, Path(), EntryAt(slot), Colours(), side);
  };
  auto picture = thumbnail(426, 64);
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->width, 64);
  EXPECT_EQ(picture->height, 32);
  EXPECT_EQ(picture->rgb, Show(EntryAt(426), 2)->rgb);  // taken from the chain
  picture = thumbnail(427, 48);
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->width, 48);
  EXPECT_EQ(picture->height, 48);
  picture = thumbnail(428, 48);
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->width, 16);
}

TEST_F(ThePicture, OfABitmapThatIsToBeImported) {
  Bytes deep = Bitmap(4, 4, 24, Pattern(48));
  Write("a.bmp", deep);
  BmpInfo info = GetBMPInfo(at.host.files, folder.Windows("a.bmp"));
  const auto picture = BitmapPicture(at.host.files, folder.Windows("a.bmp"), info);
  ASSERT_TRUE(picture);
  EXPECT_TRUE(test::SameBytes(test::ShownPixels(folder.Native("a.bmp")), picture->rgb));
  Write("a.bmp", Bitmap(4, 4, 8, Pattern(16)));
  info = GetBMPInfo(at.host.files, folder.Windows("a.bmp"));
  const auto grey = BitmapPicture(at.host.files, folder.Windows("a.bmp"), info);
  ASSERT_TRUE(grey);
  EXPECT_EQ(grey->rgb[0], Pattern(16)[12]);
  Write("a.bmp", Bitmap(3, 3, 8, Pattern(12)));
  info = GetBMPInfo(at.host.files, folder.Windows("a.bmp"));
  EXPECT_FALSE(BitmapPicture(at.host.files, folder.Windows("a.bmp"), info));
}

TEST_F(ThePicture, OfABitmapOfAnotherDepthIsNoneWhereverItsPixelsBegin) {
  Bytes file(std::size_t{8} * 8 * 4);
  SetLong(file, 18, 8);
  SetLong(file, 22, 8);
  SetLong(file, 28, 4);
  Write("a.bmp", file);
  BmpInfo info = GetBMPInfo(at.host.files, folder.Windows("a.bmp"));
  EXPECT_FALSE(BitmapPicture(at.host.files, folder.Windows("a.bmp"), info));
}

TEST_F(ThePicture, OfABitmapWhosePixelsStartFarAfterItsHeader) {
  constexpr std::uint32_t pixelsAt = 0xFFFF0000;
  Bytes file = Bitmap(4, 4, 8, {});
  SetLong(file, 10, pixelsAt);
  Write("a.bmp", file);
  {
    File bitmap(at.host.files, folder.Windows("a.bmp"), OpenFor::changing);
    Put(bitmap, pixelsAt, Pattern(16));
  }
  BmpInfo info = GetBMPInfo(at.host.files, folder.Windows("a.bmp"));
  const auto picture = BitmapPicture(at.host.files, folder.Windows("a.bmp"), info);
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->rgb[0], Pattern(16)[12]);
}

TEST_F(ThePicture, WithoutATemplateIsInShadesOfGrey) {
  const Palette palette = TemplatePalette(at.host.files, folder.Windows("none.bmp"));
  EXPECT_EQ(palette[200], (Rgb{200, 200, 200}));
  Write("short.bmp", Bytes(100));
  EXPECT_EQ(TemplatePalette(at.host.files, folder.Windows("short.bmp"))[7], (Rgb{7, 7, 7}));
}

TEST_F(ThePicture, IsScaledToTheNearestPixels) {
  const Picture picture{2, 1, {1, 2, 3, 4, 5, 6}};
  EXPECT_EQ(Scaled(picture, 4, 2).rgb, (Bytes{1, 2, 3, 1, 2, 3, 4, 5, 6, 4, 5, 6, 1, 2, 3, 1, 2, 3, 4, 5, 6, 4, 5, 6}));
  EXPECT_EQ(Scaled(picture, 1, 0).rgb, (Bytes{1, 2, 3}));
}

TEST_F(ThePicture, AsAFileIsOpenedByAnImageProgram) {
  for (const int width : {1, 2, 3, 5, 300}) {
    Picture picture{width, 77, Pattern(static_cast<std::size_t>(width) * 77 * 3)};
    Write("p.bmp", BitmapFileOf(picture));
    Write("p.png", PngFileOf(picture));
    EXPECT_EQ(test::Identified(folder.Native("p.png")), "PNG " + std::to_string(width) + " 77");
    EXPECT_TRUE(test::SameBytes(picture.rgb, test::ShownPixels(folder.Native("p.bmp"))));
    EXPECT_TRUE(test::SameBytes(picture.rgb, test::ShownPixels(folder.Native("p.png"))));
  }
}

TEST(PngFile, OfAPlainPictureIsMuchSmallerThanItsPixels) {
  const Picture plain{256, 64, Bytes(std::size_t{256} * 64 * 3, 0x5A)};
  EXPECT_LT(PngFileOf(plain).size(), plain.rgb.size() / 20);
}

TEST(ThePictureCache, DropsWhatWasNotUsedForTheLongestTime) {
  PictureCache cache;
  cache.mostBytes = 30;
  const Picture ten{1, 1, Bytes(10)};
  KeepPicture(cache, 1, ten);
  KeepPicture(cache, 2, ten);
  KeepPicture(cache, 3, ten);
  EXPECT_NE(FindPicture(cache, 1), nullptr);
  KeepPicture(cache, 4, ten);
  EXPECT_EQ(FindPicture(cache, 2), nullptr);
  EXPECT_NE(FindPicture(cache, 1), nullptr);
  EXPECT_NE(FindPicture(cache, 3), nullptr);
  EXPECT_EQ(cache.bytes, 30U);
  KeepPicture(cache, 4, {1, 1, Bytes(5)});
  EXPECT_EQ(cache.bytes, 25U);
  KeepPicture(cache, 5, {1, 1, Bytes(100)});
  EXPECT_EQ(cache.items.size(), 1U);
  EXPECT_NE(FindPicture(cache, 5), nullptr);
  ForgetPictures(cache);
  EXPECT_EQ(FindPicture(cache, 5), nullptr);
  EXPECT_EQ(cache.bytes, 0U);
}

}  // namespace
}  // namespace oravin
