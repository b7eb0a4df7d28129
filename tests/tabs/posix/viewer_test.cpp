// The game folder's model viewer, started with the selected ship's model. A script stands in for Wine.

#include "support/stand_in_program.h"
#include "tabs/switcher_tab.h"

namespace oravin::test {
namespace {

struct Viewer : testing::Test {
  Viewer() {
    installation.GamePath = folder.Windows("my game\\");
    WriteFileAt(folder.Native("my game/sltool.exe"), "the viewer");
    installation.ships.resize(2);
    installation.ships[0].ShipFile.Set("alpha.shp");
    installation.ships[1].ShipFile.Set("bravo.shp");
    AddRow(list, {0, {"Alpha"}, 0, false});
    AddRow(list, {1, {"Bravo"}, 0, true});
  }

  TemporaryFolder folder;
  StandInProgram program{"wine"};
  Installation installation;
  Files files;
  ListView list;
};

TEST_F(Viewer, IsStartedWithTheModelOfTheSelectedShip) {
  ViewModel(files, list, installation);
  ASSERT_TRUE(program.Ended());
  EXPECT_EQ(program.Words(),
            "[" + folder.Windows("my game\\sltool.exe") + "]\n[" + folder.Windows("my game\\ships\\bravo.shp") + "]\n");
}

TEST_F(Viewer, IsNotStartedWhereTheGameFolderHasNone) {
  std::filesystem::remove(folder.Native("my game/sltool.exe"));
  ViewModel(files, list, installation);
  EXPECT_FALSE(program.Ended());
}

TEST_F(Viewer, IsNotStartedWithoutASelectedShip) {
  SelectOnly(list, std::nullopt);
  ViewModel(files, list, installation);
  EXPECT_FALSE(program.Ended());
  ViewModel(files, ListView(), installation);
  EXPECT_FALSE(program.Ended());
}

TEST_F(Viewer, IsNotStartedForAShipThatTheCatalogueDoesNotHave) {
  list.rows[1].item = 2;
  ViewModel(files, list, installation);
  list.rows[1].item = -1;
  ViewModel(files, list, installation);
  EXPECT_FALSE(program.Ended());
}

}  // namespace
}  // namespace oravin::test
