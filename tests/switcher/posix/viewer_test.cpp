// The game folder's model viewer, started with the selected ship's model. A script stands in for Wine.

#include <sys/wait.h>

#include <cerrno>

#include "../stage.h"
#include "support/environment.h"

namespace oravin::test {
namespace {

struct Viewer : testing::Test {
  Viewer() {
    const auto script = folder.Native("bin/wine");
    WriteFileAt(script, "#!/bin/sh\nfor word in \"$@\"; do printf '[%s]\\n' \"$word\"; done > '" +
                            folder.Native("called").string() + "'\n");
    permissions(script, std::filesystem::perms::owner_all);
    installation.GamePath = folder.Windows("my game\\");
    WriteFileAt(folder.Native("my game/sltool.exe"), "the viewer");
    installation.ships.resize(2);
    installation.ships[0].ShipFile.Set("alpha.shp");
    installation.ships[1].ShipFile.Set("bravo.shp");
    AddRow(list, {"s1", {"Alpha"}, 0, false});
    AddRow(list, {"s2", {"Bravo"}, 0, true});
  }

  /// Lets the program that was started end; false when none was.
  static bool Ended() {
    pid_t ended = -1;
    do {
      ended = waitpid(-1, nullptr, 0);
    } while (ended < 0 && errno == EINTR);
    return ended > 0;
  }

  TemporaryFolder folder;
  Environment path{"PATH", folder.Native("bin").string() + ":/usr/bin:/bin"};
  Installation installation;
  ListView list;
};

TEST_F(Viewer, IsStartedWithTheModelOfTheSelectedShip) {
  ViewModel(list, installation);
  ASSERT_TRUE(Ended());
  EXPECT_EQ(ReadTextAt(folder.Native("called")),
            "[" + folder.Windows("my game\\sltool.exe") + "]\n[" + folder.Windows("my game\\ships\\bravo.shp") + "]\n");
}

TEST_F(Viewer, IsNotStartedWhereTheGameFolderHasNone) {
  std::filesystem::remove(folder.Native("my game/sltool.exe"));
  ViewModel(list, installation);
  EXPECT_FALSE(Ended());
}

TEST_F(Viewer, IsNotStartedWithoutASelectedShip) {
  SelectOnly(list, std::nullopt);
  ViewModel(list, installation);
  EXPECT_FALSE(Ended());
  ViewModel(ListView(), installation);
  EXPECT_FALSE(Ended());
}

TEST_F(Viewer, IsNotStartedForAShipThatTheCatalogueDoesNotHave) {
  list.rows[1].key = "s3";
  ViewModel(list, installation);
  list.rows[1].key = "s0";
  ViewModel(list, installation);
  list.rows[1].key = "what";
  ViewModel(list, installation);
  EXPECT_FALSE(Ended());
}

}  // namespace
}  // namespace oravin::test
