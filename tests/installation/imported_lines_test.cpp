// The ship list's lines of imported ships.

#include "installation/imported_lines.h"

#include <gtest/gtest.h>

namespace oravin::test {
namespace {

TEST(ImportedLines, ShipsThatAreAlikeGetALineEach) {
  const ShipListText list = ParseShipList("the list", "3\n3,M,m.shp,0,,\n1,N,n.shp,0,,\n3,M,m.shp,0,,\n", 0);
  ShipRecord ship;
  ship.ShipName.Set("M");
  ship.ShipFile.Set("m.shp");
  EXPECT_EQ(FindImportedLines(list, {ship, ship, ship}),
            (std::vector<std::optional<std::size_t>>{0U, 2U, std::nullopt}));
}

TEST(ImportedLines, AShipWithoutALineHasNone) {
  const ShipListText list = ParseShipList("the list", "1\n1,M,m.shp,0,,\n", 0);
  ShipRecord ship;
  ship.ShipName.Set("M");
  ship.ShipFile.Set("m.shp");
  EXPECT_EQ(FindImportedLines(list, {ship}), (std::vector<std::optional<std::size_t>>{std::nullopt}));
}

}  // namespace
}  // namespace oravin::test
