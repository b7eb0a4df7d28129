// The paint program, started with an extracted texture. A script stands in for the desktop's own opener.

#include "support/cache_stage.h"
#include "support/stand_in_program.h"
#include "tabs/texture_tab.h"

namespace oravin::test {
namespace {

struct ThePaintProgram : CacheStage {
  ThePaintProgram() {
    installation.GamePath = folder.windows;
    installation.ProgramPath = folder.Windows("my program\\");
    WriteFileAt(folder.Native("my program/3D/cube.bmp"), Bitmap(4, 4, 8, Pattern(16)));
    Make(CacheWith({{"flat", 1, 8, 8, 1}, {"deep", 2, 8, 8, 1}}));
    tab.txtTcacheSource.text = Path();
    cmdOpenTcache_Click(at.host, tab);
  }
  [[nodiscard]] Bytes Temporary() const { return ReadFileAt(folder.Native("my program/temp.bmp")); }

  StandInProgram program{"xdg-open"};
  Installation installation;
  TcacheTab tab = NewTcacheTab();
};

TEST_F(ThePaintProgram, IsStartedWithTheSelectedTexture) {
  SelectOnly(tab.lstTcache, 426);
  lstTcache_DblClick(at.host, tab, installation);
  ASSERT_TRUE(program.Ended());
  EXPECT_EQ(program.Words(), "[" + folder.Native("my program/temp.bmp").string() + "]\n");
  EXPECT_EQ(Temporary().size(), 1078U + 64);
}

TEST_F(ThePaintProgram, IsStartedByTheEnterKeyAndNoOther) {
  SelectOnly(tab.lstTcache, 427);
  lstTcache_KeyDown(at.host, tab, installation, 32);
  EXPECT_FALSE(std::filesystem::exists(folder.Native("my program/temp.bmp")));
  lstTcache_KeyDown(at.host, tab, installation, 13);
  ASSERT_TRUE(program.Ended());
  EXPECT_EQ(Temporary().size(), 54U + 192);
}

TEST_F(ThePaintProgram, IsNotStartedWithoutASelectedTexture) {
  lstTcache_DblClick(at.host, tab, installation);
  cmdCloseTcache_Click(tab);
  lstTcache_DblClick(at.host, tab, installation);
  EXPECT_FALSE(program.Ended());
}

TEST_F(ThePaintProgram, IsNotStartedWithoutTheCacheOrTheProgramFolder) {
  SelectOnly(tab.lstTcache, 426);
  installation.ProgramPath = folder.Windows("none\\");
  at.desk.ExpectBox("Destination path not found", programTitle);
  lstTcache_DblClick(at.host, tab, installation);
  std::filesystem::remove(folder.Native("tcachehw.dat"));
  at.desk.ExpectBox("TCACHE path not found", programTitle);
  lstTcache_DblClick(at.host, tab, installation);
  EXPECT_FALSE(program.Ended());
}

TEST_F(ThePaintProgram, ThatCannotBeStartedIsTold) {
  const Environment nowhere("PATH", folder.Native("nowhere").string());
  SelectOnly(tab.lstTcache, 426);
  at.desk.ExpectBox("The bitmap could not be opened. It is this file:\n" + folder.Windows("my program\\temp.bmp"),
                    programTitle);
  lstTcache_DblClick(at.host, tab, installation);
}

}  // namespace
}  // namespace oravin::test
