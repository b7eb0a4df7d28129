#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "base/number_text.h"
#include "cli/json_forms.h"
#include "cli/ships_table.h"
#include "cli/shortest_number.h"
#include "cli/text_table.h"

namespace oravin {
namespace {

TEST(ShortestJson, IsWrittenAsTheSameText) {
  for (const float number : {0.1F, 250.0F, -0.5F, 1e20F, 0.0F, 0.796875F, 3.4028235e38F, 1e-45F}) {
    EXPECT_EQ(ShortestJson(number).dump(), NumberText(number));
  }
}

TEST(ShortestJson, KeepsTheSignOfZero) { EXPECT_EQ(ShortestJson(-0.0F).dump(), "-0.0"); }

TEST(ShortestJson, IsNullForWhatIsNoFiniteNumber) {
  EXPECT_EQ(ShortestJson(std::numeric_limits<float>::quiet_NaN()).dump(), "null");
  EXPECT_EQ(ShortestJson(std::numeric_limits<float>::infinity()).dump(), "null");
}

/// A record in which no two fields are the same.
ShipRecord DistinctShip() {
  ShipRecord ship;
  ship.ShipName.Set("\xC9toile");
  ship.ShipFile.Set("etoile.shp");
  ship.ShipKind = Int16Value(2);
  ship.HogOffset = Int32Value(4000000000U);
  ship.HogSize = Int32Value(1234);
  ship.HogFatPos = Int32Value(77);
  ship.StatsIndex = Int16Value(9);
  for (std::size_t i = 0; i < texturesPerShip; ++i) ship.Textures.at(i).Set(i < 2 ? "tex" + std::to_string(i) : "");
  ship.HasSecondPart = true;
  ship.SecondPartIndex = Int16Value(6);
  ship.Changed = true;
  ship.ChangedToIndex = Int16Value(12);
  ship.Imported = false;
  ship.ChangedToName.Set("Manta");
  ship.ChangedToFile.Set("manta.shp");
  return ship;
}

TEST(JsonOfShip, HasEveryFieldInTheOrderOfTheRecord) {
  EXPECT_EQ(
      OneLine(JsonOf(DistinctShip(), 5)),
      "{\"index\":5,\"shipName\":\"\xC3\x89toile\",\"shipFile\":\"etoile.shp\",\"shipKind\":2,"
      "\"hogOffset\":4000000000,\"hogSize\":1234,\"hogFatPos\":77,\"statsIndex\":9,"
      "\"textures\":[\"tex0\",\"tex1\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\","
      "\"\",\"\",\"\",\"\"],"
      "\"hasSecondPart\":true,\"secondPartIndex\":6,\"changed\":true,\"changedToIndex\":12,\"imported\":false,"
      "\"changedToName\":\"Manta\",\"changedToFile\":\"manta.shp\"}");
}

TEST(JsonOfShip, AFalseChangedToIndexIsZero) {
  ShipRecord ship = DistinctShip();
  ship.ChangedToIndex = BooleanValue(false);
  EXPECT_EQ(JsonOf(ship, 0)["changedToIndex"], 0);
}

TEST(JsonOfStatus, HasEverything) {
  Status status;
  status.gameFolder = "Z:\\game\\";
  status.programFolder = "Z:\\program\\";
  status.enabled = true;
  status.readOnly = true;
  status.ships = 63;
  status.changedShips = 2;
  status.files = {{"resource.hog", true, 5000000000U, 1000, "entries"}, {"shipstats.def", false, 0, 0, "blocks"}};
  EXPECT_EQ(OneLine(JsonOf(status)),
            R"({"gameFolder":"Z:\\game\\","programFolder":"Z:\\program\\","enabled":true,"onlyLooks":true,"ships":63,)"
            R"("changedShips":2,"files":[)"
            R"({"name":"resource.hog","found":true,"size":5000000000,"count":1000,"counted":"entries"},)"
            R"({"name":"shipstats.def","found":false,"size":0,"count":0,"counted":"blocks"}]})");
}

TEST(TextTable, AlignsTextsLeftAndNumbersRight) {
  EXPECT_EQ(TextTable({{"Name", false}, {"Size", true}, {"Note", false}}, {{"a", "1", "x"}, {"longer", "12345", ""}}),
            "Name     Size  Note\n"
            "a           1  x\n"
            "longer  12345\n");
}

TEST(TextTable, WithoutHeadingsHasNoLineOfThem) {
  EXPECT_EQ(TextTable({{"", false}, {"", true}}, {{"a", "1"}, {"bc", "23"}}), "a    1\nbc  23\n");
}

TEST(TextTable, AlignsByCharactersNotBytes) {
  EXPECT_EQ(TextTable({{"N", false}, {"X", false}}, {{"\xC9", "1"}, {"ab", "2"}}), "N   X\n\xC3\x89   1\nab  2\n");
}

TEST(ShipsTable, ShowsTheMainFieldsAndLeavesInertRecordsOut) {
  EXPECT_EQ(ShipsTable({ShipRecord(), DistinctShip()}),
            "Index  Name    File        Kind  Stats  Archive offset  Stored size  Table at  Imported  Changed to\n"
            "    1  \xC3\x89toile  etoile.shp     2      9      4000000000         1234        77  no        Manta\n");
}

}  // namespace
}  // namespace oravin
