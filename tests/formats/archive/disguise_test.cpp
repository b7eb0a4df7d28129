// The names of models in the archive's table: recognised, disguised and restored at one place.

#include "archive/disguise.h"

#include "support/archive_stage.h"

namespace oravin::test {
namespace {

struct NameAtAPlace : testing::Test {
  NameAtAPlace() {
    stage.Write(HeaderAnd(1, TableRow(1, 2, "Alpha.SHP")));
    before = stage.Archive();
    hog = File(stage.host.files, stage.hogPath, OpenFor::changing);
  }

  /// Writes another name, with a zero byte after it.
  void Write(const std::string& name) {
    Bytes bytes = BytesOf(name);
    bytes.push_back(0);
    Put(hog, place + 8, bytes);
  }
  [[nodiscard]] std::string NameNow() const {
    const Bytes archive = stage.Archive();
    return TextOf(std::span(archive).subspan(place + 8, 9));
  }

  static constexpr std::uint32_t place = 16;
  ArchiveStage stage;
  File hog;
  Bytes before;
};

TEST(Disguise, ReplacesTheFirstThreeCharacters) {
  EXPECT_EQ(Disguised("alpha.shp"), "S47ha.shp");
  EXPECT_EQ(Disguised("abcd"), "S47d");
}

TEST(Disguise, ANameOfThreeCharactersOrLessStaysAsItIs) {
  EXPECT_EQ(Disguised("abc"), "abc");
  EXPECT_EQ(Disguised(""), "");
}

TEST_F(NameAtAPlace, IsTheModelsPlainOrDisguisedInAnyLetterCase) {
  EXPECT_TRUE(NamesModel(hog, place, "alpha.shp"));
  EXPECT_FALSE(NamesDisguised(hog, place, "alpha.shp"));
  Write("s47HA.shp");
  EXPECT_TRUE(NamesModel(hog, place, "alpha.shp"));
  EXPECT_TRUE(NamesDisguised(hog, place, "alpha.shp"));
}

TEST_F(NameAtAPlace, IsNoOtherModels) {
  for (const char* model : {"alphA.sh", "alpha.shpx", "bravo.shp", "", "S47"}) {
    EXPECT_FALSE(NamesModel(hog, place, model)) << model;
    EXPECT_FALSE(NamesDisguised(hog, place, model)) << model;
    EXPECT_FALSE(DisguiseName(hog, place, model)) << model;
    EXPECT_FALSE(RestoreName(hog, place, model, model)) << model;
  }
  EXPECT_TRUE(SameBytes(before, stage.Archive()));
}

TEST_F(NameAtAPlace, IsNotTheModelsWhenItGoesOnBehindIt) {
  Write("alpha.shpx");
  EXPECT_FALSE(NamesModel(hog, place, "alpha.shp"));
  EXPECT_FALSE(DisguiseName(hog, place, "alpha.shp"));
  Write("S47ha.shpx");
  EXPECT_FALSE(NamesDisguised(hog, place, "alpha.shp"));
  EXPECT_FALSE(RestoreName(hog, place, "alpha.shp", "alpha.shp"));
}

TEST_F(NameAtAPlace, IsNotTheModelsWhenTheFileEndsInsideIt) {
  const auto length = static_cast<std::uint32_t>(before.size());
  for (const std::uint32_t past : {place + 1, length - 8, length, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
    EXPECT_FALSE(NamesModel(hog, past, "alpha.shp")) << past;
    EXPECT_FALSE(DisguiseName(hog, past, "alpha.shp")) << past;
  }
  EXPECT_TRUE(SameBytes(before, stage.Archive()));
}

TEST_F(NameAtAPlace, AModelThatBearsTheMarkByItselfCountsAsPlain) {
  Write("S47ha.shp");
  EXPECT_TRUE(NamesModel(hog, place, "s47ha.shp"));
  EXPECT_FALSE(NamesDisguised(hog, place, "s47ha.shp"));
}

TEST_F(NameAtAPlace, IsDisguisedInItsFirstThreeCharactersOnly) {
  EXPECT_TRUE(DisguiseName(hog, place, "Alpha.SHP"));
  Bytes expected = before;
  std::copy_n("S47", 3, expected.begin() + place + 8);
  EXPECT_TRUE(SameBytes(expected, stage.Archive()));
  EXPECT_TRUE(DisguiseName(hog, place, "Alpha.SHP"));
  EXPECT_TRUE(SameBytes(expected, stage.Archive()));
}

TEST_F(NameAtAPlace, IsPutBackInTheSpellingAskedFor) {
  Write("S47ha.shp");
  EXPECT_TRUE(RestoreName(hog, place, "alpha.shp", "ALPHA.shp"));
  EXPECT_EQ(NameNow(), "ALPHA.shp");
}

TEST_F(NameAtAPlace, ASpellingOfAnotherLengthIsNotWritten) {
  Write("S47ha.shp");
  EXPECT_FALSE(RestoreName(hog, place, "alpha.shp", "alpha.sh"));
  EXPECT_FALSE(RestoreName(hog, place, "alpha.shp", " alpha.shp"));
  EXPECT_EQ(NameNow(), "S47ha.shp");
}

}  // namespace
}  // namespace oravin::test
