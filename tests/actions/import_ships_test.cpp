// What an import asks before it starts, which switches it suggests, and its result message. What it writes is tested
// with the whole program.

#include "actions/import_ships.h"

#include <gtest/gtest.h>

#include "support/scripted_desk.h"
#include "support/temporary_folder.h"

namespace oravin::test {
namespace {

ShipRecord Record(const std::string& name, bool imported) {
  ShipRecord ship;
  ship.ShipName.Set(name);
  ship.ShipFile.Set("x.shp");
  ship.Imported = imported;
  return ship;
}

OfferedShip Offered(const std::string& name, bool checked) {
  OfferedShip offered;
  offered.ship.shipName = name;
  offered.checked = checked;
  return offered;
}

struct TheShipImport : testing::Test {
  TheShipImport() {
    installation.ProgramPath = folder.windows;
    installation.ships = {Record("Tiger", false), Record("Manta", true), ShipRecord()};
  }
  void Enable() const { WriteFileAt(folder.Native("ships.dat"), "x"); }

  TemporaryFolder folder;
  ScriptedHost here;
  Installation installation;
};

TEST_F(TheShipImport, NeedsTheFeatures) {
  here.desk.ExpectBox("Press \"Enable\" on the Switcher tab first. Then ships can be imported.");
  EXPECT_FALSE(CanImport(here.host, installation, {Offered("One", true)}));
  Enable();
  EXPECT_TRUE(CanImport(here.host, installation, {Offered("One", true)}));
}

TEST_F(TheShipImport, NeedsACheckedShip) {
  Enable();
  here.desk.ExpectBox("This pack lists no ships.");
  EXPECT_FALSE(CanImport(here.host, installation, {}));
  here.desk.ExpectBox("Check the ships to import first.");
  EXPECT_FALSE(CanImport(here.host, installation, {Offered("One", false)}));
}

TEST_F(TheShipImport, DoesNotStartWithANameThatIsTaken) {
  Enable();
  OfferedShip taken = Offered("Tiger", true);
  taken.nameTaken = true;
  here.desk.ExpectBox(
      "Ships marked in red have the same names as an existing ship in Oravin.\n"
      "You must rename or uncheck these ships before importing.");
  EXPECT_FALSE(CanImport(here.host, installation, {taken, Offered("One", true)}));
}

TEST_F(TheShipImport, SuggestsSwitchesForStockShipsAlone) {
  ImportResult result;
  result.imported = {{"", "One", " tiger "}, {"", "Two", "Manta"}, {"", "Three", ""}, {"", "Four", "none"}};
  EXPECT_EQ(SuggestedSwitches(installation.ships, result),
            (std::vector<std::pair<std::string, std::string>>{{"TIGER", "ONE"}}));
}

TEST_F(TheShipImport, ShowsASuccessWithItsNotes) {
  ImportResult result;
  here.desk.ExpectSuccess("Importing Successfull!");
  ShowImportResult(here.host, result);
  result.notes = {"A note."};
  here.desk.ExpectSuccess("Importing Successfull!\n\nA note.");
  ShowImportResult(here.host, result);
}

TEST_F(TheShipImport, ShowsTheRefusedShipsThenTheReasonsThenTheNotes) {
  ImportResult result;
  result.refused = {{"One", {"First.", "Second."}}, {"Two", {}}, {"Three", {"Third."}}};
  result.notes = {"A note."};
  here.desk.ExpectBox(
      "Importing Completed - but there where errors on some ships\n\nThese ships were not imported:\nOne\nTwo\nThree\n"
      "\nFirst.\nSecond.\nThird.\nA note.");
  ShowImportResult(here.host, result);
}

TEST_F(TheShipImport, ARunThatWasStoppedIsNoSuccess) {
  ImportResult result;
  result.stopped = true;
  result.notes = {"The import was stopped before its end."};
  here.desk.ExpectBox(
      "Importing Completed - but there where errors on some ships\n\nThe import was stopped before its end.");
  ShowImportResult(here.host, result);
}

}  // namespace
}  // namespace oravin::test
