#include "platform/native_path.h"

#include <gtest/gtest.h>

#include "support/environment.h"
#include "support/temporary_folder.h"

namespace oravin::platform {
namespace {

using test::Environment;
using test::TemporaryFolder;
using test::WriteFileAt;

TEST(ToNativePath, DriveZIsTheRootFolder) {
  const Environment prefix("WINEPREFIX", "/nowhere");
  EXPECT_EQ(ToNativePath("Z:\\"), "/");
  EXPECT_EQ(ToNativePath("z:\\tmp\\"), "/tmp/");
  EXPECT_EQ(ToNativePath("Z:\\tmp"), "/tmp");
}

TEST(ToNativePath, FindsNamesWithoutRegardToCase) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("StarLancer/Ships/Tiger.SHP"), "x");
  EXPECT_EQ(ToNativePath(folder.Windows("STARLANCER/ships/tiger.shp")),
            folder.Native("StarLancer/Ships/Tiger.SHP").string());
  EXPECT_EQ(ToNativePath(folder.Windows("StarLancer/Ships/TIGER.shp")),
            folder.Native("StarLancer/Ships/Tiger.SHP").string());
  EXPECT_EQ(ToNativePath(folder.Windows("starlancer/SHIPS/")), folder.Native("StarLancer/Ships").string() + "/");
}

TEST(ToNativePath, AnExactMatchWinsOverOneInAnotherCase) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("MODEL.SHP"), "1");
  WriteFileAt(folder.Native("Model.shp"), "2");
  WriteFileAt(folder.Native("model.shp"), "3");
  EXPECT_EQ(ToNativePath(folder.Windows("Model.shp")), folder.Native("Model.shp").string());
  EXPECT_EQ(ToNativePath(folder.Windows("model.shp")), folder.Native("model.shp").string());
}

TEST(ToNativePath, AnExactMatchWinsInAFolderOfAnotherCaseToo) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("Game/MODEL.SHP"), "1");
  WriteFileAt(folder.Native("Game/model.shp"), "2");
  EXPECT_EQ(ToNativePath(folder.Windows("GAME/model.shp")), folder.Native("Game/model.shp").string());
}

TEST(ToNativePath, OfSeveralOtherCasesTheFirstInByteOrderIsTaken) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("model.shp"), "3");
  WriteFileAt(folder.Native("Model.shp"), "2");
  WriteFileAt(folder.Native("mODEL.shp"), "1");
  EXPECT_EQ(ToNativePath(folder.Windows("MODEL.SHP")), folder.Native("Model.shp").string());
}

TEST(ToNativePath, WhatDoesNotExistKeepsItsSpelling) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("Game/x"), "x");
  EXPECT_EQ(ToNativePath(folder.Windows("GAME/NewFolder/New.Txt")), folder.Native("Game/NewFolder/New.Txt").string());
}

TEST(ToNativePath, DriveLettersAreTheLinksOfTheWinePrefix) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("disk/Games/resource.hog"), "x");
  test::MakeFolderAt(folder.Native("prefix/dosdevices"));
  std::filesystem::create_directory_symlink(folder.Native("disk"), folder.Native("prefix/dosdevices/c:"));
  const Environment prefix("WINEPREFIX", folder.Native("prefix"));
  const std::string native = folder.Native("prefix/dosdevices/c:").string() + "/Games/resource.hog";
  EXPECT_EQ(ToNativePath("C:\\games\\RESOURCE.HOG"), native);
  EXPECT_EQ(ToNativePath("c:\\Games\\resource.hog"), native);
}

TEST(ToNativePath, WithoutWineprefixThePrefixOfTheHomeFolderServes) {
  const TemporaryFolder folder;
  test::MakeFolderAt(folder.Native(".wine/dosdevices"));
  test::MakeFolderAt(folder.Native("disk"));
  std::filesystem::create_directory_symlink(folder.Native("disk"), folder.Native(".wine/dosdevices/d:"));
  const Environment prefix("WINEPREFIX", std::nullopt);
  const Environment home("HOME", folder.native);
  EXPECT_EQ(ToNativePath("D:\\"), folder.Native(".wine/dosdevices/d:").string() + "/");
}

TEST(ToNativePath, AnUnknownDriveLeadsNowhere) {
  const TemporaryFolder folder;
  const Environment prefix("WINEPREFIX", folder.native);
  EXPECT_EQ(ToNativePath("Q:\\game\\"), "");
  EXPECT_EQ(ToNativePath("Q:"), "");
}

TEST(ToNativePath, DoubledBackslashesCountAsOne) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("Game/x"), "x");
  EXPECT_EQ(ToNativePath(folder.windows + "\\GAME\\\\X"), folder.Native("Game/x").string());
}

TEST(ToNativePath, ANameWithABackslashOfItsOwnIsNotReached) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("a\\b"), "x");
  EXPECT_EQ(ToNativePath(folder.windows + "a\\b"), folder.Native("a/b").string());
}

TEST(ToWindowsPath, AnAbsolutePathLiesBelowDriveZ) {
  EXPECT_EQ(ToWindowsPath("/"), "Z:\\");
  EXPECT_EQ(ToWindowsPath("/opt/game"), "Z:\\opt\\game");
  EXPECT_EQ(ToWindowsPath("/opt/game/"), "Z:\\opt\\game\\");
}

TEST(ToWindowsPath, DotsAndDoubledSlashesAreTakenOut) {
  EXPECT_EQ(ToWindowsPath("/opt//game/./ships/../x"), "Z:\\opt\\game\\x");
}

TEST(ToWindowsPath, ARelativePathIsTakenFromTheCurrentFolder) {
  const std::string here = ToWindowsPath(std::filesystem::current_path().string());
  EXPECT_EQ(ToWindowsPath("game/x"), (here == "Z:\\" ? here : here + "\\") + "game\\x");
}

TEST(ToWindowsPath, AWindowsPathStaysAsItIs) {
  EXPECT_EQ(ToWindowsPath("C:\\Game\\"), "C:\\Game\\");
  EXPECT_EQ(ToWindowsPath("c:"), "c:");
  EXPECT_EQ(ToWindowsPath("ships\\a.shp"), "ships\\a.shp");
  EXPECT_EQ(ToWindowsPath(""), "");
}

TEST(ToWindowsPath, LeadsBackToTheSameFile) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("Some Folder/a b.txt"), "x");
  const std::string native = folder.Native("Some Folder/a b.txt").string();
  EXPECT_EQ(ToNativePath(ToWindowsPath(native)), native);
}

}  // namespace
}  // namespace oravin::platform
