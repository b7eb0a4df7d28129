// Importing ships over add-ons that are there already under the same names: nothing of theirs is changed, and no ship
// comes back as another one.

#include "import_stage.h"
#include "support/cache_files.h"

namespace oravin::test {
namespace {

TEST_F(Importing, AModelWhoseNameAnotherAddOnHasGetsTheFirstFreeNumberForAllItsFiles) {
  SmallShip hawk = Make("hawk", "hawk.shp", {red});
  const std::string text = "1,2,3\n4,5,6\n7,8,9\n10,11,12\n13,14,15\n";
  WriteFileAt(New("hawk.txt"), text);
  WriteFileAt(installation.Program("addons/ships/HAWK.shp"), "another model");
  WriteFileAt(installation.Program("addons/ships/hawk2.shp"), "one more");
  WriteFileAt(installation.Program("addons/stats/hawk.txt"), "the other model's");
  expected.addOns["program/addons/ships/HAWK.shp"] = BytesOf("another model");
  expected.addOns["program/addons/ships/hawk2.shp"] = BytesOf("one more");
  expected.addOns["program/addons/stats/hawk.txt"] = BytesOf("the other model's");
  ExpectSuccess("\n\nThe model hawk.shp was imported as hawk3.shp.");
  ImportAll("hawk.shp");
  hawk.file = "hawk3.shp";
  expected.Import(hawk, {red}, text, {1, 2, 3, 4, 5, 6, 7, 8, 9, 11, 12, 10, 13, 14, 15});
  Compare("the import");
  session->Disable();
  expected.Disable();
  Compare("Disable");
  session->Enable();
  expected.Enable();
  expected.looseModels.erase("hawk3.bak");  // only an import makes it
  Compare("Enable");
}

TEST_F(Importing, AnEqualModelAmongTheAddOnsServes) {
  const SmallShip hawk = Make("hawk", "hawk.shp", {red});
  WriteFileAt(installation.Program("addons/ships/hawk.shp"), hawk.model);
  ExpectSuccess();
  ImportAll("hawk.shp");
  expected.Import(hawk, {red});
  Compare("the import");
}

TEST_F(Importing, AModelAmongTheAddOnsThemselvesIsImportedWhereItLies) {
  const SmallShip hawk = Make("hawk", "hawk.shp", {});
  std::filesystem::rename(New("hawk.shp"), installation.Program("addons/ships/hawk.shp"));
  ExpectSuccess();
  session->desk.OnForm([&](const std::string&) { Import(); });
  ImportFile(session->main, installation.programPath + "addons\\ships\\hawk.shp");
  expected.Import(hawk, {});
  Compare("the import");
}

TEST_F(Importing, TheStatisticsOfAnotherAddOnAreNotThoseOfARenamedShip) {
  SmallShip hawk = Make("hawk", "hawk.shp", {});
  WriteFileAt(installation.Program("addons/ships/hawk.shp"), "another model");
  WriteFileAt(installation.Program("addons/stats/hawk.txt"), "15,14,13,12,11,10,9,8,7,6,5,4,3,2,1");
  expected.addOns["program/addons/ships/hawk.shp"] = BytesOf("another model");
  expected.addOns["program/addons/stats/hawk.txt"] = BytesOf("15,14,13,12,11,10,9,8,7,6,5,4,3,2,1");
  ExpectSuccess("\n\nThe model hawk.shp was imported as hawk2.shp.");
  ImportAll("hawk.shp");
  hawk.file = "hawk2.shp";
  expected.Import(hawk, {});
  Compare("the import");
}

constexpr const char* hawksText = "1,2,3\n4,5,6\n7,8,9\n10,11,12\n13,14,15\n";
const std::vector<float> hawksValues = {1, 2, 3, 4, 5, 6, 7, 8, 9, 11, 12, 10, 13, 14, 15};
constexpr const char* othersText = "15,14,13,12,11,10,9,8,7,6,5,4,3,2,1";

TEST_F(Importing, AShipWithATextTakesTheNextFreeNameWhereAnotherTextHasItsOwn) {
  SmallShip hawk = Make("hawk", "hawk.shp", {});
  WriteFileAt(New("hawk.txt"), std::string(hawksText));
  WriteFileAt(installation.Program("addons/stats/HAWK.txt"), std::string(othersText));
  expected.addOns["program/addons/stats/HAWK.txt"] = BytesOf(othersText);
  ExpectSuccess("\n\nThe model hawk.shp was imported as hawk2.shp.");
  ImportAll("hawk.shp");
  hawk.file = "hawk2.shp";
  expected.Import(hawk, {}, hawksText, hawksValues);
  Compare("the import");
  session->Disable();
  expected.Disable();
  Compare("Disable");
  session->Enable();
  expected.Enable();
  expected.looseModels.erase("hawk2.bak");  // only an import makes it
  Compare("Enable");
}

TEST_F(Importing, AnEqualTextAmongTheAddOnsServes) {
  const SmallShip hawk = Make("hawk", "hawk.shp", {});
  WriteFileAt(New("hawk.txt"), std::string(hawksText));
  WriteFileAt(installation.Program("addons/stats/hawk.txt"), std::string(hawksText));
  ExpectSuccess();
  ImportAll("hawk.shp");
  expected.Import(hawk, {}, hawksText, hawksValues);
  Compare("the import");
}

TEST_F(Importing, AShipWithoutATextDoesNotTakeTheTextOfAnAddOnModelWithAnotherExtension) {
  SmallShip hawk = Make("hawk", "hawk.shp", {});
  WriteFileAt(installation.Program("addons/ships/HAWK.obj"), "another model");
  WriteFileAt(installation.Program("addons/stats/hawk.txt"), std::string(othersText));
  expected.addOns["program/addons/ships/HAWK.obj"] = BytesOf("another model");
  expected.addOns["program/addons/stats/hawk.txt"] = BytesOf(othersText);
  ExpectSuccess("\n\nThe model hawk.shp was imported as hawk2.shp.");
  ImportAll("hawk.shp");
  hawk.file = "hawk2.shp";
  expected.Import(hawk, {});
  Compare("the import");
}

TEST_F(Importing, OfTwoModelsOfAPackThatDifferInTheExtensionAloneTheSecondGetsANumber) {
  const SmallShip hawk = Make("hawk", "hawk.shp", {});
  SmallShip kite = Make("kestrel", "HAWK.obj", {});
  ASSERT_NE(hawk.model, kite.model);
  MakePack("pack\n\\hawk.shp,hawk,\n\\HAWK.obj,kestrel,\n");
  ExpectSuccess("\n\nThe model HAWK.obj was imported as HAWK2.obj.");
  ImportAll("ships.pak");
  expected.Import(hawk, {});
  kite.file = "HAWK2.obj";
  expected.Import(kite, {});
  Compare("the import");
}

TEST_F(Importing, EqualModelsOfAPackThatDifferInTheExtensionAloneDoNotShareABackup) {
  const SmallShip hawk = Make("hawk", "hawk.shp", {});
  SmallShip kite = hawk;
  kite.name = "kite";
  WriteFileAt(New("hawk.obj"), kite.model);
  MakePack("pack\n\\hawk.shp,hawk,\n\\hawk.obj,kite,\n");
  ExpectSuccess("\n\nThe model hawk.obj was imported as hawk2.obj.");
  ImportAll("ships.pak");
  expected.Import(hawk, {});
  kite.file = "hawk2.obj";
  expected.Import(kite, {});
  Compare("the import");
}

TEST_F(Importing, AModelDoesNotGetTheBaseNameOfAnImportedShipsModel) {
  const SmallShip hawk = Make("hawk", "hawk.shp", {});
  ExpectSuccess();
  ImportAll("hawk.shp");
  expected.Import(hawk, {});
  // Without the backup of the first one nothing but its record has the base name.
  std::filesystem::remove(installation.Game("ships/hawk.bak"));
  expected.looseModels.erase("hawk.bak");
  SmallShip kite = Make("kite", "hawk.obj", {});
  MakePack("pack\n\\hawk.obj,kite,\n");
  ExpectSuccess("\n\nThe model hawk.obj was imported as hawk2.obj.");
  ImportAll("ships.pak");
  kite.file = "hawk2.obj";
  expected.Import(kite, {});
  Compare("the second import");
}

TEST_F(Importing, AnotherBitmapAmongTheAddOnsMakesTheShipFailAndTheOthersStay) {
  Make("hawk", "hawk.shp", {blue, red, {"grey", Pattern(16, 7)}});
  const SmallShip kite = Make("kite", "kite.shp", {blue});
  for (const char* name : {"RED.bmp", "grey.bmp"}) {
    WriteFileAt(installation.Program("addons/textures/" + std::string(name)), "another bitmap");
    expected.addOns["program/addons/textures/" + std::string(name)] = BytesOf("another bitmap");
  }
  MakePack("pack\n\\hawk.shp,hawk,\n\\kite.shp,kite,\n");
  const std::string folder = installation.programPath + "addons\\textures\\";
  ExpectErrors({"hawk"}, "\n\nThe ship 'hawk' needs another bitmap than this add-on, which was left as it is:\n" +
                             folder + "red.bmp" +
                             "\nThe ship 'hawk' needs another bitmap than this add-on, which was left as it is:\n" +
                             folder + "grey.bmp");
  ImportAll("ships.pak");
  expected.Import(kite, {blue});
  Compare("the import");
}

TEST_F(Importing, AnEqualBitmapAmongTheAddOnsServes) {
  const SmallShip hawk = Make("hawk", "hawk.shp", {red});
  WriteFileAt(installation.Program("addons/textures/red.bmp"), Bitmap(4, 4, 8, red.pixels));
  ExpectSuccess();
  ImportAll("hawk.shp");
  expected.Import(hawk, {red});
  Compare("the import");
}

TEST_F(Importing, OfTwoShipsOfARunWithDifferentBitmapsOfOneNameTheSecondFails) {
  const SmallShip hawk = Make("hawk", "hawk.shp", {red});
  const Bytes model = ShipModel("kite", {"red"});
  WriteFileAt(New("sub/kite.shp"), model);
  WriteFileAt(New("sub/red.bmp"), Bitmap(4, 4, 8, blue.pixels));
  MakePack("pack\n\\hawk.shp,hawk,\n\\sub\\kite.shp,kite,\n");
  ExpectErrors({"kite"}, "\n\nThe ship 'kite' needs another bitmap than this add-on, which was left as it is:\n" +
                             installation.programPath + "addons\\textures\\red.bmp");
  ImportAll("ships.pak");
  expected.Import(hawk, {red});
  Compare("the import");
}

}  // namespace
}  // namespace oravin::test
