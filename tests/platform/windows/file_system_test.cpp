// What only Windows' file systems do.

#include "platform/file_system.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <cstdlib>

#include "support/file_marks.h"
#include "support/held_file.h"
#include "support/temporary_folder.h"

namespace oravin::platform {
namespace {

using test::TemporaryFolder;
using test::WriteFileAt;

TEST(WhyNoNewFiles, TellsOfMissingAndWrongFolders) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("file"), "x");
  EXPECT_EQ(WhyNoNewFiles(folder.windows), "");
  EXPECT_EQ(WhyNoNewFiles(folder.Windows("missing")), "it does not exist");
  EXPECT_EQ(WhyNoNewFiles(folder.Windows("file")), "a part of the path is no folder");
}

TEST(WhyNoNewFiles, TellsOfAFolderWithoutRights) {
  const char* locked = std::getenv("ORAVIN_LOCKED_FOLDER");
  if (locked == nullptr) GTEST_SKIP() << "nobody names a folder without rights";
  EXPECT_EQ(WhyNoNewFiles(locked), "you have no permission");
  NativeFile file = noFile;
  EXPECT_EQ(OpenNative(locked + std::string("new"), OpenFor::creating, file), "you have no permission");
  EXPECT_EQ(MakeFolderNative(locked + std::string("new")), "you have no permission");
}

TEST(WhyNoNewFiles, LeavesNothingBehindAndAsksLittleOfAReadOnlyMark) {
  const TemporaryFolder folder;
  SetFileAttributesW(folder.native.c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(WhyNoNewFiles(folder.windows), "");
  SetFileAttributesW(folder.native.c_str(), FILE_ATTRIBUTE_NORMAL);
  EXPECT_TRUE(test::ImageOf(folder.native).empty());
}

TEST(OpenNative, AFileThatAnotherProgramKeepsToItselfIsToldOf) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("file"), "x");
  const test::HeldFile held(folder.Native("file"));
  NativeFile file = noFile;
  EXPECT_EQ(OpenNative(folder.Windows("file"), OpenFor::changing, file), "another program has it open");
  EXPECT_EQ(OpenNative(folder.Windows("file"), OpenFor::reading, file), "");
  CloseNative(file);
}

TEST(RenameNative, AHeldFileIsNeitherReplacedNorLost) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("from"), "new");
  WriteFileAt(folder.Native("to"), "old");
  {
    const test::HeldFile held(folder.Native("to"));
    EXPECT_EQ(RenameNative(folder.Windows("from"), folder.Windows("to")), "another program has it open");
    EXPECT_EQ(EraseNative(folder.Windows("to")), "another program has it open");
  }
  EXPECT_EQ(test::ImageOf(folder.native), (test::FolderImage{{"from", {'n', 'e', 'w'}}, {"to", {'o', 'l', 'd'}}}));
  EXPECT_EQ(RenameNative(folder.Windows("from"), folder.Windows("to")), "");
  EXPECT_EQ(test::ImageOf(folder.native), (test::FolderImage{{"to", {'n', 'e', 'w'}}}));
}

TEST(OpenNative, AHiddenFileIsReplacedAndKeepsItsMark) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("file"), "abc");
  if (!test::SetDosAttributes(folder.Native("file"), test::hiddenMark)) {
    GTEST_SKIP() << "the file system of the temporary folder keeps no marks";
  }
  NativeFile file = noFile;
  EXPECT_EQ(OpenNative(folder.Windows("file"), OpenFor::replacing, file), "");
  CloseNative(file);
  EXPECT_EQ(test::ReadTextAt(folder.Native("file")), "");
  EXPECT_TRUE(LookAt(folder.Windows("file")).facts.hidden);
}

TEST(OpenNative, DevicesPartsOfFilesAndWildcardsAreNoFiles) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("file"), "abc");
  NativeFile file = noFile;
  for (const char* name : {"NUL", "con", "file:part", "fil*", "f?le"}) {
    EXPECT_EQ(OpenNative(folder.Windows(name), OpenFor::creating, file), "no file can have this name") << name;
    EXPECT_EQ(file, noFile);
  }
  EXPECT_EQ(LookAt(folder.Windows("fil*")).presence, Presence::absent);
  EXPECT_EQ(test::ImageOf(folder.native).size(), 1U);
}

TEST(OpenNative, APathMayBeLongerThanTheSystemTakesPlain) {
  const TemporaryFolder folder;
  std::string path = folder.windows;
  for (int i = 0; i < 8; ++i) {
    path += std::string(60, static_cast<char>('a' + i));
    ASSERT_EQ(MakeFolderNative(path), "");
    path += '\\';
  }
  ASSERT_GT(path.size(), 500U);
  NativeFile file = noFile;
  ASSERT_EQ(OpenNative(path + "New", OpenFor::replacing, file), "");
  const std::vector<std::uint8_t> bytes = {1, 2, 3};
  EXPECT_EQ(WriteNative(file, 0, bytes), "");
  CloseNative(file);
  EXPECT_EQ(RenameNative(path + "new", path + "Kept"), "");
  const LookUp found = LookAt(path + "KEPT");
  EXPECT_EQ(found.presence, Presence::visible);
  EXPECT_EQ(SpellingOf(path + "KEPT"), "Kept");
  EXPECT_EQ(found.facts.length, 3U);
  EXPECT_EQ(ListNative(path).items.size(), 1U);
  EXPECT_EQ(EraseNative(path + "kept"), "");
}

TEST(LookAt, TheLengthOfAnOpenFileIsTheTrueOne) {
  const TemporaryFolder folder;
  NativeFile file = noFile;
  ASSERT_EQ(OpenNative(folder.Windows("file"), OpenFor::creating, file), "");
  const std::vector<std::uint8_t> bytes(5000, 1);
  EXPECT_EQ(WriteNative(file, 0, bytes), "");
  EXPECT_EQ(LookAt(folder.Windows("file")).facts.length, 5000U);
  CloseNative(file);
}

}  // namespace
}  // namespace oravin::platform
