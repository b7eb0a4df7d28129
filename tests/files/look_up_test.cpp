#include "files/look_up.h"

#include <gtest/gtest.h>

#include "support/environment.h"
#include "support/file_marks.h"
#include "support/temporary_folder.h"

namespace oravin {
namespace {

using test::TemporaryFolder;
using test::WriteFileAt;

TEST(FileExists, AnExistingFileInWhateverCase) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("Ships/Model.SHP"), "x");
  EXPECT_TRUE(FileExists(folder.Windows("ships/model.shp")));
  EXPECT_FALSE(FileExists(folder.Windows("ships/other.shp")));
}

TEST(FileExists, TrimsTheCallersVariable) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("a.txt"), "x");
  std::string path = "  " + folder.Windows("a.txt") + "   ";
  EXPECT_TRUE(FileExists(path));
  EXPECT_EQ(path, folder.Windows("a.txt"));
  std::string missing = " missing ";
  EXPECT_FALSE(FileExists(missing));
  EXPECT_EQ(missing, "missing");
}

TEST(FileExists, AnEmptyPathDoesNotExist) {
  EXPECT_FALSE(FileExists(std::string()));
  EXPECT_FALSE(FileExists("   "));
}

TEST(FileExists, APathThatEndsInABackslashAColonOrADotDoesNotExist) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("colon:"), "x");
  WriteFileAt(folder.Native("dot."), "x");
  test::MakeFolderAt(folder.Native("game"));
  EXPECT_FALSE(FileExists(folder.Windows("game/")));
  EXPECT_FALSE(FileExists(folder.Windows("colon:")));
  EXPECT_FALSE(FileExists(folder.Windows("dot.")));
  EXPECT_FALSE(FileExists("C:"));
  EXPECT_FALSE(FileExists("C:\\game\\"));
}

TEST(FileExists, APathWithACharacterAbove127DoesNotExist) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("J\xC3\xA4ger.shp"), "x");
  ASSERT_TRUE(std::filesystem::exists(folder.Native("J\xC3\xA4ger.shp")));
  EXPECT_FALSE(FileExists(folder.Windows("J\xC3\xA4ger.shp")));
}

TEST(FileExists, CharacterCode127IsAccepted) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("a\x7F"), "x");
  EXPECT_TRUE(FileExists(folder.Windows("a\x7F")));
}

TEST(FileExists, AFolderIsNoFile) {
  const TemporaryFolder folder;
  test::MakeFolderAt(folder.Native("game"));
  EXPECT_FALSE(FileExists(folder.Windows("game")));
}

TEST(FileExists, HiddenAndSystemFilesDoNotCount) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("hidden.shp"), "x");
  WriteFileAt(folder.Native("system.shp"), "x");
  if (!test::SetDosAttributes(folder.Native("hidden.shp"), test::hiddenMark)) {
    GTEST_SKIP() << "the file system of the temporary folder keeps no extended attributes";
  }
  test::SetDosAttributes(folder.Native("system.shp"), test::systemMark);
  EXPECT_FALSE(FileExists(folder.Windows("hidden.shp")));
  EXPECT_FALSE(FileExists(folder.Windows("system.shp")));
  EXPECT_FALSE(FileExists(folder.Windows("*.shp")));
  WriteFileAt(folder.Native("plain.shp"), "x");
  EXPECT_TRUE(FileExists(folder.Windows("*.shp")));
}

TEST(FileExists, APathWithWildcardsExistsWhenAnythingMatches) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("Model1.SHP"), "x");
  test::MakeFolderAt(folder.Native("folder.bmp"));
  EXPECT_TRUE(FileExists(folder.Windows("*.shp")));
  EXPECT_TRUE(FileExists(folder.Windows("model?.shp")));
  EXPECT_TRUE(FileExists(folder.Windows("*")));
  EXPECT_FALSE(FileExists(folder.Windows("model??.shp")));
  EXPECT_FALSE(FileExists(folder.Windows("*.bmp")));
  EXPECT_FALSE(FileExists(folder.Windows("missing/*")));
}

TEST(FileExists, OnAnUnknownDriveNothingExists) {
  const TemporaryFolder folder;
  const test::Environment prefix("WINEPREFIX", folder.native.string());
  EXPECT_FALSE(FileExists("Q:\\file.txt"));
  EXPECT_FALSE(FileExists("Q:\\*"));
}

TEST(FolderExists, WithAndWithoutTheBackslashAtItsEnd) {
  const TemporaryFolder folder;
  test::MakeFolderAt(folder.Native("Game"));
  std::string path = " " + folder.Windows("game") + " ";
  EXPECT_TRUE(FolderExists(path));
  EXPECT_EQ(path, folder.Windows("game"));
  EXPECT_TRUE(FolderExists(folder.Windows("GAME/")));
  EXPECT_FALSE(FolderExists(folder.Windows("other")));
}

TEST(FolderExists, NeitherAFileNorAnEmptyNorAnUnprintablePath) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("file"), "x");
  test::MakeFolderAt(folder.Native("\xC3\x84"));
  EXPECT_FALSE(FolderExists(folder.Windows("file")));
  EXPECT_FALSE(FolderExists(folder.Windows("file/")));
  EXPECT_FALSE(FolderExists(""));
  EXPECT_FALSE(FolderExists("  "));
  EXPECT_FALSE(FolderExists(folder.Windows("\xC3\x84")));
}

}  // namespace
}  // namespace oravin
