// Which names a filter typed above a list lets through.

#include "tabs/name_filter.h"

#include <gtest/gtest.h>

namespace oravin::test {
namespace {

TEST(NameFilter, AnEmptyOneLetsAllThrough) {
  EXPECT_TRUE(Passes(FilterFrom("  "), ""));
  EXPECT_TRUE(Passes(FilterFrom(""), "anything"));
}

TEST(NameFilter, ATextAnywhereInTheNameWithoutRegardToCase) {
  EXPECT_TRUE(Passes(FilterFrom("IPS\\m"), "ships\\Manta.shp"));
  EXPECT_TRUE(Passes(FilterFrom("\xE4"), "\xC4"));
  EXPECT_FALSE(Passes(FilterFrom("mantax"), "ships\\manta"));
  EXPECT_FALSE(Passes(FilterFrom("a"), ""));
}

TEST(NameFilter, APatternMatchesTheWholeName) {
  EXPECT_TRUE(Passes(FilterFrom("*.SHP"), "ships\\manta.shp"));
  EXPECT_FALSE(Passes(FilterFrom("*.shp"), "manta.shp.bak"));
  EXPECT_TRUE(Passes(FilterFrom("m?nta*"), "manta.shp"));
  EXPECT_FALSE(Passes(FilterFrom("m?nta"), "ships\\manta"));
}

TEST(NameFilter, APatternOfManyStarsAnswersOnALongName) {
  const std::string stars = "*a*a*a*a*a*a*a*a*a*a*b";
  EXPECT_FALSE(Passes(FilterFrom(stars), std::string(20000, 'a')));
}

}  // namespace
}  // namespace oravin::test
