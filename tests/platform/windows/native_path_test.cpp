#include "platform/native_path.h"

#include <gtest/gtest.h>

#include "platform/file_system.h"
#include "support/temporary_folder.h"

namespace oravin::platform {
namespace {

using test::TemporaryFolder;
using test::WriteFileAt;

TEST(ToNativePath, FindsNamesWithoutRegardToCase) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("StarLancer/Ships/Tiger.SHP"), "x");
  EXPECT_EQ(ToNativePath(folder.Windows("STARLANCER/ships/tiger.shp")),
            ToNativePath(folder.windows) + "StarLancer\\Ships\\Tiger.SHP");
  EXPECT_EQ(ToNativePath(folder.Windows("starlancer/SHIPS/")), ToNativePath(folder.windows) + "StarLancer\\Ships\\");
}

TEST(ToNativePath, WhatDoesNotExistKeepsItsSpelling) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("Game/x"), "x");
  EXPECT_EQ(ToNativePath(folder.Windows("GAME/NewFolder/New.Txt")),
            ToNativePath(folder.windows) + "Game\\NewFolder\\New.Txt");
}

TEST(ToNativePath, AnUnknownDriveLeadsNowhere) {
  EXPECT_EQ(ToNativePath("Q:\\game\\"), "");
  EXPECT_EQ(ToNativePath("Q:"), "");
}

TEST(ToNativePath, DoubledBackslashesCountAsOne) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("Game/x"), "x");
  EXPECT_EQ(ToNativePath(folder.windows + "\\GAME\\\\X"), ToNativePath(folder.windows) + "Game\\x");
}

TEST(ToWindowsPath, SlashesBecomeBackslashes) {
  EXPECT_EQ(ToWindowsPath("C:/Games/Star Lancer/"), "C:\\Games\\Star Lancer\\");
  EXPECT_EQ(ToWindowsPath("//machine/share/x"), "\\\\machine\\share\\x");
}

TEST(ToWindowsPath, APathWithADriveStaysAsItIs) {
  EXPECT_EQ(ToWindowsPath("C:\\Game\\"), "C:\\Game\\");
  EXPECT_EQ(ToWindowsPath("c:"), "c:");
  EXPECT_EQ(ToWindowsPath(""), "");
}

TEST(ToWindowsPath, ARelativePathIsTakenFromTheCurrentFolder) {
  const std::string here = std::filesystem::current_path().string();
  const std::string folder = here.back() == '\\' ? here : here + "\\";
  EXPECT_EQ(ToWindowsPath("ships\\a.shp"), folder + "ships\\a.shp");
  EXPECT_EQ(ToWindowsPath("game/x"), folder + "game\\x");
  EXPECT_EQ(ToWindowsPath("\\game\\x"), here.substr(0, 2) + "\\game\\x");
}

TEST(ToWindowsPath, ALetterOfTheGamesCodePageIsOneByteAndAnyOtherUtf8) {
  EXPECT_EQ(ToWindowsPath("C:\\caf\xC3\xA9\\x"), "C:\\caf\xE9\\x");
  EXPECT_EQ(ToWindowsPath("C:\\caf\xE9\\x"), "C:\\caf\xE9\\x");
  EXPECT_EQ(ToWindowsPath("C:\\\xD0\x98\xD0\xB3\xD1\x80\xD1\x8B\\x"), "C:\\\xD0\x98\xD0\xB3\xD1\x80\xD1\x8B\\x");
}

TEST(ToNativePath, IsUtf8) {
  EXPECT_EQ(ToNativePath("C:\\caf\xE9"), "C:\\caf\xC3\xA9");
  EXPECT_EQ(ToNativePath("C:\\\xD0\x98"), "C:\\\xD0\x98");
}

/// Letters that the two ways of writing could mistake for one another still lead to their own files.
TEST(ToNativePath, NamesOfAllKindsLeadBackToThemselves) {
  const TemporaryFolder folder;
  const std::vector<std::filesystem::path> names = {u8"caf\u00E9", u8"\u0418\u0433\u0440\u044B", u8"\u00C3\u00A9",
                                                    u8"\u6E38\u620F", u8"\u2019"};
  for (const auto& name : names) WriteFileAt(folder.native / name, "x");
  const Listing listing = ListNative(folder.windows);
  EXPECT_EQ(listing.items.size(), names.size());
  for (const FileFacts& item : listing.items) {
    NativeFile file = noFile;
    EXPECT_EQ(OpenNative(folder.windows + item.name, OpenFor::reading, file), "") << item.name;
    CloseNative(file);
    EXPECT_EQ(LookAt(folder.windows + item.name).presence, Presence::visible);
    EXPECT_EQ(SpellingOf(folder.windows + item.name), item.name);
  }
}

}  // namespace
}  // namespace oravin::platform
