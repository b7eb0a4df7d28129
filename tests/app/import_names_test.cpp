// Importing ships whose models name textures as no cache can store them.

#include "import_stage.h"

namespace oravin::test {
namespace {

TEST_F(Importing, AModelWithATextureNameThatCannotBeStoredFailsAndTheOthersStay) {
  const SmallShip hawk = Make("hawk", "hawk.shp", {red});
  WriteFileAt(New("kite.shp"), ShipModel("kite", {"blue",
                                                  "b\x07"
                                                  "d"}));
  WriteFileAt(New("blue.bmp"), Bitmap(4, 4, 8, blue.pixels));
  const SmallShip swift = Make("swift", "swift.shp", {{"grey", Pattern(16, 7)}});
  MakePack("pack\n\\hawk.shp,hawk,\n\\kite.shp,kite,\n\\swift.shp,swift,\n");
  session->desk.AnswerFile(NewPath("red.bmp"));
  session->desk.ExpectBox(CannotBeStored("b?d"));
  ExpectErrors({"kite"});
  ImportAll("ships.pak");
  expected.Import(hawk, {red});
  expected.Import(swift, {{"grey", Pattern(16, 7)}});
  Compare("the import");
}

}  // namespace
}  // namespace oravin::test
