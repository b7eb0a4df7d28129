// The game folder's model tool, started at the end of an import. A script stands in for Wine.

#include <sys/wait.h>

#include <cerrno>

#include "../import_stage.h"
#include "support/environment.h"

namespace oravin::test {
namespace {

struct ShipTool : Importing {
  ShipTool() {
    const auto script = outside.Native("bin/wine");
    WriteFileAt(script, "#!/bin/sh\nfor word in \"$@\"; do printf '[%s]\\n' \"$word\"; done > '" +
                            outside.Native("called").string() + "'\n");
    permissions(script, std::filesystem::perms::owner_all);
    WriteFileAt(Tool(), "the tool");
  }

  [[nodiscard]] std::filesystem::path Tool() const { return installation.Game("sltool.exe"); }
  /// Lets the program that was started end; false when none was.
  static bool Ended() {
    pid_t ended = -1;
    do {
      ended = waitpid(-1, nullptr, 0);
    } while (ended < 0 && errno == EINTR);
    return ended > 0;
  }

  Environment path{"PATH", outside.Native("bin").string() + ":/usr/bin:/bin"};
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
  ASSERT_TRUE(Ended());
  EXPECT_EQ(ReadTextAt(outside.Native("called")), "[" + installation.gamePath + "sltool.exe]\n[Big Hawk]\n[Whale]\n");
}

TEST_F(ShipTool, IsNotStartedWhereThereIsNone) {
  Make("Hawk", "hawk.shp", {red});
  std::filesystem::remove(Tool());
  ExpectSuccess();
  ImportAll("hawk.shp");
  EXPECT_FALSE(Ended());
}

TEST_F(ShipTool, IsNotStartedWhenNoShipWasImported) {
  Make("Hawk", "hawk.shp", {red});
  std::filesystem::remove(New("red.bmp"));
  session->desk.AnswerFile("");
  session->desk.ExpectBox("Texture not found - skipping ship!");
  ExpectErrors({"hawk"});
  ImportAll("hawk.shp");
  EXPECT_FALSE(Ended());
}

}  // namespace
}  // namespace oravin::test
