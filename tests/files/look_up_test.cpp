#include "files/look_up.h"

#include <gtest/gtest.h>

#include "base/file_error.h"
#include "support/environment.h"
#include "support/fault.h"
#include "support/file_marks.h"
#include "support/temporary_folder.h"

namespace oravin {
namespace {

using test::TemporaryFolder;
using test::WriteFileAt;

TEST(FileExists, AnExistingFileInWhateverCase) {
  Files files;
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("Ships/Model.SHP"), "x");
  EXPECT_TRUE(FileExists(files, folder.Windows("ships/model.shp")));
  EXPECT_FALSE(FileExists(files, folder.Windows("ships/other.shp")));
}

TEST(FileExists, SpacesAtTheEndsDoNotCount) {
  Files files;
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("a.txt"), "x");
  EXPECT_TRUE(FileExists(files, "  " + folder.Windows("a.txt") + "   "));
  EXPECT_FALSE(FileExists(files, " missing "));
}

TEST(FileExists, AnEmptyPathDoesNotExist) {
  Files files;
  EXPECT_FALSE(FileExists(files, std::string()));
  EXPECT_FALSE(FileExists(files, "   "));
}

TEST(FileExists, APathThatEndsInABackslashAColonOrADotDoesNotExist) {
  Files files;
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("colon:"), "x");
  WriteFileAt(folder.Native("dot."), "x");
  test::MakeFolderAt(folder.Native("game"));
  EXPECT_FALSE(FileExists(files, folder.Windows("game/")));
  EXPECT_FALSE(FileExists(files, folder.Windows("colon:")));
  EXPECT_FALSE(FileExists(files, folder.Windows("dot.")));
  EXPECT_FALSE(FileExists(files, "C:"));
  EXPECT_FALSE(FileExists(files, "C:\\game\\"));
}

TEST(FileExists, APathWithACharacterAbove127DoesNotExist) {
  Files files;
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("J\xC3\xA4ger.shp"), "x");
  ASSERT_TRUE(std::filesystem::exists(folder.Native("J\xC3\xA4ger.shp")));
  EXPECT_FALSE(FileExists(files, folder.Windows("J\xC3\xA4ger.shp")));
}

TEST(FileExists, CharacterCode127IsAccepted) {
  Files files;
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("a\x7F"), "x");
  EXPECT_TRUE(FileExists(files, folder.Windows("a\x7F")));
}

TEST(FileExists, AFolderIsNoFile) {
  Files files;
  const TemporaryFolder folder;
  test::MakeFolderAt(folder.Native("game"));
  EXPECT_FALSE(FileExists(files, folder.Windows("game")));
}

TEST(FileExists, HiddenAndSystemFilesDoNotCount) {
  Files files;
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("hidden.shp"), "x");
  WriteFileAt(folder.Native("system.shp"), "x");
  if (!test::SetDosAttributes(folder.Native("hidden.shp"), test::hiddenMark)) {
    GTEST_SKIP() << "the file system of the temporary folder keeps no extended attributes";
  }
  test::SetDosAttributes(folder.Native("system.shp"), test::systemMark);
  EXPECT_FALSE(FileExists(files, folder.Windows("hidden.shp")));
  EXPECT_FALSE(FileExists(files, folder.Windows("system.shp")));
  EXPECT_FALSE(FileExists(files, folder.Windows("*.shp")));
  WriteFileAt(folder.Native("plain.shp"), "x");
  EXPECT_TRUE(FileExists(files, folder.Windows("*.shp")));
}

TEST(FileExists, APathWithWildcardsExistsWhenAnythingMatches) {
  Files files;
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("Model1.SHP"), "x");
  test::MakeFolderAt(folder.Native("folder.bmp"));
  EXPECT_TRUE(FileExists(files, folder.Windows("*.shp")));
  EXPECT_TRUE(FileExists(files, folder.Windows("model?.shp")));
  EXPECT_TRUE(FileExists(files, folder.Windows("*")));
  EXPECT_FALSE(FileExists(files, folder.Windows("model??.shp")));
  EXPECT_FALSE(FileExists(files, folder.Windows("*.bmp")));
  EXPECT_FALSE(FileExists(files, folder.Windows("missing/*")));
}

TEST(FileExists, OnAnUnknownDriveNothingExists) {
  Files files;
  const TemporaryFolder folder;
  const test::Environment prefix("WINEPREFIX", folder.native.string());
  EXPECT_FALSE(FileExists(files, "Q:\\file.txt"));
  EXPECT_FALSE(FileExists(files, "Q:\\*"));
}

TEST(FolderExists, WithAndWithoutTheBackslashAtItsEnd) {
  Files files;
  const TemporaryFolder folder;
  test::MakeFolderAt(folder.Native("Game"));
  EXPECT_TRUE(FolderExists(files, " " + folder.Windows("game") + " "));
  EXPECT_TRUE(FolderExists(files, folder.Windows("GAME/")));
  EXPECT_FALSE(FolderExists(files, folder.Windows("other")));
}

TEST(FolderExists, NeitherAFileNorAnEmptyNorAnUnprintablePath) {
  Files files;
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("file"), "x");
  test::MakeFolderAt(folder.Native("\xC3\x84"));
  EXPECT_FALSE(FolderExists(files, folder.Windows("file")));
  EXPECT_FALSE(FolderExists(files, folder.Windows("file/")));
  EXPECT_FALSE(FolderExists(files, ""));
  EXPECT_FALSE(FolderExists(files, "  "));
  EXPECT_FALSE(FolderExists(files, folder.Windows("\xC3\x84")));
}

/// Lets every operation of one kind fail.
void Fail(Files& files, FileOperation::Kind kind) {
  files.before = [kind](const FileOperation& operation) {
    if (operation.kind == kind) throw FileError("could not look at", operation.path, "the disk does not answer");
  };
}

TEST(LookFor, TellsAbsentVisibleHiddenAndFailedApart) {
  const TemporaryFolder folder;
  Files files;
  for (const char* name : {"plain", "hidden"}) WriteFileAt(folder.Native(name), "abc");
  EXPECT_EQ(LookFor(files, folder.Windows("missing")).presence, Presence::absent);
  EXPECT_EQ(LookFor(files, folder.Windows("plain")).presence, Presence::visible);
  EXPECT_EQ(LookFor(files, folder.Windows("plain")).facts.length, 3U);
  if (test::SetDosAttributes(folder.Native("hidden"), test::hiddenMark)) {
    EXPECT_EQ(LookFor(files, folder.Windows("hidden")).presence, Presence::hidden);
  }
  Fail(files, FileOperation::Kind::look);
  EXPECT_EQ(LookFor(files, folder.Windows("plain")).presence, Presence::failed);
  EXPECT_EQ(LookFor(files, folder.Windows("plain")).reason, "the disk does not answer");
  EXPECT_EQ(LookCloselyFor(files, folder.Windows("plain")).presence, Presence::failed);
}

TEST(FileExists, WhatTheSystemCannotSayIsNo) {
  const TemporaryFolder folder;
  Files files;
  WriteFileAt(folder.Native("file"), "abc");
  Fail(files, FileOperation::Kind::look);
  EXPECT_FALSE(FileExists(files, folder.Windows("file")));
  EXPECT_FALSE(FolderExists(files, folder.windows));
  EXPECT_EQ(FileLength(files, folder.Windows("file")), 0U);
}

TEST(ListFolder, TellsAMissingFolderFromOneThatCannotBeListed) {
  const TemporaryFolder folder;
  Files files;
  WriteFileAt(folder.Native("file"), "abc");
  EXPECT_EQ(ListFolder(files, folder.windows).presence, Presence::visible);
  EXPECT_EQ(ListFolder(files, folder.windows).items.size(), 1U);
  EXPECT_EQ(ListFolder(files, folder.Windows("missing/")).presence, Presence::absent);
  Fail(files, FileOperation::Kind::list);
  EXPECT_EQ(ListFolder(files, folder.windows).presence, Presence::failed);
  EXPECT_EQ(ListFolder(files, folder.windows).reason, "the disk does not answer");
  EXPECT_FALSE(FileExists(files, folder.Windows("*")));
}

TEST(LookUpQuestions, ThatFailAreAnsweredOnTheSafeSide) {
  const TemporaryFolder folder;
  Files files;
  WriteFileAt(folder.Native("file"), "abc");
  const std::string file = folder.Windows("file");
  EXPECT_EQ(WhyNotWritable(files, file), "");
  EXPECT_EQ(WhyNoNewFiles(files, folder.windows), "");
  EXPECT_TRUE(FreeSpace(files, folder.windows));
  Fail(files, FileOperation::Kind::askToWrite);
  EXPECT_EQ(WhyNotWritable(files, file), "the disk does not answer");
  EXPECT_EQ(WhyNoNewFiles(files, folder.windows), "the disk does not answer");
  Fail(files, FileOperation::Kind::askForRoom);
  EXPECT_FALSE(FreeSpace(files, folder.windows));
  Fail(files, FileOperation::Kind::look);
  EXPECT_FALSE(IsSameFile(files, file, file));
  EXPECT_EQ(SpellingOf(files, folder.Windows("FILE")), "FILE");
}

TEST(IsThere, AHiddenFileIsThereAndNotVisible) {
  const TemporaryFolder folder;
  Files files;
  WriteFileAt(folder.Native("file"), "abc");
  const std::string file = folder.Windows("file");
  EXPECT_TRUE(FileIsThere(files, file));
  EXPECT_TRUE(VisibleFileIsThere(files, " " + file + " "));
  EXPECT_EQ(LengthOrThrow(files, file), 3U);
  if (!test::SetDosAttributes(folder.Native("file"), test::hiddenMark)) GTEST_SKIP() << "no hidden files here";
  EXPECT_TRUE(FileIsThere(files, file));
  EXPECT_FALSE(VisibleFileIsThere(files, file));
}

TEST(IsThere, AFolderIsNoFileAndAFileNoFolder) {
  const TemporaryFolder folder;
  Files files;
  WriteFileAt(folder.Native("sub/file"), "abc");
  EXPECT_FALSE(FileIsThere(files, folder.Windows("sub")));
  EXPECT_FALSE(VisibleFileIsThere(files, folder.Windows("sub")));
  EXPECT_TRUE(FolderIsThere(files, folder.Windows("sub")));
  EXPECT_FALSE(FolderIsThere(files, folder.Windows("sub\\file")));
}

TEST(IsThere, WhatIsAbsentIsNoError) {
  const TemporaryFolder folder;
  Files files;
  EXPECT_FALSE(FileIsThere(files, folder.Windows("none")));
  EXPECT_FALSE(FileIsThere(files, folder.Windows("none\\none")));
  EXPECT_FALSE(FolderIsThere(files, folder.Windows("none")));
  EXPECT_EQ(LengthOrThrow(files, folder.Windows("none")), 0U);
  EXPECT_EQ(ListOrThrow(files, folder.Windows("none\\")).presence, Presence::absent);
}

TEST(IsThere, APathThatNoFileCanHaveIsNotLookedFor) {
  Files files;
  files.before = [](const FileOperation& operation) { ADD_FAILURE() << test::InWords(operation); };
  for (const std::string path : {"", "  ", "C:\\folder\\", "C:", "C:\\dot.", "C:\\J\xC4ger"}) {
    EXPECT_FALSE(FileIsThere(files, path)) << path;
    EXPECT_FALSE(VisibleFileIsThere(files, path)) << path;
  }
}

TEST(IsThere, WhereTheSystemCannotSayIsAnError) {
  const TemporaryFolder folder;
  Files files;
  WriteFileAt(folder.Native("file"), "abc");
  const std::string file = folder.Windows("file");
  const auto expectError = [&](const std::string& what, const std::string& path, const std::function<void()>& look) {
    try {
      look();
      ADD_FAILURE() << "no error";
    } catch (const FileError& error) {
      EXPECT_EQ(error.what(), what + " " + path + ": the disk does not answer");
      EXPECT_EQ(error.kind, ErrorKind::failed);
    }
  };
  Fail(files, FileOperation::Kind::look);
  expectError("could not look for", file, [&] { FileIsThere(files, file); });
  expectError("could not look for", file, [&] { VisibleFileIsThere(files, file); });
  expectError("could not look for", file, [&] { LengthOrThrow(files, file); });
  expectError("could not look for", file, [&] { LookOrThrow(files, file); });
  expectError("could not look for", folder.windows, [&] { FolderIsThere(files, folder.windows); });
  EXPECT_FALSE(FileExists(files, file));
  EXPECT_FALSE(FolderExists(files, folder.windows));
  Fail(files, FileOperation::Kind::list);
  expectError("could not list", folder.windows, [&] { ListOrThrow(files, folder.windows); });
  expectError("could not list", folder.windows, [&] { FileIsThere(files, folder.Windows("f*")); });
  EXPECT_FALSE(FileExists(files, folder.Windows("f*")));
}

TEST(LookUpQuestions, AreAllSeenByTheHook) {
  const TemporaryFolder folder;
  Files files;
  WriteFileAt(folder.Native("file"), "abc");
  const std::string file = folder.Windows("file");
  std::vector<std::string> seen;
  files.before = [&](const FileOperation& operation) {
    EXPECT_TRUE(IsQuestion(operation.kind));
    seen.push_back(test::InWords(operation));
  };
  FileExists(files, file);
  FolderExists(files, folder.windows);
  FileLength(files, file);
  SpellingOf(files, file);
  IsSameFile(files, file, folder.windows);
  ListFolder(files, folder.windows);
  WhyNotWritable(files, file);
  WhyNoNewFiles(files, folder.windows);
  FreeSpace(files, folder.windows);
  EXPECT_EQ(seen, (std::vector<std::string>{"look " + file, "look " + folder.windows, "look " + file, "look " + file,
                                            "look " + folder.windows, "list " + folder.windows, "ask to write " + file,
                                            "ask to write " + folder.windows, "ask for room " + folder.windows}));
}

}  // namespace
}  // namespace oravin
