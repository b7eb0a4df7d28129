// The converter's readme, opened in the person's own text editor. A script stands in for the desktop's opener.

#include "../stage.h"
#include "support/stand_in_program.h"

namespace oravin::test {
namespace {

struct ConvertReadme : testing::Test {
  ConvertReadme() {
    installation.ProgramPath = folder.Windows("my program\\");
    MakeFolderAt(folder.Native("my program"));
  }

  TemporaryFolder folder;
  StandInProgram program{"xdg-open"};
  Installation installation;
};

TEST_F(ConvertReadme, IsOpenedInTheTextEditor) {
  WriteFileAt(folder.Native("my program/3ds2sl.txt"), "the converter's readme");
  cmd3d2SLReadme_Click(installation);
  ASSERT_TRUE(program.Ended());
  EXPECT_EQ(program.Words(), "[" + folder.Native("my program/3ds2sl.txt").string() + "]\n");
}

TEST_F(ConvertReadme, IsAskedForWithoutALookWhetherItIsThere) {
  cmd3d2SLReadme_Click(installation);
  ASSERT_TRUE(program.Ended());
  EXPECT_FALSE(program.Words().empty());
}

}  // namespace
}  // namespace oravin::test
