// The game folder's model tool, started at the end of an import. A script stands in for Wine.

#include "../import_stage.h"
#include "support/stand_in_program.h"

namespace oravin::test {
namespace {

struct ShipTool : Importing {
  ShipTool() { WriteFileAt(Tool(), "the tool"); }

  [[nodiscard]] std::filesystem::path Tool() const { return installation.Game("sltool.exe"); }

  StandInProgram program{"wine"};
};

TEST_F(ShipTool, IsGivenTheNamesOfTheImportedShipsEachAsOneWord) {
  Make("Hawk", "hawk.shp", {red});
  Make("Kite", "kite.shp", {blue});
  Make("Whale", "whale.shp", {});
  std::filesystem::remove(New("blue.bmp"));
  MakePack("pack\n\\hawk.shp,\"Big Hawk\",\n\\kite.shp,Kite,\n\\whale.shp,Whale,\n");
  session->desk.AnswerFile("");
  session->desk.ExpectBox("Texture not found - skipping ship!");
  ExpectErrors({"Kite"});
  ImportAll("ships.pak");
  ASSERT_TRUE(program.Ended());
  EXPECT_EQ(program.Words(), "[" + installation.gamePath + "sltool.exe]\n[Big Hawk]\n[Whale]\n");
}

TEST_F(ShipTool, IsNotStartedWhereThereIsNone) {
  Make("Hawk", "hawk.shp", {red});
  std::filesystem::remove(Tool());
  ExpectSuccess();
  ImportAll("hawk.shp");
  EXPECT_FALSE(program.Ended());
}

TEST_F(ShipTool, IsNotStartedWhenNoShipWasImported) {
  Make("Hawk", "hawk.shp", {red});
  std::filesystem::remove(New("red.bmp"));
  session->desk.AnswerFile("");
  session->desk.ExpectBox("Texture not found - skipping ship!");
  ExpectErrors({"hawk"});
  ImportAll("hawk.shp");
  EXPECT_FALSE(program.Ended());
}

}  // namespace
}  // namespace oravin::test
