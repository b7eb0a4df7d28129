#include <bit>

#include "sample_runs.h"
#include "stats/ship_stats.h"
#include "support/folder_image.h"

namespace oravin::test {
namespace {

constexpr const char* labels[] = {
    "Max Speed",      "Inertia",          "Yaw Max",      "Yaw Inertia",     "Pitch Max",
    "Pitch Inertia",  "Roll Max",         "Roll Inertia", "Shield Strength", "Shield Recharge",
    "Armor Strength", "Afterburner Fuel", "Gun Energy",   "Gun Recharge",    "Ammo"};

Bytes FloatBytes(float value) {
  const auto bits = std::bit_cast<std::uint32_t>(value);
  return {static_cast<std::uint8_t>(bits), static_cast<std::uint8_t>(bits >> 8), static_cast<std::uint8_t>(bits >> 16),
          static_cast<std::uint8_t>(bits >> 24)};
}

struct StatsShow : EnabledRuns {
  /// Gives the block's statistics the values 0.5, 1.5, 2.5, ... in the order of the file, from `first` on.
  void Fill(const std::string& file, std::uint64_t block, float first) const {
    for (std::uint64_t i = 0; i < statsCount; ++i) {
      PatchFileAt(sample.game / file, block * statsBlockSize + statsOffset + 4 * i,
                  FloatBytes(first + static_cast<float>(i)));
    }
  }

  [[nodiscard]] static Json Ship(std::size_t index) {
    return RunWords({"ships", "list", "--json"}).Document().at(index);
  }

  /// The document for a block that Fill has filled.
  [[nodiscard]] static Json Filled(const std::string& ship, float first) {
    constexpr float fileOrder[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 11, 9, 10, 12, 13, 14};
    Json stats = Json::array();
    for (std::size_t row = 0; row < statsCount; ++row) {
      stats.push_back(Json{{"label", labels[row]}, {"value", first + fileOrder[row]}});
    }
    return Json{{"ship", ship}, {"stats", stats}};
  }
};

TEST_F(StatsShow, AStockShipsOwnBlockInTheOrderOfTheDisplay) {
  Fill("shipstats.bin", Ship(2)["statsIndex"], 0.5F);
  const Outcome outcome = RunWords({"stats", "show", " sabrewing", "--json"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.Document(), Filled("Sabrewing", 0.5F));
}

TEST_F(StatsShow, AnImportedShipsBlockOfTheDefaults) {
  const std::uint64_t block = Ship(12)["statsIndex"];
  ASSERT_NE(block, 0U);
  Fill("shipstats.def", block, 100.25F);
  EXPECT_EQ(RunWords({"stats", "show", "Manta", "--json"}).Document(), Filled("Manta", 100.25F));
}

TEST_F(StatsShow, AnImportedShipWithoutABlockShowsTheFirstOneOfTheGame) {
  // The tagged value of the record's StatsIndex: behind two texts, a 2-byte kind and three 4-byte numbers.
  constexpr std::uint64_t statsIndexAt = 30 + 30 + 4 + 3 * 6;
  PatchFileAt(sample.program / "ships.dat", std::uint64_t{12} * 868 + statsIndexAt, {2, 0, 0, 0});
  ASSERT_EQ(Ship(12)["statsIndex"], 0);
  Fill("shipstats.bin", 0, 7.5F);
  Fill("shipstats.def", 0, 9.5F);
  EXPECT_EQ(RunWords({"stats", "show", "Manta", "--json"}).Document(), Filled("Manta", 7.5F));
}

TEST_F(StatsShow, ATwoPartShipShowsItsFirstPart) {
  Fill("shipstats.bin", Ship(0)["statsIndex"], 1.5F);
  EXPECT_EQ(RunWords({"stats", "show", "Predator", "--json"}).Document(), Filled("Predator", 1.5F));
}

TEST_F(StatsShow, TextIsFifteenLinesWithTheShortestNumbers) {
  Fill("shipstats.bin", Ship(2)["statsIndex"], 0.1F);
  const Outcome outcome = RunWords({"stats", "show", "Sabrewing"});
  EXPECT_EQ(outcome.out,
            "Max Speed          0.1\n"
            "Inertia            1.1\n"
            "Yaw Max            2.1\n"
            "Yaw Inertia        3.1\n"
            "Pitch Max          4.1\n"
            "Pitch Inertia      5.1\n"
            "Roll Max           6.1\n"
            "Roll Inertia       7.1\n"
            "Shield Strength    8.1\n"
            "Shield Recharge   11.1\n"
            "Armor Strength     9.1\n"
            "Afterburner Fuel  10.1\n"
            "Gun Energy        12.1\n"
            "Gun Recharge      13.1\n"
            "Ammo              14.1\n");
}

TEST_F(StatsShow, AnUnknownNameIsNamed) {
  const Outcome outcome = RunWords({"stats", "show", "-1.5e3", "--json"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "{\"error\":\"no ship is named \\\"-1.5e3\\\"\"}\n");
}

TEST_F(StatsShow, ABlockBehindTheEndOfTheFileIsTheBoxOfTheReader) {
  std::filesystem::resize_file(sample.game / "shipstats.bin", 10);
  const Outcome outcome = RunWords({"stats", "show", "Sabrewing", "--json"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.ErrorLines(),
            std::vector<Json>{BoxLine("PutShipsStats", "Error - invalid ship", "exclamation", "ok", "ok")});
}

struct StatsEdit : EnabledRuns {
  [[nodiscard]] FolderImage Game() const { return ImageOf(sample.game); }
  /// The offset of a statistic in the file of all blocks; 0 is the first one in the order of the file.
  [[nodiscard]] static std::size_t PlaceOf(std::size_t ship, std::size_t field) {
    const std::size_t block = RunWords({"ships", "list", "--json"}).Document().at(ship)["statsIndex"];
    return block * 352 + 64 + 4 * field;
  }
  static void Put(Bytes& file, std::size_t at, float value) {
    const Bytes bytes = FloatBytes(value);
    std::copy(bytes.begin(), bytes.end(), file.begin() + static_cast<std::ptrdiff_t>(at));
  }
  /// Expects that a command fails with one line and that the game's files stay.
  void ExpectRefused(const std::vector<std::string>& words, const std::string& error) const {
    const FolderImage before = Game();
    const Outcome outcome = RunWords(words);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, error);
    EXPECT_TRUE(SameImage(before, Game()));
  }
};

TEST_F(StatsEdit, SetWritesTheOneValueAndTellsItInItsShortestForm) {
  FolderImage expected = Game();
  Put(expected.at("shipstats.bin"), PlaceOf(2, 0), 12.5F);
  const Outcome outcome = RunWords({"stats", "set", " sabrewing ", "max SPEED", " +12.500 "});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out, "Sabrewing: Max Speed is 12.5 now.\n");
  EXPECT_TRUE(SameImage(expected, Game()));
}

TEST_F(StatsEdit, SetOfEveryLabelWritesItsOwnPlace) {
  constexpr std::size_t fields[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 11, 9, 10, 12, 13, 14};
  FolderImage expected = Game();
  for (std::size_t row = 0; row < 15; ++row) {
    const float value = 0.03125F * static_cast<float>(row + 1);
    Put(expected.at("shipstats.bin"), PlaceOf(2, fields[row]), value);
    const Outcome outcome = RunWords({"stats", "set", "Sabrewing", labels[row], std::to_string(value), "--json"});
    EXPECT_EQ(outcome.Document(),
              (Json{{"action", "set"}, {"ship", "Sabrewing"}, {"label", labels[row]}, {"value", value}}));
    EXPECT_TRUE(SameImage(expected, Game())) << labels[row];
  }
}

TEST_F(StatsEdit, SetOfAnImportedShipWritesTheDefaults) {
  FolderImage expected = Game();
  Put(expected.at("shipstats.def"), PlaceOf(12, 14), 7);
  EXPECT_EQ(RunWords({"stats", "set", "Manta", "Ammo", "7"}).status, 0);
  EXPECT_TRUE(SameImage(expected, Game()));
}

TEST_F(StatsEdit, SetTakesAnEmptyTextAsZero) {
  EXPECT_EQ(RunWords({"stats", "set", "Sabrewing", "Ammo", ""}).out, "Sabrewing: Ammo is 0 now.\n");
}

TEST_F(StatsEdit, SetTakesTheLimitsAndNothingBeyondThem) {
  EXPECT_EQ(RunWords({"stats", "set", "Sabrewing", "Max Speed", "10000000"}).status, 0);
  EXPECT_EQ(RunWords({"stats", "set", "Sabrewing", "Inertia", "1"}).status, 0);
  ExpectRefused({"stats", "set", "Sabrewing", "Max Speed", "10000000.1"},
                "Oravin: This value must be between 0 and 10,000,000\n");
  ExpectRefused({"stats", "set", "Sabrewing", "Max Speed", "-1"},
                "Oravin: This value must be between 0 and 10,000,000\n");
  ExpectRefused({"stats", "set", "Sabrewing", "Inertia", "1.5"}, "Oravin: Inertia must be a value between 0 and 1.\n");
  ExpectRefused({"stats", "set", "Sabrewing", "Roll Inertia", "fast"},
                "Oravin: Inertia must be a value between 0 and 1.\n");
  ExpectRefused({"stats", "set", "Sabrewing", "Ammo", "1,5"}, "Oravin: This value must be between 0 and 10,000,000\n");
}

TEST_F(StatsEdit, SetOfAnUnknownLabelListsThoseThereAre) {
  ExpectRefused({"stats", "set", "Sabrewing", "Speed", "1"},
                "oravin-cli: there is no statistic \"Speed\"; there are: Max Speed, Inertia, Yaw Max, Yaw Inertia, "
                "Pitch Max, Pitch Inertia, Roll Max, Roll Inertia, Shield Strength, Shield Recharge, Armor Strength, "
                "Afterburner Fuel, Gun Energy, Gun Recharge, Ammo\n");
}

TEST_F(StatsEdit, UnknownShipsAreNamed) {
  for (const std::vector<std::string>& words :
       std::vector<std::vector<std::string>>{{"stats", "set", "Nobody", "Ammo", "1"},
                                             {"stats", "copy", "Nobody", "Sabrewing"},
                                             {"stats", "copy", "Sabrewing", "Nobody"},
                                             {"stats", "restore", "Nobody"}}) {
    ExpectRefused(words, "oravin-cli: no ship is named \"Nobody\"\n");
  }
}

TEST_F(StatsEdit, SetOfAShipWithoutABlockIsTheBoxOfTheReader) {
  std::filesystem::resize_file(sample.game / "shipstats.bin", 10);
  ExpectRefused({"stats", "set", "Sabrewing", "Ammo", "1"}, "PutShipsStats: Error - invalid ship\n");
}

TEST_F(StatsEdit, CopyGivesTheFifteenValuesAndNothingElse) {
  FolderImage expected = Game();
  const auto copy = [&](const std::string& from, std::size_t source, const std::string& to, std::size_t target) {
    const auto at = static_cast<std::ptrdiff_t>(PlaceOf(source, 0));
    const Bytes values(expected.at(from).begin() + at, expected.at(from).begin() + at + 60);
    std::copy(values.begin(), values.end(), expected.at(to).begin() + static_cast<std::ptrdiff_t>(PlaceOf(target, 0)));
  };
  copy("shipstats.bin", 2, "shipstats.bin", 5);
  EXPECT_EQ(RunWords({"stats", "copy", "sabrewing", "scimitar"}).out,
            "Scimitar has the statistics of Sabrewing now.\n");
  EXPECT_TRUE(SameImage(expected, Game()));
  copy("shipstats.bin", 2, "shipstats.def", 12);
  EXPECT_EQ(RunWords({"stats", "copy", "Sabrewing", "Manta", "--json"}).Document(),
            Json::parse(R"({"action":"copy","from":"Sabrewing","to":"Manta"})"));
  EXPECT_TRUE(SameImage(expected, Game()));
  copy("shipstats.def", 12, "shipstats.bin", 11);
  EXPECT_EQ(RunWords({"stats", "copy", "Manta", "Kestrel"}).status, 0);
  EXPECT_TRUE(SameImage(expected, Game()));
}

TEST_F(StatsEdit, CopyOntoItselfChangesNothing) {
  const FolderImage before = Game();
  EXPECT_EQ(RunWords({"stats", "copy", "Sabrewing", "Sabrewing"}).status, 0);
  EXPECT_TRUE(SameImage(before, Game()));
}

TEST_F(StatsEdit, RestoreBringsTheDefaultsBack) {
  const FolderImage before = Game();
  RunWords({"stats", "set", "Sabrewing", "Ammo", "1"});
  RunWords({"stats", "set", "Manta", "Ammo", "1"});
  ASSERT_FALSE(SameImage(before, Game()));
  EXPECT_EQ(RunWords({"stats", "restore", "sabrewing"}).out, "Sabrewing has its default statistics.\n");
  EXPECT_EQ(RunWords({"stats", "restore", "manta", "--json"}).Document(),
            Json::parse(R"({"action":"restore","ship":"Manta"})"));
  EXPECT_TRUE(SameImage(before, Game()));
}

TEST_F(StatsEdit, RestoreOfAnImportedShipWithoutATextIsItsBox) {
  std::filesystem::remove(sample.program / "addons" / "stats" / "manta.txt");
  ExpectRefused({"stats", "restore", "Manta"}, "Oravin: Imported Ships have no default\n");
}

TEST_F(StatsEdit, RestoreWithoutDefaultsIsTheBoxOfTheReader) {
  std::filesystem::resize_file(sample.game / "shipstats.def", 0);
  ExpectRefused({"stats", "restore", "Sabrewing"}, "PutShipsStats: Error - invalid ship\n");
}

TEST_F(StatsEdit, RestoreAllCountsTheShipsOrTellsWhichCouldNotBe) {
  const FolderImage before = Game();
  for (const char* ship : {"Predator", "Sabrewing", "Kestrel", "Manta"}) RunWords({"stats", "set", ship, "Ammo", "1"});
  const Outcome some = RunWords({"stats", "restore-all"});
  EXPECT_EQ(some.status, 1);
  EXPECT_EQ(some.out, "");
  EXPECT_EQ(some.err,
            "Oravin: The statistics of 11 ships were restored.\n"
            "  These could not be restored:\n"
            "  Wraithwing: Imported Ships have no default\n");
  EXPECT_TRUE(SameImage(before, Game()));
  WriteFileAt(sample.program / "addons" / "stats" / "wraithwing.txt", "1,0,1,0,1,0,1,0,1,1,1,1,1,1,1");
  const Outcome all = RunWords({"stats", "restore-all", "--json"});
  EXPECT_EQ(all.status, 0);
  EXPECT_EQ(all.Document(), Json::parse(R"({"action":"restore-all","done":true,"ships":12})"));
  EXPECT_EQ(all.ErrorLines(), std::vector<Json>{BoxLine("Oravin", "The statistics of 12 ships were restored.",
                                                        "information", "ok", "ok")});
  EXPECT_EQ(RunWords({"stats", "restore-all"}).out, "Ships that have their default statistics: 12.\n");
}

struct StatsOfADisabledGame : SampleRuns {};

TEST_F(StatsOfADisabledGame, AreNotThereToEdit) {
  const FolderImage before = ImageOf(sample.game);
  EXPECT_EQ(RunWords({"stats", "restore-all"}).out, "The catalogue is empty; nothing was done.\n");
  const std::string unknown =
      "oravin-cli: no ship is named \"Sabrewing\"; the catalogue is empty, \"enable\" fills it\n";
  EXPECT_EQ(RunWords({"stats", "set", "Sabrewing", "Ammo", "1"}).err, unknown);
  EXPECT_EQ(RunWords({"weapons", "list", "Sabrewing"}).err, unknown);
  EXPECT_EQ(RunWords({"weapons", "restore", "Sabrewing"}).err, unknown);
  EXPECT_EQ(RunWords({"cloak", "toggle", "Sabrewing"}).err, unknown);
  EXPECT_TRUE(SameImage(before, Without(ImageOf(sample.game), {"shipstats.def"})));
}

}  // namespace
}  // namespace oravin::test
