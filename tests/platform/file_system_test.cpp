#include "platform/file_system.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "support/environment.h"
#include "support/file_marks.h"
#include "support/held_file.h"
#include "support/temporary_folder.h"

namespace oravin::platform {
namespace {

using test::TemporaryFolder;
using test::WriteFileAt;

TEST(OpenNative, TellsInPlainWordsWhyAFileCannotBeOpened) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("file"), "x");
  const test::Environment prefix("WINEPREFIX", folder.native.string());
  NativeFile file = 0;
  EXPECT_EQ(OpenNative(folder.Windows("missing"), OpenFor::reading, file), "it does not exist");
  EXPECT_EQ(file, noFile);
  EXPECT_EQ(OpenNative(folder.Windows("missing/file"), OpenFor::creating, file), "it does not exist");
  EXPECT_EQ(OpenNative(folder.windows, OpenFor::reading, file), "it is a folder");
  EXPECT_EQ(OpenNative(folder.Windows("file/below"), OpenFor::reading, file), "a part of the path is no folder");
  EXPECT_EQ(OpenNative("Q:\\file", OpenFor::reading, file), "there is no such drive");
}

TEST(OpenNative, TheReadOnlyMarkIsRespected) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("file"), "x");
  test::SetReadOnly(folder.Native("file"), true);
  NativeFile file = noFile;
  for (const OpenFor purpose : {OpenFor::changing, OpenFor::creating, OpenFor::replacing}) {
    EXPECT_EQ(OpenNative(folder.Windows("file"), purpose, file), "it is read-only");
    EXPECT_EQ(file, noFile);
  }
  EXPECT_EQ(test::ReadTextAt(folder.Native("file")), "x");
  EXPECT_EQ(OpenNative(folder.Windows("file"), OpenFor::reading, file), "");
  EXPECT_EQ(CloseNative(file), "");
}

TEST(OpenNative, CreatingKeepsAndReplacingEmptiesAnExistingFile) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("Kept"), "abc");
  WriteFileAt(folder.Native("Emptied"), "abc");
  NativeFile file = noFile;
  ASSERT_EQ(OpenNative(folder.Windows("kept"), OpenFor::creating, file), "");
  CloseNative(file);
  ASSERT_EQ(OpenNative(folder.Windows("EMPTIED"), OpenFor::replacing, file), "");
  CloseNative(file);
  ASSERT_EQ(OpenNative(folder.Windows("New"), OpenFor::creating, file), "");
  CloseNative(file);
  EXPECT_EQ(test::ImageOf(folder.native), (test::FolderImage{{"Kept", {'a', 'b', 'c'}}, {"Emptied", {}}, {"New", {}}}));
}

TEST(ReadNative, TellsHowManyBytesThereWereBeforeTheEnd) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("file"), "abcdef");
  NativeFile file = noFile;
  ASSERT_EQ(OpenNative(folder.Windows("file"), OpenFor::reading, file), "");
  std::array<std::uint8_t, 4> bytes{};
  std::size_t count = 99;
  EXPECT_EQ(ReadNative(file, 4, bytes, count), "");
  EXPECT_EQ(count, 2U);
  EXPECT_EQ(bytes[0], 'e');
  EXPECT_EQ(ReadNative(file, 6, bytes, count), "");
  EXPECT_EQ(count, 0U);
  CloseNative(file);
}

TEST(WriteNative, FillsTheGapBehindTheEndWithZeros) {
  const TemporaryFolder folder;
  NativeFile file = noFile;
  ASSERT_EQ(OpenNative(folder.Windows("file"), OpenFor::creating, file), "");
  const std::array<std::uint8_t, 1> byte{7};
  EXPECT_EQ(WriteNative(file, 3, byte), "");
  std::uint64_t length = 0;
  EXPECT_EQ(LengthNative(file, length), "");
  EXPECT_EQ(length, 4U);
  EXPECT_EQ(FlushNative(file), "");
  CloseNative(file);
  EXPECT_EQ(test::ReadFileAt(folder.Native("file")), (Bytes{0, 0, 0, 7}));
}

TEST(WriteNative, AFileOpenedForReadingRefuses) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("file"), "x");
  NativeFile file = noFile;
  ASSERT_EQ(OpenNative(folder.Windows("file"), OpenFor::reading, file), "");
  const std::array<std::uint8_t, 1> byte{7};
  EXPECT_NE(WriteNative(file, 0, byte), "");
  CloseNative(file);
  EXPECT_EQ(test::ReadTextAt(folder.Native("file")), "x");
}

TEST(FlushMany, FlushesFilesAndNamesTheReasonForAMissingOne) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("a"), "x");
  WriteFileAt(folder.Native("b"), "x");
  EXPECT_EQ(FlushMany({folder.Windows("a"), folder.Windows("b")}), "");
  EXPECT_EQ(FlushMany({folder.Windows("a"), folder.Windows("missing")}), "it does not exist");
  EXPECT_EQ(FlushMany({}), "");
}

TEST(RenameNative, ReplacesAFileOfTheNewName) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("from"), "new");
  WriteFileAt(folder.Native("To"), "old");
  EXPECT_EQ(RenameNative(folder.Windows("FROM"), folder.Windows("TO")), "");
  EXPECT_EQ(test::ImageOf(folder.native), (test::FolderImage{{"To", {'n', 'e', 'w'}}}));
  EXPECT_EQ(RenameNative(folder.Windows("from"), folder.Windows("to")), "it does not exist");
}

TEST(EraseNative, ErasesInWhateverCaseAndTellsOfAMissingFile) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("File"), "x");
  EXPECT_EQ(EraseNative(folder.Windows("fILE")), "");
  EXPECT_TRUE(test::ImageOf(folder.native).empty());
  EXPECT_EQ(EraseNative(folder.Windows("file")), "it does not exist");
}

TEST(MakeFolderNative, AFolderThatIsThereIsNoFailureButAFileIs) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("file"), "x");
  EXPECT_EQ(MakeFolderNative(folder.Windows("new/")), "");
  EXPECT_EQ(MakeFolderNative(folder.Windows("NEW")), "");
  EXPECT_NE(MakeFolderNative(folder.Windows("file")), "");
  EXPECT_EQ(MakeFolderNative(folder.Windows("a/b")), "it does not exist");
  EXPECT_EQ(test::ImageOf(folder.native), (test::FolderImage{{"file", {'x'}}, {"new/", {}}}));
}

TEST(LookAt, TellsKindAndLength) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("Ships/Model.shp"), "abc");
  const LookUp file = LookAt(folder.Windows("ships/MODEL.SHP"));
  EXPECT_EQ(file.presence, Presence::visible);
  EXPECT_FALSE(file.facts.folder);
  EXPECT_EQ(file.facts.length, 3U);
  const LookUp ships = LookAt(folder.Windows("SHIPS"));
  EXPECT_EQ(ships.presence, Presence::visible);
  EXPECT_TRUE(ships.facts.folder);
  EXPECT_EQ(ships.facts.length, 0U);
}

TEST(LookAt, WhatIsNotThereIsAbsent) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("file"), "abc");
  EXPECT_EQ(LookAt(folder.Windows("missing")).presence, Presence::absent);
  EXPECT_EQ(LookAt(folder.Windows("missing/file")).presence, Presence::absent);
  EXPECT_EQ(LookAt(folder.Windows("file/file")).presence, Presence::absent);
  EXPECT_EQ(LookAt(folder.Windows("file/")).presence, Presence::absent) << "a folder was asked for";
}

TEST(LookAt, TellsWhenAFileWasChanged) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("file"), "abc");
  const std::int64_t written = LookAt(folder.Windows("file")).facts.modified;
  constexpr std::int64_t second = 1000000000;
  constexpr std::int64_t startOf2020 = 1577836800 * second;
  EXPECT_GT(written, startOf2020);
  std::filesystem::last_write_time(folder.Native("file"),
                                   std::filesystem::last_write_time(folder.Native("file")) - std::chrono::hours(1));
  // Some libraries set whole seconds alone.
  EXPECT_EQ(LookAt(folder.Windows("file")).facts.modified / second, (written - 3600 * second) / second);
}

TEST(LookCloselyAt, TwoNamesOfOneFileHaveOneIdentity) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("file"), "abc");
  WriteFileAt(folder.Native("other"), "abc");
  EXPECT_EQ(LookCloselyAt(folder.Windows("file")).facts.links, 1U);
  std::error_code failed;
  std::filesystem::create_hard_link(folder.Native("file"), folder.Native("link"), failed);
  if (failed) GTEST_SKIP() << "the file system of the temporary folder knows no second names";
  const FileFacts file = LookCloselyAt(folder.Windows("file")).facts;
  EXPECT_EQ(file.links, 2U);
  EXPECT_EQ(file.identity, LookCloselyAt(folder.Windows("link")).facts.identity);
  EXPECT_FALSE(file.identity == LookCloselyAt(folder.Windows("other")).facts.identity);
  EXPECT_EQ(LookCloselyAt(folder.Windows("missing")).presence, Presence::absent);
}

TEST(SpellingOf, IsTheOneOnDisk) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("Ships/Model.shp"), "abc");
  EXPECT_EQ(SpellingOf(folder.Windows("ships/MODEL.SHP")), "Model.shp");
  EXPECT_EQ(SpellingOf(folder.Windows("SHIPS")), "Ships");
  EXPECT_EQ(SpellingOf(folder.Windows("SHIPS/")), "Ships");
  EXPECT_EQ(SpellingOf(folder.Windows("ships/Missing.SHP")), "Missing.SHP");
}

TEST(LookAt, TellsHiddenAndSystemFiles) {
  const TemporaryFolder folder;
  for (const char* name : {"plain", "hidden", "system", "both"}) WriteFileAt(folder.Native(name), "x");
  if (!test::SetDosAttributes(folder.Native("hidden"), test::hiddenMark)) {
    GTEST_SKIP() << "the file system of the temporary folder keeps no extended attributes";
  }
  test::SetDosAttributes(folder.Native("system"), test::systemMark);
  test::SetDosAttributes(folder.Native("both"), test::hiddenMark | test::systemMark);
  const auto marks = [&](const char* name) {
    const LookUp found = LookAt(folder.Windows(name));
    EXPECT_EQ(found.presence == Presence::hidden, found.facts.hidden || found.facts.system) << name;
    return std::pair(found.facts.hidden, found.facts.system);
  };
  EXPECT_EQ(marks("plain"), std::pair(false, false));
  EXPECT_EQ(marks("hidden"), std::pair(true, false));
  EXPECT_EQ(marks("system"), std::pair(false, true));
  EXPECT_EQ(marks("both"), std::pair(true, true));
}

TEST(ListNative, ListsFilesAndFoldersWithoutTheDots) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("B.txt"), "xy");
  test::MakeFolderAt(folder.Native("a"));
  Listing listing = ListNative(folder.windows);
  EXPECT_EQ(listing.presence, Presence::visible);
  std::vector<FileFacts>& items = listing.items;
  std::sort(items.begin(), items.end(), [](const auto& x, const auto& y) { return x.name < y.name; });
  ASSERT_EQ(items.size(), 2U);
  EXPECT_EQ(items[0].name, "B.txt");
  EXPECT_EQ(items[0].length, 2U);
  EXPECT_FALSE(items[0].folder);
  EXPECT_EQ(items[1].name, "a");
  EXPECT_TRUE(items[1].folder);
}

TEST(ListNative, AMissingFolderIsAbsent) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("file"), "x");
  EXPECT_EQ(ListNative(folder.Windows("missing/")).presence, Presence::absent);
  EXPECT_EQ(ListNative(folder.Windows("file")).presence, Presence::absent);
}

TEST(WhyNotWritable, NothingSpeaksAgainstAnOrdinaryFile) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("file"), "x");
  EXPECT_EQ(WhyNotWritable(folder.Windows("file")), "");
  EXPECT_EQ(test::ReadTextAt(folder.Native("file")), "x");
}

TEST(WhyNotWritable, AReadOnlyFileIsNotWritable) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("file"), "x");
  test::SetReadOnly(folder.Native("file"), true);
  EXPECT_EQ(WhyNotWritable(folder.Windows("file")), "it is read-only");
}

TEST(WhyNotWritable, AFileThatAnotherProgramHasOpenIsNotWritable) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("file"), "x");
  if (!test::KnowsHeldFiles(folder.native)) {
    GTEST_SKIP() << "the file system of the temporary folder does not tell who has a file open";
  }
  {
    const test::HeldFile held(folder.Native("file"));
    EXPECT_EQ(WhyNotWritable(folder.Windows("file")), "another program has it open");
  }
  EXPECT_EQ(WhyNotWritable(folder.Windows("file")), "");
}

TEST(WhyNotWritable, AMissingFileIsNotWritable) {
  const TemporaryFolder folder;
  EXPECT_EQ(WhyNotWritable(folder.Windows("file")), "it does not exist");
  EXPECT_TRUE(test::ImageOf(folder.native).empty());
}

TEST(FreeSpace, IsWhatTheFileSystemHasLeft) {
  const TemporaryFolder folder;
  const auto free = FreeSpace(folder.windows);
  ASSERT_TRUE(free);
  const auto space = std::filesystem::space(folder.native);
  EXPECT_GT(*free, 0U);
  EXPECT_LE(*free, space.capacity);
  EXPECT_FALSE(FreeSpace(folder.Windows("missing")));
}

}  // namespace
}  // namespace oravin::platform
