#include <bit>

#include "sample_runs.h"
#include "ships/shipstats.h"

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
  PatchFileAt(sample.program / "ships.dat", 12 * 868 + statsIndexAt, {2, 0, 0, 0});
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

}  // namespace
}  // namespace oravin::test
