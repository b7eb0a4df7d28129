#include "app/handlers.h"
#include "cli/switcher_rows.h"
#include "sample_runs.h"

namespace oravin::test {
namespace {

struct ShipsList : EnabledRuns {};
struct ShipsSwap : EnabledRuns {
  Bytes Model(const std::string& name) const { return ReadFileAt(sample.game / "ships" / name); }
  Bytes AddOn(const std::string& name) const { return ReadFileAt(sample.program / "addons" / "ships" / name); }
  /// The record of the catalogue as `ships list` shows it.
  static Json Ship(std::size_t index) { return RunWords({"ships", "list", "--json"}).Document().at(index); }
};
struct ShipsUnswap : ShipsSwap {};
struct ShipsByName : SampleRuns {};

TEST_F(ShipsList, IsAnArrayOfEveryRecordButTheInertOne) {
  const Outcome outcome = RunWords({"ships", "list", "--json"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  const Json ships = outcome.Document();
  ASSERT_EQ(ships.size(), sample.ships.size());
  for (std::size_t i = 0; i < ships.size(); ++i) {
    EXPECT_EQ(ships[i]["index"], i);
    EXPECT_EQ(ships[i]["shipName"], sample.ships[i].name);
    EXPECT_EQ(ships[i]["shipFile"], sample.ships[i].file);
    EXPECT_EQ(ships[i]["shipKind"], sample.ships[i].kind);
    EXPECT_EQ(ships[i]["imported"], sample.ships[i].kind == 3);
    EXPECT_EQ(ships[i].size(), 16U);
    EXPECT_EQ(ships[i]["textures"].size(), 21U);
  }
  EXPECT_EQ(ships[0]["hasSecondPart"], true);
  EXPECT_EQ(ships[0]["secondPartIndex"], 1);
}

TEST_F(ShipsList, TextIsATableWithALineForEachRecord) {
  const Outcome outcome = RunWords({"ships", "list"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out.substr(0, 19), "Index  Name        ");
  EXPECT_EQ(std::count(outcome.out.begin(), outcome.out.end(), '\n'),
            static_cast<std::ptrdiff_t>(sample.ships.size()) + 1);
}

TEST_F(ShipsByName, TheListIsEmptyWhileTheFeaturesAreNotEnabled) {
  const Outcome json = RunWords({"ships", "list", "--json"});
  EXPECT_EQ(json.status, 0);
  EXPECT_EQ(json.out, "[]\n");
  EXPECT_EQ(RunWords({"ships", "list"}).out, "The catalogue is empty; \"enable\" fills it.\n");
}

TEST_F(ShipsSwap, ReplacesTheTargetsModelAndTellsIt) {
  const Outcome outcome = RunWords({"ships", "swap", "Sabrewing", "Manta"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Sabrewing is switched to Manta.\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(Model("sabrewing.shp"), AddOn("manta.shp"));
  const Json ship = Ship(2);
  EXPECT_EQ(ship["changed"], true);
  EXPECT_EQ(ship["changedToName"], "Manta");
  EXPECT_EQ(ship["changedToFile"], "manta.shp");
  EXPECT_EQ(ship["changedToIndex"], 12);
}

TEST_F(ShipsSwap, JsonNamesBothShipsAsTheCatalogueSpellsThem) {
  const Outcome outcome = RunWords({"--json", "ships", "swap", " sABREwing ", "MANTA"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "{\n"
            "  \"action\": \"swap\",\n"
            "  \"target\": \"Sabrewing\",\n"
            "  \"source\": \"Manta\",\n"
            "  \"done\": true,\n"
            "  \"changed\": true\n"
            "}\n");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(ShipsSwap, ATwoPartShipChangesBothItsRecords) {
  EXPECT_EQ(RunWords({"ships", "swap", "Predator", "Kestrel"}).status, 0);
  EXPECT_EQ(Ship(0)["changedToName"], "Kestrel");
  EXPECT_EQ(Ship(1)["changedToName"], "Kestrel");
  EXPECT_EQ(Model("t_predator.shp"), Model("kestrel.shp"));
}

TEST_F(ShipsSwap, CapitalShipsAreFoundInTheOtherDisplay) {
  const Outcome outcome = RunWords({"ships", "swap", "ascension carrier", "colossus carrier"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Ascension Carrier is switched to Colossus Carrier.\n");
  EXPECT_EQ(Model("ascension.shp"), AddOn("colossus.shp"));
}

TEST_F(ShipsSwap, TheSameSwapAgainDoesNothing) {
  RunWords({"ships", "swap", "Sabrewing", "Manta"});
  const Outcome outcome = RunWords({"ships", "swap", "Sabrewing", "Manta", "--json"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.Document(), Json::parse(R"({"action":"swap","target":"Sabrewing","source":"Manta","done":false,
                                                "changed":true})"));
  EXPECT_EQ(RunWords({"ships", "swap", "Sabrewing", "Manta"}).out,
            "Sabrewing is switched to Manta already; nothing was done.\n");
}

TEST_F(ShipsSwap, AShipIsNotSwitchedToItself) {
  const Outcome outcome = RunWords({"ships", "swap", "Sabrewing", "sabrewing"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Sabrewing is to be switched to itself; nothing was done.\n");
  EXPECT_EQ(Ship(2)["changed"], false);
}

TEST_F(ShipsSwap, AnUnknownTargetIsNamed) {
  const Outcome outcome = RunWords({"ships", "swap", "Nobody", "Manta"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "oravin-cli: no ship is named \"Nobody\"\n");
}

TEST_F(ShipsSwap, AnUnknownSourceIsNamed) {
  const Outcome outcome = RunWords({"ships", "swap", "Sabrewing", "Nobody"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "oravin-cli: no ship is named \"Nobody\"\n");
}

TEST_F(ShipsSwap, BothUnknownNamesAreNamedInJsonToo) {
  const Outcome outcome = RunWords({"ships", "swap", "This", "That", "--json"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err,
            "{\"error\":\"no ship is named \\\"This\\\"\"}\n{\"error\":\"no ship is named \\\"That\\\"\"}\n");
}

TEST_F(ShipsSwap, ANegativeNumberIsANameNotAnOption) {
  const Outcome outcome = RunWords({"ships", "swap", "-5", "Manta"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "oravin-cli: no ship is named \"-5\"\n");
}

TEST_F(ShipsSwap, PartOfANameIsNoName) { EXPECT_EQ(RunWords({"ships", "swap", "Sabre", "Manta"}).status, 1); }

TEST_F(ShipsSwap, AnImportedShipIsNoTarget) {
  const Outcome outcome = RunWords({"ships", "swap", "manta", "Sabrewing"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "oravin-cli: \"Manta\" is an imported ship; only the game's own ships can be changed\n");
}

TEST_F(ShipsSwap, AFighterAndACapitalShipAreListedApart) {
  const Bytes before = Model("sabrewing.shp");
  const Outcome outcome = RunWords({"ships", "swap", "Sabrewing", "Colossus Carrier"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err,
            "oravin-cli: \"Sabrewing\" and \"Colossus Carrier\" cannot be switched: one is a capital ship, the other a "
            "fighter, and the Switcher tab lists them apart\n");
  EXPECT_EQ(Model("sabrewing.shp"), before);
  EXPECT_EQ(RunWords({"ships", "swap", "Ascension Carrier", "Manta"}).status, 1);
}

TEST_F(ShipsSwap, AMissingImportedModelFailsInTheBoxesOfTheWindowAndHasNoResult) {
  std::filesystem::remove(sample.game / "ships" / "manta.shp");
  const Outcome outcome = RunWords({"ships", "swap", "Kestrel", "Manta", "--json"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  const auto lines = outcome.ErrorLines();
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[0], BoxLine("IsCapitalShip", "Error - file not found", "exclamation", "ok", "ok"));
  EXPECT_EQ(lines[1], BoxLine("Oravin", "Error - imported ship 'manta.shp' not found", "none", "ok", "ok"));
  EXPECT_EQ(lines[2]["box"]["title"], "cmdSwap_Click()");
  EXPECT_EQ(lines[2]["box"]["icon"], "exclamation");
}

TEST_F(ShipsUnswap, PutsTheShipBack) {
  const Bytes before = Model("sabrewing.shp");
  RunWords({"ships", "swap", "Sabrewing", "Manta"});
  ASSERT_NE(Model("sabrewing.shp"), before);
  const Outcome outcome = RunWords({"ships", "unswap", "SABREWING"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Sabrewing is put back.\n");
  EXPECT_EQ(Model("sabrewing.shp"), before);
  EXPECT_EQ(Ship(2)["changed"], false);
}

TEST_F(ShipsUnswap, PutsACapitalShipBackAndTellsItInJson) {
  RunWords({"ships", "swap", "Ascension Carrier", "Colossus Carrier"});
  const Outcome outcome = RunWords({"ships", "unswap", "ascension carrier", "--json"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "{\n  \"action\": \"unswap\",\n  \"target\": \"Ascension Carrier\",\n  \"done\": true,\n"
            "  \"changed\": false\n}\n");
}

TEST_F(ShipsUnswap, OfAShipThatIsNotChangedDoesNothing) {
  const Outcome outcome = RunWords({"ships", "unswap", "Sabrewing"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Sabrewing is not changed; nothing was done.\n");
  EXPECT_EQ(RunWords({"ships", "unswap", "Sabrewing", "--json"}).Document(),
            Json::parse(R"({"action":"unswap","target":"Sabrewing","done":false,"changed":false})"));
}

TEST_F(ShipsUnswap, AnUnknownNameIsNamed) {
  const Outcome outcome = RunWords({"ships", "unswap", "Nobody"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "oravin-cli: no ship is named \"Nobody\"\n");
}

TEST_F(ShipsUnswap, AnEmptyNameNamesNoShip) {
  const Outcome outcome = RunWords({"ships", "unswap", ""});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "oravin-cli: no ship is named \"\"\n");
}

TEST_F(ShipsUnswap, AnImportedShipHasNothingToPutBack) { EXPECT_EQ(RunWords({"ships", "unswap", "Manta"}).status, 1); }

TEST_F(ShipsUnswap, AllShipsArePutBackAndTwoPartShipsAreNamedOnce) {
  RunWords({"ships", "swap", "Predator", "Manta"});
  RunWords({"ships", "swap", "Kestrel", "Predator"});
  const Outcome outcome = RunWords({"ships", "unswap-all", "--json"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.Document(), Json::parse(R"({"action":"unswap-all","done":true,"ships":[
      {"target":"Predator","source":"Manta"},{"target":"Kestrel","source":"Predator"}]})"));
  for (const Json& ship : RunWords({"ships", "list", "--json"}).Document()) EXPECT_EQ(ship["changed"], false);
}

TEST_F(ShipsUnswap, AllTellsTheirNumber) {
  RunWords({"ships", "swap", "Predator", "Manta"});
  EXPECT_EQ(RunWords({"ships", "unswap-all"}).out, "Ships that are put back: 1.\n");
}

TEST_F(ShipsUnswap, AllWithNothingChangedDoesNothing) {
  const Outcome outcome = RunWords({"ships", "unswap-all"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "No ship is changed; nothing was done.\n");
  EXPECT_EQ(RunWords({"ships", "unswap-all", "--json"}).Document(),
            Json::parse(R"({"action":"unswap-all","done":false,"ships":[]})"));
}

TEST_F(ShipsByName, ANameIsUnknownWhileTheFeaturesAreNotEnabled) {
  const Outcome outcome = RunWords({"ships", "swap", "Predator", "Manta"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err,
            "oravin-cli: no ship is named \"Predator\"; the catalogue is empty, \"enable\" fills it\n"
            "oravin-cli: no ship is named \"Manta\"; the catalogue is empty, \"enable\" fills it\n");
  EXPECT_EQ(RunWords({"ships", "unswap", "Predator"}).status, 1);
}

TEST_F(ShipsByName, AShipOfAnotherKindIsNotListed) {
  EditShipList("1,\"Sabrewing\"", "4,\"Sabrewing\"");
  Enable();
  const Outcome outcome = RunWords({"ships", "swap", "sabrewing", "Manta"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "oravin-cli: \"Sabrewing\" is not listed on the Switcher tab\n");
}

TEST_F(ShipsByName, ANameInBothDisplaysIsTakenWhereTheOtherShipIs) {
  EditShipList("\"Ascension Carrier\"", "\"Sabrewing\"");
  Enable();
  EXPECT_EQ(RunWords({"ships", "swap", "Sabrewing", "Colossus Carrier"}).status, 0);
  const Json ships = RunWords({"ships", "list", "--json"}).Document();
  EXPECT_EQ(ships.at(2)["changed"], false);
  EXPECT_EQ(ships.at(8)["changed"], true);
}

TEST_F(ShipsByName, AccentedNamesAreUtf8OutsideAndCaseDoesNotMatter) {
  EditShipList("\"Sabrewing\"",
               "\"S\xE4"
               "brewing\"");
  Enable();
  const Outcome outcome = RunWords({"ships", "unswap",
                                    "S\xC3\x84"
                                    "BREWING"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "S\xC3\xA4"
            "brewing is not changed; nothing was done.\n");
}

}  // namespace
}  // namespace oravin::test
