#include "textures/mipmap_chain.h"

#include "support/cache_stage.h"
#include "support/fighter_bitmap.h"
#include "support/thrown.h"

namespace oravin {
namespace {

using test::Bitmap;
using test::Fighter;
using test::Pattern;
using test::SetLong;

struct TheFightersChain : test::CacheStage {
  Bytes Convert(const Bytes& bitmap) {
    Write("a.bmp", bitmap);
    const std::string path = folder.Windows("a.bmp");
    return ConvertFighterText(at.host.files, path, GetBMPInfo(at.host.files, path));
  }
  void ExpectRefused(const Bytes& bitmap) {
    EXPECT_EQ(test::KindThrown([&] { Convert(bitmap); }), ErrorKind::wrongFormat);
  }
};

TEST_F(TheFightersChain, IsExactly87380BytesLong) {
  const Bytes chain = Convert(Fighter());
  EXPECT_EQ(chain.size(), 87380U);
  EXPECT_TRUE(test::SameBytes(test::ChainOf(Fighter()), chain));
  EXPECT_EQ(test::ImageOf(folder.native).size(), 1U) << "no file is written";
}

TEST_F(TheFightersChain, RoundsHalvesUpAndTakesTheLowestOfEqualColours) {
  Bytes file = Bitmap(256, 256, 8, Bytes(65536));
  for (std::size_t i = 0; i < 256; ++i) SetLong(file, 54 + 4 * i, 0xC8C8C8);
  SetLong(file, 54, 0x000000);
  SetLong(file, 54 + 4, 0x010101);
  SetLong(file, 54 + 8, 0x010101);
  // Two of each block of four are 1: an average of 0.5, which is 1, which is index 1 before 2.
  for (std::size_t i = 0; i < 65536; i += 2) file[1078 + i] = 2;
  const Bytes chain = Convert(file);
  EXPECT_EQ(Bytes(chain.begin() + 65536, chain.end()), Bytes(87380 - 65536, 1));
}

TEST_F(TheFightersChain, OfABitmapThatIsNone) {
  ExpectRefused(Bitmap(256, 256, 16, Pattern(131072)));
  ExpectRefused(Bitmap(128, 128, 8, Pattern(16384)));
  ExpectRefused(Bitmap(256, -256, 8, Pattern(65536)));
  ExpectRefused(Bitmap(256, 256, 8, Pattern(65535)));
  Bytes compressed = Bitmap(256, 256, 8, Pattern(65536));
  compressed[30] = 1;
  ExpectRefused(compressed);
  Bytes after = Fighter();
  SetLong(after, 10, 0xFFFFFFFF);
  ExpectRefused(after);
  SetLong(after, 10, 10);
  ExpectRefused(after);
}

TEST_F(TheFightersChain, OfAMissingBitmapSaysSo) {
  EXPECT_EQ(test::KindThrown([&] {
              ConvertFighterText(at.host.files, folder.Windows("a.bmp"), {1078, 256, 256, 1, 1});
            }),
            ErrorKind::missing);
}

TEST_F(TheFightersChain, OfABitmapWithAChainIsMadeFromItsFirstLevel) {
  Bytes file = Fighter();
  file.resize(file.size() + 21844, 7);
  EXPECT_TRUE(test::SameBytes(test::ChainOf(Fighter()), Convert(file)));
}

TEST_F(TheFightersChain, WithFewColoursInItsPaletteTakesTheseOnly) {
  Bytes file(54 + 8);
  const Bytes head = Bitmap(256, 256, 8, {});
  std::copy_n(head.begin(), 54, file.begin());
  SetLong(file, 10, 62);
  SetLong(file, 54, 0x101010);
  SetLong(file, 58, 0xF0F0F0);
  file.resize(62 + 65536, 1);
  file[62] = 200;  // an index without a colour counts as black
  const Bytes chain = Convert(file);
  ASSERT_EQ(chain.size(), 87380U);
  EXPECT_EQ(chain[0], 200);
  EXPECT_EQ(Bytes(chain.begin() + 65536, chain.end()), Bytes(87380 - 65536, 1));
}

TEST_F(TheFightersChain, ThatFailsAnywhereSaysSoAndClosesTheBitmap) {
  Write("a.bmp", Fighter());
  test::AtEachOperation(test::FaultKind::failure, [&](test::Fault& fault) {
    Files files;
    test::Watch(files, fault);
    const std::string path = folder.Windows("a.bmp");
    const auto thrown = test::KindThrown([&] { ConvertFighterText(files, path, GetBMPInfo(files, path)); });
    EXPECT_EQ(thrown.has_value(), fault.happened);
    EXPECT_EQ(files.open, 0);
  });
}

}  // namespace
}  // namespace oravin
