#include "actions/learn_loadout.h"
#include "actions/loadout_companions.h"
#include "demo/palettes.h"
#include "demo/texture_plan.h"
#include "support/cache_stage.h"

namespace oravin {
namespace {

using test::After;
using test::CacheWith;
using test::LongAt;
using test::Pattern;
using test::ReadFileAt;
using test::SetLong;
using test::SetName;

ShipRecord Imported(const std::vector<std::string>& textures) {
  ShipRecord ship;
  ship.Imported = true;
  ship.ShipFile.Set("ship.shp");
  for (std::size_t i = 0; i < textures.size(); ++i) ship.Textures.at(i).Set(textures[i]);
  return ship;
}

struct TheLoadout : test::CacheStage {
  TheLoadout() {
    for (std::size_t i = 0; i < 2048; ++i) maps.push_back(static_cast<std::uint8_t>(i * 5 + i / 256));
    Write("program/gloadconv.dat", maps);
  }
  bool Set(const Ships& ships) { return LoadoutSetup(at.host, installation, ships); }
  [[nodiscard]] Bytes Mapped(Bytes pixels) const {
    for (std::size_t i = 0; i < pixels.size(); ++i) pixels[i] = maps[256 * LevelAt(i) + pixels[i]];
    return pixels;
  }
  void ExpectTidy() const { EXPECT_EQ(test::ImageOf(folder.Native("program")).size(), 1U); }
  Installation installation{folder.windows, folder.Windows("program\\"), {}};
  Bytes maps;
};

TEST_F(TheLoadout, OfReaperGetsACompanionGreaperThroughTheLevelsMaps) {
  const Bytes before = CacheWith({{"reaper", 1, 256, 256, 8}});
  Make(before);
  EXPECT_TRUE(Set({Imported({"reaper"})}));
  const Bytes expected = After(before, {"greaper", 1, 256, 256, 8, Mapped(Pattern(87380, 426)), 87380});
  EXPECT_TRUE(test::SameBytes(expected, Now()));
  ExpectTidy();
}

TEST_F(TheLoadout, LooksAtTheFirstTwoTexturesOfImportedShips) {
  const Bytes before = CacheWith({{"a", 1, 4, 4, 1}, {"b", 1, 8, 8, 1}, {"c", 1, 8, 8, 1}, {"deep", 2, 8, 8, 1}});
  Make(before);
  ShipRecord stock = Imported({"c"});
  stock.Imported = false;
  EXPECT_TRUE(Set({stock, Imported({"A", "b", "c"}), Imported({"", "deep"})}));
  const Bytes first = After(before, {"gA", 1, 4, 4, 1, Mapped(Pattern(16, 426)), 16});
  EXPECT_TRUE(test::SameBytes(After(first, {"gb", 1, 8, 8, 1, Mapped(Pattern(64, 427)), 64}), Now()));
}

TEST_F(TheLoadout, TwiceLeavesOneCompanionAndShowsTheNameMessage) {
  Make(CacheWith({{"reaper", 1, 4, 4, 1}}));
  EXPECT_TRUE(Set({Imported({"reaper"})}));
  const Bytes once = Now();
  at.desk.ExpectBox("A texture with the name of 'greaper' already exists.\nUnable to import.", programTitle);
  EXPECT_TRUE(Set({Imported({"reaper"})}));
  EXPECT_TRUE(test::SameBytes(once, Now()));
  ExpectTidy();
}

TEST_F(TheLoadout, OfATextureThatIsAbsentStopsTheWholeRun) {
  const Bytes before = CacheWith({{"b", 1, 4, 4, 1}});
  Make(before);
  at.desk.ExpectBox("Error - Texture not found", "LoadoutSetup");
  EXPECT_FALSE(Set({Imported({"nothing"}), Imported({"b"})}));
  EXPECT_TRUE(test::SameBytes(before, Now()));
  ExpectTidy();
}

TEST_F(TheLoadout, OfAnEntryWithoutADataOffsetStops) {
  Bytes before = CacheWith({{"b", 1, 4, 4, 1}});
  SetLong(before, 102252 + 224, 0);
  Make(before);
  at.desk.ExpectBox("Error in TCACHE. Can't find b!", programTitle, Icon::critical);
  EXPECT_FALSE(Set({Imported({"b"})}));
  EXPECT_TRUE(test::SameBytes(before, Now()));
}

TEST_F(TheLoadout, OfDataThatLieNowhereStopsWithItsBox) {
  Bytes before = CacheWith({{"b", 1, 4, 4, 1}});
  SetLong(before, 102252 + 224, 0x7FFFFFFF);
  Make(before);
  at.desk.ExpectBox("Error - could not extract b: its data do not lie in the cache", "LoadoutSetup");
  EXPECT_FALSE(Set({Imported({"b"})}));
  EXPECT_TRUE(test::SameBytes(before, Now()));
  ExpectTidy();
}

TEST_F(TheLoadout, WithAMissingPathIsReported) {
  at.desk.ExpectBox("Error - Path(s) not found", "LoadoutSetup", Icon::critical);
  EXPECT_FALSE(Set({}));
  Make(CacheWith({}));
  at.desk.ExpectBox("Error - Path(s) not found", "LoadoutSetup", Icon::critical);
  installation.ProgramPath = folder.Windows("none\\");
  EXPECT_FALSE(Set({}));
}

TEST_F(TheLoadout, LeavesFilesOfTheProgramFolderAlone) {
  Make(CacheWith({{"loadconv.dat", 1, 4, 4, 1}, {"b:c", 1, 4, 4, 1}}));
  Write("program/loadconv.dat", Pattern(9));
  EXPECT_TRUE(Set({Imported({"loadconv.dat", "b:c"})}));
  EXPECT_TRUE(test::SameImage({{"gloadconv.dat", maps}, {"loadconv.dat", Pattern(9)}},
                              test::ImageOf(folder.Native("program"))));
  const TcacheTable table = GetTcacheTable(at.host.files, Path());
  ASSERT_EQ(table.size(), 430U);
  EXPECT_EQ(table[429].name, "gb:c");
}

TEST_F(TheLoadout, ThatFailsAnywhereLeavesNoFilesAndAWholeCache) {
  const Bytes before = CacheWith({{"b", 1, 4, 4, 1}});
  test::AtEachOperation(test::FaultKind::failure, [&](test::Fault& fault) {
    Make(before);
    test::ScriptedHost failing;
    failing.desk.AllowOthers([](const Message&) { return Answer::ok; });
    test::Watch(failing.host.files, fault);
    LoadoutSetup(failing.host, installation, {Imported({"b"})});
    EXPECT_EQ(failing.desk.shown.empty(), !fault.happened);
    EXPECT_EQ(LongAt(Now(), 4), fault.happened ? 427U : 428U);
    ExpectTidy();
  });
}

TEST_F(TheLoadout, LacksOnlyWhatIsNotThereYet) {
  Make(CacheWith({{"a", 1, 4, 4, 1}, {"GA", 1, 4, 4, 1}, {"b", 1, 4, 4, 1}, {"deep", 2, 4, 4, 1}}));
  ShipRecord stock = Imported({"b"});
  stock.Imported = false;
  const Ships lacking =
      LackingCompanions(at.host.files, Path(),
                        {stock, Imported({"a", "deep"}), Imported({"a", "B"}), Imported({"b"}), Imported({"none"})});
  ASSERT_EQ(lacking.size(), 1U) << "a texture is named once; one that is missing itself lacks nothing";
  EXPECT_EQ(lacking[0].Textures[0].Trimmed(), "");
  EXPECT_EQ(lacking[0].Textures[1].Trimmed(), "B");
  EXPECT_TRUE(Set({lacking[0]}));
  EXPECT_EQ(LongAt(Now(), 4), 431U);
}

TEST_F(TheLoadout, OfAShipsFurtherTexturesLacksThoseThatWereAdded) {
  Make(CacheWith({{"a", 1, 4, 4, 1}, {"b", 1, 8, 8, 1}, {"c", 1, 4, 4, 1}, {"deep", 2, 4, 4, 1}, {"d", 1, 4, 4, 1}}));
  // t3 and t4 are the game's own: companions of those are made only for a ship's first two.
  const Ships lacking = LackingCompanions(at.host.files, Path(),
                                          {Imported({"t3", "", "t4", "c", "deep", "b", "d"}), Imported({"d", "a"})});
  ASSERT_EQ(lacking.size(), 5U);
  const auto names = [&](std::size_t i) {
    EXPECT_EQ(lacking[i].Textures[2].Trimmed(), "");
    return lacking[i].Textures[0].Trimmed() + "," + lacking[i].Textures[1].Trimmed();
  };
  EXPECT_EQ(names(0), "t3,");
  EXPECT_EQ(names(1), ",c");
  EXPECT_EQ(names(2), ",b");
  EXPECT_EQ(names(3), "d,");
  EXPECT_EQ(names(4), ",a");
  EXPECT_TRUE(Set(lacking));
  const TcacheTable table = GetTcacheTable(at.host.files, Path());
  ASSERT_EQ(table.size(), 436U);
  std::string added;
  for (std::size_t i = 431; i < table.size(); ++i) added += table[i].name + " ";
  EXPECT_EQ(added, "gt3 gc gb gd ga ");
}

TEST_F(TheLoadout, OfACacheThatGoesMissingMeanwhileStopsWithItsBox) {
  Make(CacheWith({{"a", 1, 4, 4, 1}, {"b", 1, 4, 4, 1}}));
  bool added = false;
  at.host.files.before = [&](const FileOperation& operation) {
    added = added || operation.kind == FileOperation::Kind::flush;
    // The next look at the cache is for the second texture.
    if (added && operation.kind == FileOperation::Kind::look) std::filesystem::remove(folder.Native("tcachehw.dat"));
  };
  at.desk.ExpectBox("Error in extracting textures. Path(s) don't exist", programTitle);
  EXPECT_FALSE(Set({Imported({"a", "b"})}));
  EXPECT_TRUE(added);
}

TEST_F(TheLoadout, WithoutMapsStopsWithTheirBox) {
  const Bytes before = CacheWith({{"b", 1, 4, 4, 1}});
  Make(before);
  std::filesystem::remove(folder.Native("program/gloadconv.dat"));
  at.desk.ExpectBox("Path(s) not found", "ConvertTexture");
  EXPECT_FALSE(Set({Imported({"b"})}));
  EXPECT_TRUE(test::SameBytes(before, Now()));
}

struct TheLearning : test::CacheStage {
  Installation installation{folder.windows, folder.windows, {}};
};

/// A cache of 426 textures of which the first ones are given: name, and the pixels of 4 x 4.
Bytes Pairs(const std::vector<std::pair<std::string, Bytes>>& textures) {
  Bytes cache = test::Cache(426);
  for (std::size_t i = 0; i < textures.size(); ++i) {
    SetName(cache, static_cast<int>(i), textures[i].first);
    std::copy(textures[i].second.begin(), textures[i].second.end(), cache.begin() + LongAt(cache, 12 + 240 * i + 224));
  }
  return cache;
}

TEST_F(TheLearning, CountsWhatEveryIndexBecomes) {
  Bytes picture(20, 7);
  Bytes companion(20, 70);
  picture[3] = 9;
  companion[3] = 90;
  companion[4] = 71;  // one of 19 disagrees
  Make(Pairs({{"wing", picture}, {"GWING", companion}}));
  const LearnedLoadout learned = LearnLoadout(at.host.files, Path());
  EXPECT_EQ(learned.pairs, 1);
  EXPECT_EQ(learned.seenCells, 2);
  EXPECT_EQ(learned.cells[7].value, 70);
  EXPECT_EQ(learned.cells[7].seen, 19U);
  EXPECT_EQ(learned.cells[7].agreed, 18U);
  EXPECT_EQ(learned.cells[9].value, 90);
  EXPECT_EQ(learned.cells[9].seen, 1U);
}

TEST_F(TheLearning, FillsUnseenCellsFromTheNearestLevelElseWithTheValueItself) {
  // One pair of 256 x 256 with 8 images at the cache's end, inside the factory part.
  demo::CacheBuilder builder = demo::BeginCache(600000);
  for (int i = 0; i < 424; ++i) {
    demo::AddTexture(builder, {"t" + std::to_string(i), 1, 4, 4, 2}, Bytes(20));
  }
  Bytes picture(87380, 1);
  Bytes companion(87380, 11);
  const auto set = [&](std::size_t position, std::uint8_t from, std::uint8_t to) {
    picture[position] = from;
    companion[position] = to;
  };
  set(0, 2, 20);      // index 2 is seen at level 0
  set(86016, 2, 23);  // and at level 3
  set(87376, 3, 37);  // index 3 is seen at level 7 alone
  demo::AddTexture(builder, {"wing", 1, 256, 256, 8}, picture);
  demo::AddTexture(builder, {"gwing", 1, 256, 256, 8}, companion);
  demo::FinishCache(builder);
  Make(builder.bytes);
  const LearnedLoadout learned = LearnLoadout(at.host.files, Path());
  EXPECT_EQ(learned.seenCells, 8 + 3);
  const LoadoutMaps maps = MapsOf(learned);
  const std::array<int, 8> two = {20, 20, 23, 23, 23, 23, 23, 23};
  for (std::size_t level = 0; level < 8; ++level) {
    EXPECT_EQ(maps.at(256 * level + 1), 11);
    EXPECT_EQ(maps.at(256 * level + 2), two.at(level)) << level;
    EXPECT_EQ(maps.at(256 * level + 3), 37);
    EXPECT_EQ(maps.at(256 * level + 200), 200);
  }
}

TEST_F(TheLearning, OfTwoEquallyNearLevelsTakesTheLargerImages) {
  demo::CacheBuilder builder = demo::BeginCache(600000);
  for (int i = 0; i < 424; ++i) demo::AddTexture(builder, {"t" + std::to_string(i), 1, 4, 4, 2}, Bytes(20));
  Bytes picture(87380, 1);
  Bytes companion(87380, 11);
  picture[0] = picture[81920] = 5;  // levels 0 and 2
  companion[0] = 50;
  companion[81920] = 52;
  demo::AddTexture(builder, {"wing", 1, 256, 256, 8}, picture);
  demo::AddTexture(builder, {"gwing", 1, 256, 256, 8}, companion);
  demo::FinishCache(builder);
  Make(builder.bytes);
  EXPECT_EQ(MapsOf(LearnLoadout(at.host.files, Path())).at(256 + 5), 50);
}

TEST_F(TheLearning, TakesOnlyPairsOfOneSizeAmongTheGamesOwnTextures) {
  Bytes cache = CacheWith({{"mine", 1, 4, 4, 2}, {"gmine", 1, 4, 4, 2}});
  SetName(cache, 0, "wing");
  SetName(cache, 1, "gwing");
  SetLong(cache, 252 + 64, 2);
  SetName(cache, 2, "hull");
  SetName(cache, 3, "ghull");
  SetLong(cache, 12 + 480, 2);
  Make(cache);
  const LearnedLoadout learned = LearnLoadout(at.host.files, Path());
  EXPECT_EQ(learned.pairs, 0);
  EXPECT_EQ(learned.seenCells, 0);
  for (std::size_t i = 0; i < 2048; ++i) EXPECT_EQ(MapsOf(learned).at(i), i % 256);
}

TEST_F(TheLearning, WritesTheMapsWhereTheyAreMissingAndNeverElse) {
  Make(Pairs({{"wing", Bytes(20, 7)}, {"gwing", Bytes(20, 70)}}));
  EXPECT_TRUE(ProvideLoadoutMaps(at.host, installation));
  const LoadoutMaps maps = ReadLoadoutMaps(at.host.files, folder.Windows("gloadconv.dat"));
  EXPECT_EQ(maps, MapsOf(LearnLoadout(at.host.files, Path())));
  EXPECT_EQ(maps[7], 70);
  Write("gloadconv.dat", Pattern(2048));
  EXPECT_TRUE(ProvideLoadoutMaps(at.host, installation));
  EXPECT_EQ(ReadFileAt(folder.Native("gloadconv.dat")), Pattern(2048));
}

TEST_F(TheLearning, WithoutAPairWritesNothing) {
  Make(test::Cache(426));
  at.desk.ExpectBox(
      "gloadconv.dat cannot be made: the game's textures in tcachehw.dat hold no 8-bit texture with its companion.",
      "LearnLoadout");
  EXPECT_FALSE(ProvideLoadoutMaps(at.host, installation));
  EXPECT_FALSE(std::filesystem::exists(folder.Native("gloadconv.dat")));
}

TEST_F(TheLearning, OfTheSampleCacheGivesTheMapsThatItWasMadeWith) {
  const Bytes maps = demo::BuildConversionMaps(demo::SpacePalette(), demo::LoadoutPalette());
  Make(demo::BuildFactoryCache(demo::SpacePalette(), maps));
  const LearnedLoadout learned = LearnLoadout(at.host.files, Path());
  EXPECT_GT(learned.pairs, 20);
  EXPECT_GT(learned.seenCells, 256);
  for (std::size_t cell = 0; cell < 2048; ++cell) {
    const LearnedCell& what = learned.cells.at(cell);
    if (what.seen == 0) continue;
    EXPECT_EQ(what.value, maps[cell]) << cell;
    EXPECT_EQ(what.agreed, what.seen);
  }
}

}  // namespace
}  // namespace oravin
