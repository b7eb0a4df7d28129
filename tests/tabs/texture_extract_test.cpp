// Extracting textures from the "Tcache Editor" tab.
#include "actions/import_texture.h"
#include "support/image_program.h"
#include "support/texture_tab_stage.h"
#include "textures/colour.h"

namespace oravin {
namespace {

using test::Bitmap;
using test::Cache;
using test::CacheWith;
using test::Pattern;
using test::SetLong;
using test::SetName;
using test::TheTab;

struct TheExtraction : TheTab {};

TEST_F(TheExtraction, OfTheFirstRowAfterSortingIsTheTextureNamedThere) {
  Bytes cache = CacheWith({{"many", 1, 8, 8, 4}, {"one", 1, 16, 8, 1}});
  Open(cache);
  lstTcache_ColumnClick(tab, 3);
  EXPECT_EQ(tab.lstTcache.rows[0].texts[0], "one");
  tab.lstTcache.rows[0].selected = true;
  ExpectComplete();
  Extract();
  Bytes expected(cube.begin(), cube.begin() + 1078);
  SetLong(expected, 18, 16);
  SetLong(expected, 22, 8);
  const Bytes pixels = Pattern(128, 427);
  expected.insert(expected.end(), pixels.begin(), pixels.end());
  EXPECT_TRUE(test::SameImage({{"one.bmp", expected}}, test::ImageOf(folder.Native("out"))));
  EXPECT_EQ(tab.lblTcacheStructs.caption, "428 texture(s)");
}

TEST_F(TheExtraction, OfAn8BitTextureKeepsEveryByteOfTheTemplatesHeaderButWidthAndHeight) {
  Open(CacheWith({{"flat", 1, 32, 8, 2}}));
  for (std::size_t i = 0; i < 1078; ++i) cube[i] = static_cast<std::uint8_t>(i * 7 + 3);
  Write("program/3D/cube.bmp", cube);
  Select({"flat"});
  ExpectComplete();
  Extract();
  Bytes expected(cube.begin(), cube.begin() + 1078);
  SetLong(expected, 18, 32);
  SetLong(expected, 22, 8);
  const Bytes pixels = Pattern(320, 426);
  expected.insert(expected.end(), pixels.begin(), pixels.end());
  EXPECT_TRUE(test::SameBytes(expected, Extracted("flat.bmp")));
}

TEST_F(TheExtraction, OfA16BitTextureWritesAllImagesIn24Bits) {
  Open(CacheWith({{"deep", 2, 16, 8, 4}}));
  Select({"deep"});
  ExpectComplete();
  Extract();
  const Bytes pixels = Pattern((128 + 32 + 8 + 2) * 2, 426);
  Bytes expected = Bitmap(16, 8, 24, {});
  SetLong(expected, 2, 54 + 170 * 3);
  SetLong(expected, 38, 2835);
  SetLong(expected, 42, 2835);
  expected.resize(54 + Size24Of16(pixels.size()));
  Convert16To24(pixels, std::span(expected).subspan(54));
  EXPECT_TRUE(test::SameBytes(expected, Extracted("deep.bmp")));
  EXPECT_EQ(test::Identified(folder.Native("out/deep.bmp")), "BMP3 16 8");
}

TEST_F(TheExtraction, IsOpenedByAnImageProgramWithItsTrueColours) {
  // The length is the template's too, and this program opens no bitmap that is shorter than it says.
  SetLong(cube, 2, 1078 + 32 + 8 + 2);
  Write("program/3D/cube.bmp", cube);
  Open(CacheWith({{"flat", 1, 8, 4, 3}, {"deep", 2, 8, 4, 3}}));
  Select({"flat", "deep"});
  ExpectComplete();
  Extract();
  EXPECT_EQ(test::Identified(folder.Native("out/flat.bmp")), "BMP3 8 4");
  EXPECT_EQ(test::Identified(folder.Native("out/deep.bmp")), "BMP3 8 4");
  const Bytes flat = test::ShownPixels(folder.Native("out/flat.bmp"));
  const Bytes deep = test::ShownPixels(folder.Native("out/deep.bmp"));
  ASSERT_EQ(flat.size(), 96U);
  ASSERT_EQ(deep.size(), 96U);
  for (std::size_t y = 0; y < 4; ++y) {
    for (std::size_t x = 0; x < 8; ++x) {
      const std::size_t stored = (3 - y) * 8 + x;  // the row stored first is the lowest
      const std::size_t shown = (y * 8 + x) * 3;
      const std::size_t colour = 54 + 4U * Pattern(32, 426)[stored];
      EXPECT_EQ(flat[shown], cube[colour + 2]);
      EXPECT_EQ(flat[shown + 1], cube[colour + 1]);
      EXPECT_EQ(flat[shown + 2], cube[colour]);
      const Bytes pixels = Pattern(64, 427);
      const int pixel = pixels[2 * stored] | pixels[2 * stored + 1] << 8;
      EXPECT_EQ(deep[shown], ((pixel >> 11) * 255 * 2 + 31) / 62);
      EXPECT_EQ(deep[shown + 1], ((pixel >> 5 & 63) * 255 * 2 + 63) / 126);
      EXPECT_EQ(deep[shown + 2], ((pixel & 31) * 255 * 2 + 31) / 62);
    }
  }
}

TEST_F(TheExtraction, TakesTheCompanionsTemplateWhereItsTextureIsThere) {
  Open(CacheWith({{"reaper", 1, 4, 4, 1}, {"greaper", 1, 4, 4, 1}}));
  Select({"greaper"});
  ExpectComplete();
  Extract();
  const Bytes bitmap = Extracted("greaper.bmp");
  EXPECT_EQ(Bytes(bitmap.begin() + 54, bitmap.begin() + 1078), Bytes(gcube.begin() + 54, gcube.begin() + 1078));
}

TEST_F(TheExtraction, OfAnUnsupportedFormatGivesZerosAfterAsManyAsTheHeaderBeforeHad) {
  Bytes cache = CacheWith({{"odd1", 1, 4, 4, 1},
                           {"flat", 1, 4, 4, 1},
                           {"odd2", 1, 4, 4, 1},
                           {"deep", 2, 4, 4, 1},
                           {"odd3", 1, 4, 2, 1},
                           {"odd4", 1, 4, 4, 1}});
  for (const std::size_t slot : {426U, 428U, 430U, 431U}) SetLong(cache, 12 + 240 * slot, 3);
  SetLong(cache, 12 + 240 * 430 + 224, 0xFFFFFFFF);  // nothing is read
  Open(cache);
  Select({"odd1", "flat", "odd2", "deep", "odd3", "odd4"});
  ExpectComplete();
  Extract();
  EXPECT_EQ(Extracted("odd1.bmp"), Bytes(48));
  EXPECT_EQ(Extracted("odd2.bmp"), Bytes(1078 + 48));
  EXPECT_EQ(Extracted("odd3.bmp"), Bytes(54 + 24));
  EXPECT_EQ(Extracted("odd4.bmp"), Bytes(54 + 48));
  // The header before is that of this run.
  Select({"odd2"});
  ExpectComplete();
  Extract();
  EXPECT_EQ(Extracted("odd2.bmp"), Bytes(48));
}

TEST_F(TheExtraction, ShowsWhichTextureItIsAt) {
  Open(CacheWith({{"flat", 1, 4, 4, 1}, {"deep", 2, 4, 4, 1}}));
  Select({"flat", "deep"});
  ExpectComplete();
  Extract();
  ASSERT_GE(at.desk.progress.size(), 2U);
  EXPECT_EQ(at.desk.progress[0].text, "Extracting flat");
  EXPECT_EQ(at.desk.progress[1].text, "Extracting and converting deep");
  EXPECT_EQ(at.desk.progress.back().text, "");
}

TEST_F(TheExtraction, ReplacesExistingFiles) {
  Open(CacheWith({{"flat", 1, 4, 4, 1}}));
  Write("out/flat.bmp", Pattern(90000));
  Select({"flat"});
  ExpectComplete();
  Extract();
  EXPECT_EQ(Extracted("flat.bmp").size(), 1078U + 16);
}

TEST_F(TheExtraction, IntoAMissingFolderIsReported) {
  Open(Cache(3));
  for (const std::string& where : {folder.Windows("none"), std::string()}) {
    tab.txtTcacheDestination.text = where;
    at.desk.ExpectBox("Destination path not found", programTitle);
    Extract();
  }
}

TEST_F(TheExtraction, TakesAFolderWithoutABackslash) {
  Open(Cache(3));
  tab.txtTcacheDestination.text = "  " + folder.Windows("out");
  Select({"t1"});
  ExpectComplete();
  Extract();
  EXPECT_EQ(test::ImageOf(folder.Native("out")).size(), 1U);
}

TEST_F(TheExtraction, OfNamesThatNoFileCanBearGivesSafeOnesAndSaysSo) {
  Bytes cache = Cache(8);
  const std::vector<std::string> names = {"a:b", "a*b", "con", "dot.", "..\\up", "a_b", "x\xE9y", "fine"};
  for (int i = 0; i < 8; ++i) SetName(cache, i, names[static_cast<std::size_t>(i)]);
  Open(cache);
  cmdSelectAllTcache_Click(tab);
  ExpectComplete(
      "\n\nThese names cannot be names of files, so others were taken:"
      "\na:b: a_b_2.bmp\na*b: a_b_3.bmp\ncon: _con.bmp\ndot.: dot_.bmp\n..\\up: .._up.bmp\nx\xE9y: x_y.bmp");
  Extract();
  std::vector<std::string> files;
  for (const auto& [name, bytes] : test::ImageOf(folder.Native("out"))) {
    files.push_back(name);
    EXPECT_EQ(bytes.size(), 1078U + 20) << name;
  }
  EXPECT_EQ(files, (std::vector<std::string>{".._up.bmp", "_con.bmp", "a_b.bmp", "a_b_2.bmp", "a_b_3.bmp", "dot_.bmp",
                                             "fine.bmp", "x_y.bmp"}));
}

TEST_F(TheExtraction, OfDataThatLieNowhereLeavesThoseOutAndSaysSo) {
  Bytes cache = CacheWith({{"bad1", 1, 4, 4, 1}, {"bad2", 1, 4, 4, 1}, {"bad3", 1, 4, 4, 1}, {"good", 1, 4, 4, 1}});
  SetLong(cache, 102252 + 224, 0x7FFFFFFF);
  SetLong(cache, 102252 + 240 + 64, 0x7FFFFFFF);
  SetLong(cache, 102252 + 240 + 68, 0x7FFFFFFF);
  SetLong(cache, 102252 + 480, 0x7FFFFFFF);
  Open(cache);
  Select({"bad1", "bad2", "bad3", "good"});
  at.desk.ExpectBox(
      "Extraction complete\n\nThese textures were left out, because their data do not lie in the cache:"
      "\nbad1\nbad2\nbad3",
      programTitle, Icon::information);
  Extract();
  EXPECT_EQ(test::ImageOf(folder.Native("out")).size(), 1U);
  EXPECT_EQ(Extracted("good.bmp").size(), 1078U + 16);
}

TEST_F(TheExtraction, WithoutATemplateEndsWithItsBoxAndKeepsOldFiles) {
  Open(CacheWith({{"flat", 1, 4, 4, 1}}));
  Write("out/flat.bmp", Pattern(9));
  std::filesystem::remove(folder.Native("program/3D/cube.bmp"));
  Select({"flat"});
  at.desk.AllowOthers([](const Message&) { return Answer::ok; });
  Extract();
  ASSERT_EQ(at.desk.shown.size(), 1U);
  EXPECT_EQ(at.desk.shown[0].title, "cmdExtractTcache_Click()");
  EXPECT_EQ(Extracted("flat.bmp"), Pattern(9));
  EXPECT_EQ(tab.lblTcacheStructs.caption, "427 texture(s)");
}

TEST_F(TheExtraction, OfWhatWasImportedFromAnExtractedBitmapIsTheSameFile) {
  Open(CacheWith({{"deep", 2, 16, 8, 4}, {"flat", 1, 32, 8, 2}}));
  Select({"deep", "flat"});
  ExpectComplete();
  Extract();
  for (const char* name : {"deep", "flat"}) {
    const std::string bitmap = folder.Windows("out/" + std::string(name) + ".bmp");
    const BmpInfo info = GetBMPInfo(at.host.files, bitmap);
    EXPECT_TRUE(ImportTexture(at.host, folder.Windows("game/tcachehw.dat"), bitmap, std::string("again") + name, info));
  }
  cmdReopenTcache_Click(at.host, tab);
  Select({"againdeep", "againflat"});
  ExpectComplete();
  Extract();
  EXPECT_TRUE(test::SameBytes(Extracted("deep.bmp"), Extracted("againdeep.bmp")));
  EXPECT_TRUE(test::SameBytes(Extracted("flat.bmp"), Extracted("againflat.bmp")));
}

}  // namespace
}  // namespace oravin
