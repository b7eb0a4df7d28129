// Which statistics block is a model's, by their names.

#include "actions/match_stats.h"

#include <gtest/gtest.h>

#include <chrono>

#include "base/file_error.h"
#include "support/temporary_folder.h"

namespace oravin::test {
namespace {

struct Expected {
  int block;  ///< -1 for none
  MatchSureness sureness;
};

/// Matches ships without second parts.
std::vector<StatsMatch> Match(const std::vector<std::string>& stems, const std::vector<std::string>& blocks) {
  std::vector<NamedModel> models;
  for (const std::string& stem : stems) models.push_back({stem, std::nullopt});
  return MatchStats(models, blocks);
}

void ExpectMatches(const std::vector<StatsMatch>& matches, const std::vector<Expected>& expected) {
  ASSERT_EQ(matches.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    SCOPED_TRACE(i);
    EXPECT_EQ(matches[i].block ? static_cast<int>(*matches[i].block) : -1, expected[i].block);
    EXPECT_STREQ(SurenessText(matches[i].sureness), SurenessText(expected[i].sureness));
  }
}

TEST(StatsMatch, TheSameNameIsExact) {
  ExpectMatches(Match({"alpha"}, {"bravo", "alpha"}), {{1, MatchSureness::exact}});
}

TEST(StatsMatch, CaseBlanksAndPunctuationMakeItAlike) {
  ExpectMatches(Match({"ural_tanker", "KESTREL"}, {"Kestrel", "Ural-Tanker"}),
                {{1, MatchSureness::alike}, {0, MatchSureness::alike}});
}

TEST(StatsMatch, AWordThatIsARomanNumberStandsForItsDigits) {
  ExpectMatches(Match({"lancer4", "mark2"}, {"Mark II", "Lancer IV"}),
                {{1, MatchSureness::alike}, {0, MatchSureness::alike}});
  ExpectMatches(Match({"tug4"}, {"Tugiv"}), {{-1, MatchSureness::none}});
}

TEST(StatsMatch, ANameThatBeginsWithTheOtherBeginsAlike) {
  ExpectMatches(Match({"ascension"}, {"Ascension Carrier"}), {{0, MatchSureness::prefix}});
  ExpectMatches(Match({"kestrelnew"}, {"Kestrel"}), {{0, MatchSureness::prefix}});
}

TEST(StatsMatch, OfSeveralBeginningsTheOneThatLeavesLeastIsTaken) {
  ExpectMatches(Match({"meridian"}, {"Meridian Cruiser Refit", "Meridian Cruiser"}), {{1, MatchSureness::prefix}});
}

TEST(StatsMatch, TwoLettersAreNoBeginning) { ExpectMatches(Match({"ab"}, {"abcdef"}), {{-1, MatchSureness::none}}); }

TEST(StatsMatch, ALetterOrTwoMakeItClose) {
  ExpectMatches(Match({"resctug"}, {"Rescue Tug"}), {{0, MatchSureness::close}});
  ExpectMatches(Match({"sokal"}, {"Sokol"}), {{0, MatchSureness::close}});
}

TEST(StatsMatch, ShortNamesMustBeNearer) {
  ExpectMatches(Match({"sakal"}, {"Sokol"}), {{-1, MatchSureness::none}});
  ExpectMatches(Match({"cat"}, {"bat"}), {{-1, MatchSureness::none}});
}

TEST(StatsMatch, NothingNearIsNone) { ExpectMatches(Match({"alpha"}, {"omega", ""}), {{-1, MatchSureness::none}}); }

TEST(StatsMatch, ABlockIsOneShipsAndTheSurerOneGetsIt) {
  // In whatever order they come.
  ExpectMatches(Match({"kestrels", "kestrel"}, {"kestrel"}), {{-1, MatchSureness::none}, {0, MatchSureness::exact}});
  ExpectMatches(Match({"kestrol", "kestrelnew"}, {"Kestrel"}), {{-1, MatchSureness::none}, {0, MatchSureness::prefix}});
}

TEST(StatsMatch, BlocksOfOneNameGoToOneShipEach) {
  ExpectMatches(Match({"tug", "t.u.g"}, {"tug", "Tug"}), {{0, MatchSureness::exact}, {1, MatchSureness::alike}});
}

TEST(StatsMatch, NamesOfPunctuationAloneMatchNothing) {
  ExpectMatches(Match({"__", "", "--"}, {"", "--", "   "}),
                {{-1, MatchSureness::none}, {-1, MatchSureness::none}, {-1, MatchSureness::none}});
}

TEST(StatsMatch, LettersWithAccentsAreLetters) {
  ExpectMatches(Match({"b\xE4r"}, {"bar", "B\xC4R"}), {{1, MatchSureness::alike}});
}

TEST(StatsMatch, ASecondPartsBlockHasItsShipsNameInIt) {
  const std::vector<NamedModel> models = {{"predator", std::nullopt}, {"t_predator", 0}};
  ExpectMatches(MatchStats(models, std::vector<std::string>{"Predator Tiger", "Predator"}),
                {{1, MatchSureness::alike}, {0, MatchSureness::prefix}});
  ExpectMatches(MatchStats(models, std::vector<std::string>{"Predator", "T_PREDATOR", "Predator Two"}),
                {{0, MatchSureness::alike}, {1, MatchSureness::alike}});
}

TEST(StatsMatch, ASecondPartFollowsTheNameOfItsShipsBlock) {
  const std::vector<NamedModel> models = {{"resctug", std::nullopt}, {"t_resctug", 0}};
  ExpectMatches(MatchStats(models, std::vector<std::string>{"Tiger Rescue Tug", "Rescue Tug"}),
                {{1, MatchSureness::close}, {0, MatchSureness::prefix}});
}

TEST(StatsMatch, ASecondPartWithoutABlockSharesItsShips) {
  const std::vector<NamedModel> models = {{"t_predator", 1}, {"predator", std::nullopt}};
  ExpectMatches(MatchStats(models, std::vector<std::string>{"predator"}),
                {{0, MatchSureness::shared}, {0, MatchSureness::exact}});
  ExpectMatches(MatchStats(models, std::vector<std::string>{"something"}),
                {{-1, MatchSureness::none}, {-1, MatchSureness::none}});
}

TEST(StatsMatch, ManyNamesThatAreAllAlikeTakeNoTimeToSpeakOf) {
  std::vector<std::string> stems;
  std::vector<std::string> blocks;
  for (int i = 0; i < 30000; ++i) {
    stems.push_back("a-rather-long-name-of-a-ship-" + std::to_string(i));
    blocks.push_back("b rather long name of a ship " + std::to_string(i));
  }
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(Match(stems, blocks).size(), stems.size());
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
}

TEST(StatsMatch, BlocksOfOneNameInTheThousandsTakeNoTimeToSpeakOf) {
  const std::vector<std::string> blocks(32768, "ship");
  std::vector<std::string> stems;
  for (int i = 0; i < 30000; ++i) stems.push_back(std::string(static_cast<std::size_t>(i % 20), '_') + "ship");
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_TRUE(Match(stems, blocks).back().block.has_value());
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
}

struct StatsBlockNames : testing::Test {
  std::vector<std::string> Read(const Bytes& bytes) {
    WriteFileAt(folder.Native("shipstats.bin"), bytes);
    return BlockNames(files, folder.Windows("shipstats.bin"));
  }

  TemporaryFolder folder;
  Files files;
};

TEST_F(StatsBlockNames, EndAtAZeroByteAndLoseTheirBlanks) {
  Bytes bytes(352 * 3);
  const Bytes name = BytesOf(" Rescue Tug  ");
  std::copy(name.begin(), name.end(), bytes.begin());
  bytes[20] = 'x';  // after the zero byte
  std::fill_n(bytes.begin() + 704, 352, std::uint8_t{'n'});
  EXPECT_EQ(Read(bytes), (std::vector<std::string>{"Rescue Tug", "", std::string(64, 'n')}));
}

TEST_F(StatsBlockNames, APieceOfABlockAtTheEndIsNone) {
  EXPECT_EQ(Read(Bytes(352 + 351)).size(), 1U);
  EXPECT_TRUE(Read(Bytes(351)).empty());
  EXPECT_TRUE(Read({}).empty());
}

TEST_F(StatsBlockNames, AMissingFileIsAnError) {
  EXPECT_THROW(BlockNames(files, folder.Windows("missing.bin")), FileError);
}

}  // namespace
}  // namespace oravin::test
