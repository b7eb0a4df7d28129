// Which textures a model names, which of them the cache holds, and which bitmaps they can come from.

#include "actions/model_textures.h"

#include <gtest/gtest.h>

#include "support/cache_stage.h"
#include "support/model_file.h"

namespace oravin::test {
namespace {

/// So many different names.
std::vector<std::string> NumberedNames(std::size_t count) {
  std::vector<std::string> names(count);
  for (std::size_t i = 0; i < count; ++i) names[i] = "n" + std::to_string(i);
  return names;
}

struct TheTextureList : CacheStage {
  TheTextureList() { Make(CacheWith({{"Hull", 2, 8, 8, 1}, {"ghull", 1, 4, 4, 1}})); }

  bool List(const Bytes& model) {
    Write("pack/ship.shp", model);
    return TextureList(at.host, folder.Windows("pack/ship.shp"), Path(), given, textures);
  }
  bool ListNames(const std::vector<std::string>& names) {
    Bytes model = ModelHead();
    AddTextures(model, names, 64);
    return List(model);
  }
  void ExpectNoModel(const Bytes& bytes) {
    at.desk.ExpectBox("This is not a valid SL shp file", "Oravin - TextureList()");
    textures.assign(3, {});
    EXPECT_FALSE(List(bytes));
    EXPECT_TRUE(at.desk.Done());
    EXPECT_EQ(textures.size(), 3U) << "they stay as they were";
  }
  /// Why a bitmap of these bytes cannot become a texture.
  std::string Why(const Bytes& bitmap) {
    Write("some.bmp", bitmap);
    BmpInfo info;
    return WhyUnusable(at.host.files, folder.Windows("some.bmp"), info);
  }

  GivenBitmaps given;
  std::vector<ListedTexture> textures;
};

TEST_F(TheTextureList, ListsTheNamesInTheOrderOfTheModel) {
  Bytes model = ModelHead();
  AddTextures(model, {"wing", "hull", ""});
  AddTextures(model, {"hull", "Hull", "cockpit"});
  ASSERT_TRUE(List(model));
  std::vector<std::string> names;
  for (const ListedTexture& texture : textures) names.push_back(texture.name);
  EXPECT_EQ(names, (std::vector<std::string>{"wing", "hull", "Hull", "cockpit"}));
}

TEST_F(TheTextureList, LooksEachNameUpInTheCacheWithoutRegardToCase) {
  ASSERT_TRUE(ListNames({"HULL", "t7", "none"}));
  ASSERT_TRUE(textures[0].cached.has_value());
  EXPECT_EQ(textures[0].cached->entryOffset, TcacheEntryOffset(426));
  EXPECT_EQ(textures[0].cached->width, 8);
  EXPECT_EQ(textures[0].cachedPalette, "3D\\cube.bmp");
  ASSERT_TRUE(textures[1].cached.has_value());
  EXPECT_EQ(textures[1].cached->name, "t7");
  EXPECT_FALSE(textures[2].cached.has_value());
}

TEST_F(TheTextureList, OfTwoSlotsOfOneNameTheFirstCounts) {
  Make(CacheWith({{"twin", 1, 4, 4, 1}, {"twin", 1, 8, 8, 1}}));
  ASSERT_TRUE(ListNames({"twin"}));
  EXPECT_EQ(textures[0].cached->entryOffset, TcacheEntryOffset(426));
}

TEST_F(TheTextureList, ACompanionsPaletteIsItsOwn) {
  ASSERT_TRUE(ListNames({"ghull"}));
  EXPECT_EQ(textures[0].cachedPalette, "3D\\gcube.bmp");
}

TEST_F(TheTextureList, TheCacheIsReadOnceForAllNames) {
  const std::vector<std::string> names = NumberedNames(50);
  int opened = 0;
  at.host.files.before = [&](const FileOperation& operation) {
    if (operation.kind == FileOperation::Kind::open && operation.path == Path()) ++opened;
  };
  ASSERT_TRUE(ListNames(names));
  EXPECT_EQ(opened, 1);
}

TEST_F(TheTextureList, FindsABitmapOfTheNameInTheModelsFolderOnly) {
  Write("pack/wing.bmp", Bitmap(16, 8, 24, Pattern(384)));
  Write("tail.bmp", Bitmap(16, 8, 24, Pattern(384)));
  ASSERT_TRUE(ListNames({"wing", "tail"}));
  EXPECT_EQ(textures[0].bitmapPath, folder.Windows("pack/wing.bmp"));
  EXPECT_FALSE(textures[0].given);
  EXPECT_EQ(textures[0].unusable, "");
  EXPECT_EQ(textures[0].info, (BmpInfo{54, 16, 8, 3, 1}));
  EXPECT_EQ(textures[1].bitmapPath, "");
  EXPECT_EQ(textures[1].info, BmpInfo{});
}

TEST_F(TheTextureList, AGivenBitmapComesBeforeTheOneInTheModelsFolder) {
  Write("pack/wing.bmp", Bitmap(16, 8, 24, Pattern(384)));
  Write("other.bmp", Bitmap(4, 4, 8, Pattern(16)));
  given[BitmapKey(" WING ")] = folder.Windows("other.bmp");
  ASSERT_TRUE(ListNames({"Wing"}));
  EXPECT_EQ(textures[0].bitmapPath, folder.Windows("other.bmp"));
  EXPECT_TRUE(textures[0].given);
  EXPECT_EQ(textures[0].info.width, 4);
}

TEST_F(TheTextureList, AGivenBitmapThatHasGoneIsNone) {
  Write("pack/wing.bmp", Bitmap(16, 8, 24, Pattern(384)));
  given["wing"] = folder.Windows("other.bmp");
  ASSERT_TRUE(ListNames({"wing"}));
  EXPECT_EQ(textures[0].bitmapPath, folder.Windows("pack/wing.bmp"));
  EXPECT_FALSE(textures[0].given);
}

TEST_F(TheTextureList, ANameThatLeadsElsewhereHasNoBitmap) {
  Write("wing.bmp", Bitmap(4, 4, 8, Pattern(16)));
  Write("pack/wing.bmp", Bitmap(4, 4, 8, Pattern(16)));
  ASSERT_TRUE(ListNames({"..\\wing", "*", "w?ng", folder.Windows("wing"), "../wing", "pack\\wing", "sub/wing", "NUL"}));
  for (const ListedTexture& texture : textures) EXPECT_EQ(texture.bitmapPath, "") << texture.name;
}

TEST_F(TheTextureList, SaysWhyABitmapCannotBecomeATexture) {
  EXPECT_EQ(Why(Bitmap(4, 4, 8, Pattern(16))), "");
  EXPECT_EQ(Why(Bytes(20)), "it is no bitmap that can be read");
  EXPECT_EQ(Why({}), "it is no bitmap that can be read");
  EXPECT_EQ(Why(Bitmap(4, 4, 8, Pattern(17))), "its length does not fit the size that it states");
  EXPECT_EQ(Why(Bitmap(256, 256, 24, Pattern(16))), "its length does not fit the size that it states");
  EXPECT_EQ(Why(Bitmap(4, 4, 32, Pattern(64))), "its pixels have neither 8 nor 16 nor 24 bits");
  EXPECT_EQ(Why(Bitmap(300, 300, 8, Pattern(90000))),
            "its sides must each be one of 2, 4, 8, ... 256, and it must not be compressed");
  BmpInfo info;
  EXPECT_EQ(WhyUnusable(at.host.files, folder.Windows("none.bmp"), info), "it is no bitmap that can be read");
}

TEST_F(TheTextureList, ABitmapThatLiesAboutItsSizeIsListedAsUnusable) {
  Write("pack/wing.bmp", Bitmap(256, 256, 8, Pattern(16)));
  ASSERT_TRUE(ListNames({"wing"}));
  EXPECT_EQ(textures[0].bitmapPath, folder.Windows("pack/wing.bmp"));
  EXPECT_EQ(textures[0].unusable, "its length does not fit the size that it states");
}

TEST_F(TheTextureList, AFileThatIsNoModelIsReported) {
  ExpectNoModel({});
  ExpectNoModel({1, 2, 3});
  ExpectNoModel(Bytes(5000));
  ExpectNoModel(BytesOf("This is a text and no ship, however long it may become in the end."));
  ExpectNoModel(Bitmap(16, 16, 8, Pattern(256)));
  ExpectNoModel(Bitmap(64, 64, 24, Pattern(std::size_t{64} * 64 * 3)));
  Bytes cut = ModelHead();
  cut.resize(40);
  ExpectNoModel(cut);
  cut = ModelHead();
  AddTextures(cut, {"hull", "wing"});
  cut.pop_back();
  ExpectNoModel(cut);
}

TEST_F(TheTextureList, AModelWithoutTexturesIsAModel) {
  textures.assign(3, {});
  EXPECT_TRUE(List(ModelHead()));
  EXPECT_TRUE(textures.empty());
  Bytes trailing = ModelHead();
  trailing.resize(trailing.size() + 5);
  EXPECT_TRUE(List(trailing));
}

TEST_F(TheTextureList, BytesAfterAModelWithTexturesDoNotMatter) {
  Bytes model = ModelHead();
  AddTextures(model, {"hull"});
  const Bytes foreign(50000, 0xEE);
  model.insert(model.end(), foreign.begin(), foreign.end());
  ASSERT_TRUE(List(model));
  EXPECT_EQ(textures.size(), 1U);
}

TEST_F(TheTextureList, AMissingModelShowsItsReadersBox) {
  at.desk.ExpectBox("Error - Path not found", "ORAVIN");
  EXPECT_FALSE(TextureList(at.host, folder.Windows("none.shp"), Path(), given, textures));
}

TEST_F(TheTextureList, AMissingCacheShowsOneBox) {
  at.desk.ExpectBox("TCACHE file not found", "FindStructOffset");
  Write("pack/ship.shp", [] {
    Bytes model = ModelHead();
    AddTextures(model, {"hull", "wing"});
    return model;
  }());
  EXPECT_TRUE(TextureList(at.host, folder.Windows("pack/ship.shp"), folder.Windows("no.dat"), given, textures));
  ASSERT_EQ(textures.size(), 2U);
  EXPECT_FALSE(textures[0].cached.has_value());
}

TEST_F(TheTextureList, MoreNamesThanAModelMayHaveGiveOneBox) {
  const std::vector<std::string> names = NumberedNames(51);
  at.desk.ExpectBox("Error - could not read " + folder.Windows("pack/ship.shp") + ": it names more than 50 textures",
                    "TextureList");
  EXPECT_FALSE(ListNames(names));
  EXPECT_TRUE(textures.empty());
}

TEST_F(TheTextureList, AFailureOfAnyOperationGivesOneBoxAndNoTextures) {
  at.desk.AllowOthers([](const Message&) { return Answer::ok; });
  const int operations = AtEachOperation(FaultKind::failure, [&](Fault& fault) {
    at.desk.shown.clear();
    textures.clear();
    Watch(at.host.files, fault);
    const bool listed = ListNames({"hull"});
    EXPECT_EQ(listed, !fault.happened);
    EXPECT_EQ(textures.empty(), fault.happened);
    EXPECT_EQ(at.desk.shown.size(), fault.happened ? 1U : 0U);
  });
  at.host.files.before = nullptr;
  EXPECT_GE(operations, 6);
}

}  // namespace
}  // namespace oravin::test
