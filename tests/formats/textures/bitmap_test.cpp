#include "textures/bitmap.h"

#include "support/cache_stage.h"
#include "support/thrown.h"
#include "textures/texture_cache.h"

namespace oravin {
namespace {

using test::Bitmap;
using test::Pattern;
using test::SetLong;

struct TheBitmap : test::CacheStage {
  BmpInfo info;

  /// What GetBMPInfo says of a file of these bytes.
  BmpInfo InfoOf(const Bytes& file) {
    Write("a.bmp", file);
    info = GetBMPInfo(at.host.files, folder.Windows("a.bmp"));
    return info;
  }
  bool Fits(const Bytes& file) {
    InfoOf(file);
    return BitmapFits(at.host.files, folder.Windows("a.bmp"), info);
  }
};

TEST_F(TheBitmap, HasItsSizesDepthAndLevels) {
  EXPECT_EQ(InfoOf(Bitmap(64, 32, 8, Pattern(2048))), (BmpInfo{1078, 64, 32, 1, 1}));
  EXPECT_EQ(InfoOf(Bitmap(64, 32, 16, Pattern(4096))), (BmpInfo{54, 64, 32, 2, 1}));
  EXPECT_EQ(InfoOf(Bitmap(64, 32, 24, Pattern(6144))), (BmpInfo{54, 64, 32, 3, 1}));
  EXPECT_EQ(InfoOf(Bitmap(64, 32, 32, Pattern(8192))).depth, 32);
  EXPECT_EQ(InfoOf(Bitmap(64, 32, 4, Pattern(1024))).depth, 4);
  EXPECT_EQ(InfoOf(Bitmap(64, 32, 1, Pattern(256))).depth, 1);
}

TEST_F(TheBitmap, Of256By256With87380BytesHas8Images) {
  EXPECT_EQ(InfoOf(Bitmap(256, 256, 8, Pattern(87380))), (BmpInfo{1078, 256, 256, 1, 8}));
  EXPECT_EQ(InfoOf(Bitmap(256, 256, 16, Pattern(174760))).imageCount, 8);
  EXPECT_EQ(InfoOf(Bitmap(256, 256, 24, Pattern(262140))).imageCount, 8);
  EXPECT_EQ(InfoOf(Bitmap(4, 4, 8, Pattern(20))).imageCount, 2);
}

TEST_F(TheBitmap, WhoseLengthFitsNoNumberOfImagesHasNone) {
  EXPECT_EQ(InfoOf(Bitmap(64, 32, 8, Pattern(2047))).imageCount, 0);
  EXPECT_EQ(InfoOf(Bitmap(64, 32, 8, Pattern(2049))).imageCount, 0);
  EXPECT_EQ(InfoOf(Bitmap(64, 32, 8, {})).imageCount, 0);
  EXPECT_EQ(InfoOf(Bitmap(0, 0, 8, {})).imageCount, 0);
}

TEST_F(TheBitmap, WhoseLengthIsOneOfImagesOnlyWhenRoundedHasNone) {
  // Image programs pad a row of two pixels of 24 bits to 8 bytes: 16 bytes here, near the 15.75 of three images.
  EXPECT_EQ(InfoOf(Bitmap(2, 2, 24, Pattern(16))).imageCount, 0);
  EXPECT_EQ(InfoOf(Bitmap(2, 4, 24, Pattern(32))).imageCount, 0);  // 31.97 with five
  EXPECT_EQ(InfoOf(Bitmap(2, 2, 8, Pattern(5))).imageCount, 2);    // 4 and 1
  EXPECT_EQ(InfoOf(Bitmap(4, 2, 8, Pattern(10))).imageCount, 2);   // 8 and 2
  EXPECT_EQ(InfoOf(Bitmap(4, 2, 8, Pattern(11))).imageCount, 0);   // 10.5 with three
  EXPECT_EQ(InfoOf(Bitmap(3, 3, 8, Pattern(11))).imageCount, 0);   // 11.25 with two
  EXPECT_EQ(InfoOf(Bitmap(4, 2, 16, Pattern(21))).imageCount, 3);  // half a pixel of 16 bits is a byte
  EXPECT_EQ(InfoOf(Bitmap(256, 256, 8, Pattern(87381))).imageCount, 9);
}

TEST_F(TheBitmap, WhoseLengthIsTheLimitOfEverMoreImagesHasNone) {
  // As floating-point numbers the sums reach these lengths in the end.
  for (const int side : {2, 4, 16, 256}) {
    const auto pixels = static_cast<std::size_t>(side) * static_cast<std::size_t>(side);
    EXPECT_EQ(InfoOf(Bitmap(side, side, 24, Pattern(pixels * 4))).imageCount, 0) << side;
    EXPECT_FALSE(BitmapFits(at.host.files, folder.Windows("a.bmp"), info)) << side;
  }
}

TEST_F(TheBitmap, OfSidesWhoseProductNoFileCanHoldHasNoImages) {
  Bytes file = Bitmap(4, 4, 8, Pattern(16));
  for (const std::uint32_t side : {0x7FFFFFFFU, 0x80000000U, 0x10000U}) {
    SetLong(file, 18, side);
    SetLong(file, 22, side);
    for (const std::uint32_t bits : {8U, 24U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
      SetLong(file, 28, bits);
      EXPECT_EQ(InfoOf(file).imageCount, 0) << side << " " << bits;
    }
  }
}

TEST_F(TheBitmap, ThatIsMissingSaysSo) {
  EXPECT_EQ(test::KindThrown([&] { GetBMPInfo(at.host.files, folder.Windows("a.bmp")); }), ErrorKind::missing);
}

TEST_F(TheBitmap, ThatIsTruncatedSaysSo) {
  const Bytes whole = Bitmap(64, 32, 8, Pattern(2048));
  for (const std::size_t length : {0U, 1U, 18U, 28U, 31U}) {
    Write("a.bmp", Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)));
    try {
      GetBMPInfo(at.host.files, folder.Windows("a.bmp"));
      FAIL() << length;
    } catch (const FileError& error) {
      EXPECT_EQ(error.kind, ErrorKind::failed);
      EXPECT_EQ(error.what(), "could not read " + folder.Windows("a.bmp") + ": it ends too early");
    }
  }
  EXPECT_FALSE(Fits(Bytes(whole.begin(), whole.begin() + 54)));
  EXPECT_FALSE(Fits(Bytes(whole.begin(), whole.end() - 1)));
}

TEST_F(TheBitmap, OfSides2To256Fits) {
  for (const int side : {2, 4, 8, 16, 32, 64, 128, 256}) {
    const auto pixels = static_cast<std::size_t>(side) * 4;
    EXPECT_TRUE(Fits(Bitmap(side, 4, 8, Pattern(pixels)))) << side;
    EXPECT_TRUE(Fits(Bitmap(4, side, 24, Pattern(pixels * 3)))) << side;
  }
}

TEST_F(TheBitmap, OfOtherSidesDoesNotFit) {
  EXPECT_FALSE(Fits(Bitmap(300, 300, 8, Pattern(90000))));
  EXPECT_FALSE(Fits(Bitmap(512, 512, 8, Pattern(262144))));
  EXPECT_FALSE(Fits(Bitmap(1, 4, 8, Pattern(4))));
  EXPECT_FALSE(Fits(Bitmap(3, 4, 8, Pattern(12))));
  EXPECT_FALSE(Fits(Bitmap(0, 4, 8, {})));
  EXPECT_FALSE(Fits(Bitmap(4, 0, 8, {})));
  EXPECT_FALSE(Fits(Bitmap(0x7FFFFFFF, 4, 8, Pattern(16))));
  EXPECT_FALSE(Fits(Bitmap(0x7FFFFFFF, 0x7FFFFFFF, 24, Pattern(16))));
}

TEST_F(TheBitmap, WhoseFirstRowIsTheHighestDoesNotFit) { EXPECT_FALSE(Fits(Bitmap(8, -8, 8, Pattern(64)))); }

TEST_F(TheBitmap, OfAnotherDepthDoesNotFit) {
  EXPECT_FALSE(Fits(Bitmap(64, 64, 32, Pattern(16384))));
  EXPECT_FALSE(Fits(Bitmap(64, 64, 4, Pattern(2048))));
  EXPECT_FALSE(Fits(Bitmap(64, 64, 1, Pattern(512))));
  // Four rows of one bit a pixel are as long as one of eight: only the header shows which it is.
  EXPECT_FALSE(Fits(Bitmap(4, 4, 1, Pattern(16))));
}

TEST_F(TheBitmap, ThatIsCompressedDoesNotFit) {
  for (const int compression : {1, 2, 3, 4, 5}) {
    Bytes file = Bitmap(8, 8, 8, Pattern(64));
    file[30] = static_cast<std::uint8_t>(compression);
    EXPECT_FALSE(Fits(file));
  }
}

TEST_F(TheBitmap, WithAnOs2HeaderDoesNotFit) {
  Bytes file(26 + 768);
  file[0] = 'B';
  file[1] = 'M';
  SetLong(file, 10, 26 + 768);
  SetLong(file, 14, 12);
  file[18] = 8;  // width and height of two bytes each
  file[20] = 8;
  file[22] = 1;
  file[24] = 8;
  file.resize(file.size() + 64);
  EXPECT_FALSE(Fits(file));
}

TEST_F(TheBitmap, WhosePixelsStartAfterItsEndDoesNotFit) {
  Bytes file = Bitmap(8, 8, 8, Pattern(64));
  for (const std::uint32_t offset : {0xFFFFFFFFU, 0x7FFFFFFFU, static_cast<std::uint32_t>(file.size())}) {
    SetLong(file, 10, offset);
    EXPECT_FALSE(Fits(file));
  }
}

TEST_F(TheBitmap, OfAnotherDepthDoesNotFitWhereverItsPixelsBegin) {
  for (const std::uint32_t depth : {4U, 5U, 32U}) {
    Bytes file(std::size_t{8} * 8 * depth);
    SetLong(file, 18, 8);
    SetLong(file, 22, 8);
    SetLong(file, 28, depth);
    EXPECT_EQ(InfoOf(file), (BmpInfo{0, 8, 8, static_cast<std::int32_t>(depth), 1}));
    EXPECT_FALSE(BitmapFits(at.host.files, folder.Windows("a.bmp"), info));
  }
}

TEST_F(TheBitmap, OfPixelsAloneFitsByItsLength) {
  Write("raw", Pattern(87380));
  EXPECT_TRUE(BitmapFits(at.host.files, folder.Windows("raw"), {0, 256, 256, 1, 8}));
  EXPECT_FALSE(BitmapFits(at.host.files, folder.Windows("raw"), {0, 256, 256, 1, 7}));
  EXPECT_FALSE(BitmapFits(at.host.files, folder.Windows("raw"), {0, 256, 256, 2, 8}));
  EXPECT_FALSE(BitmapFits(at.host.files, folder.Windows("none"), {0, 256, 256, 1, 8}));
}

TEST_F(TheBitmap, HasABuiltHeaderFor16And24Bits) {
  for (const int depth : {2, 3}) {
    Bytes header;
    EXPECT_EQ(BuildBitmapHeader(at.host.files, {0, 64, 32, depth, 5}, "", header), 54U);
    Bytes expected = Bitmap(64, 32, 24, {});
    SetLong(expected, 2, 54 + 64 * 32 * 3);
    SetLong(expected, 38, 2835);
    SetLong(expected, 42, 2835);
    EXPECT_TRUE(test::SameBytes(expected, header));
  }
}

TEST_F(TheBitmap, TakesHeaderAndPaletteOfItsTemplateFor8Bits) {
  Bytes lender = Bitmap(256, 256, 8, Pattern(65536));
  Write("cube.bmp", lender);
  Bytes header;
  EXPECT_EQ(BuildBitmapHeader(at.host.files, {0, 64, 32, 1, 5}, folder.Windows("cube.bmp"), header), 1078U);
  lender.resize(1078);
  SetLong(lender, 18, 64);
  SetLong(lender, 22, 32);
  EXPECT_TRUE(test::SameBytes(lender, header));
  Write("short.bmp", Bytes(1077));
  EXPECT_THROW(BuildBitmapHeader(at.host.files, {0, 4, 4, 1, 1}, folder.Windows("short.bmp"), header), FileError);
  EXPECT_THROW(BuildBitmapHeader(at.host.files, {0, 4, 4, 1, 1}, folder.Windows("none.bmp"), header), FileError);
}

}  // namespace
}  // namespace oravin
