// The program folder of a program that came as a package.

#include "installation/program_folder.h"

#include "support/file_marks.h"
#include "support/folder_image.h"
#include "support/temporary_folder.h"

namespace oravin::test {
namespace {

struct ProgramFolder : testing::Test {
  ProgramFolder() {
    WriteFileAt(folder.Native("data/readme.txt"), "the manual");
    WriteFileAt(folder.Native("data/3D/cube.bmp"), "a template");
  }
  void LayOut() { LayOutProgramFolder(files, folder.Windows("data\\"), folder.Windows("home\\program\\")); }
  [[nodiscard]] std::filesystem::path In(const std::string& name) const {
    return folder.Native("home/program/" + name);
  }

  TemporaryFolder folder;
  Files files;
};

TEST_F(ProgramFolder, IsMadeWithThePackagesFilesAndTheFoldersOfTheAddOns) {
  LayOut();
  EXPECT_TRUE(SameImage({{"3D/", {}},
                         {"3D/cube.bmp", BytesOf("a template")},
                         {"addons/", {}},
                         {"addons/ships/", {}},
                         {"addons/stats/", {}},
                         {"addons/textures/", {}},
                         {"readme.txt", BytesOf("the manual")}},
                        ImageOf(In(""))));
}

TEST_F(ProgramFolder, OnlyTheManualIsRenewed) {
  WriteFileAt(In("readme.txt"), "an older manual");
  WriteFileAt(In("3D/cube.bmp"), "the player's own");
  LayOut();
  EXPECT_EQ(ReadTextAt(In("readme.txt")), "the manual");
  EXPECT_EQ(ReadTextAt(In("3D/cube.bmp")), "the player's own");
}

TEST_F(ProgramFolder, AHiddenFileOfThePlayersStays) {
  WriteFileAt(In("3D/cube.bmp"), "the player's own");
  if (!SetDosAttributes(In("3D/cube.bmp"), hiddenMark)) GTEST_SKIP() << "no hidden files here";
  LayOut();
  EXPECT_EQ(ReadTextAt(In("3D/cube.bmp")), "the player's own");
}

}  // namespace
}  // namespace oravin::test
