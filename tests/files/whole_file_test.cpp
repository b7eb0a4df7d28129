#include "files/whole_file.h"
#include "files/file.h"
#include "files/look_up.h"

#include <gtest/gtest.h>

#include "base/file_error.h"
#include "support/fault.h"
#include "support/file_marks.h"
#include "support/temporary_folder.h"

namespace oravin {
namespace {

using test::AtEachOperation;
using test::Fault;
using test::FaultKind;
using test::FolderImage;
using test::ImageOf;
using test::SameImage;
using test::TemporaryFolder;
using test::Without;
using test::WriteFileAt;

const std::string leftover = std::string("file") + besideSuffix;

TEST(WholeFile, IsWrittenAndRead) {
  const TemporaryFolder folder;
  Files files;
  WriteWhole(files, folder.Windows("file"), BytesOf("abc"));
  EXPECT_EQ(ReadWhole(files, folder.Windows("FILE"), 3), BytesOf("abc"));
  EXPECT_EQ(ImageOf(folder.native), (FolderImage{{"file", BytesOf("abc")}}));
}

TEST(WholeFile, AnEmptyOneIsWrittenAndRead) {
  const TemporaryFolder folder;
  Files files;
  WriteWhole(files, folder.Windows("file"), Bytes());
  EXPECT_EQ(ReadWhole(files, folder.Windows("file"), 0), Bytes());
}

TEST(WholeFile, OneThatIsTooLongIsNotRead) {
  const TemporaryFolder folder;
  Files files;
  const std::string path = folder.Windows("file");
  WriteFileAt(folder.Native("file"), "abcd");
  try {
    ReadWhole(files, path, 3);
    FAIL() << "it was read";
  } catch (const FileError& error) {
    EXPECT_EQ(std::string(error.what()), "could not read " + path + ": it is too large to be right");
  }
  EXPECT_EQ(ReadWhole(files, path, 4).size(), 4U);
}

TEST(WholeFile, AMissingOneIsAnError) {
  const TemporaryFolder folder;
  Files files;
  EXPECT_THROW(ReadWhole(files, folder.Windows("file"), 100), FileError);
}

TEST(WholeFile, WhateverFailsTheOldContentStaysWholeAndNothingIsLeftOver) {
  const TemporaryFolder folder;
  const int operations = AtEachOperation(FaultKind::failure, [&](Fault& fault) {
    WriteFileAt(folder.Native("file"), "old");
    Files files;
    test::Watch(files, fault);
    bool failed = false;
    try {
      WriteWhole(files, folder.Windows("file"), BytesOf("new content"));
    } catch (const FileError& error) {
      failed = true;
      EXPECT_EQ(error.reason, test::faultReason);
    }
    EXPECT_EQ(failed, fault.happened);
    EXPECT_TRUE(SameImage({{"file", BytesOf(fault.happened ? "old" : "new content")}}, ImageOf(folder.native)));
    EXPECT_EQ(files.open, 0);
  });
  EXPECT_EQ(operations, 4);  // open, write, flush, rename
}

TEST(WholeFile, WhereverTheProcessStopsTheFileIsWhole) {
  const TemporaryFolder folder;
  AtEachOperation(FaultKind::stop, [&](Fault& fault) {
    WriteFileAt(folder.Native("file"), "old");
    Files files;
    test::Watch(files, fault);
    const bool stopped = test::Stopped([&] { WriteWhole(files, folder.Windows("file"), BytesOf("new content")); });
    EXPECT_EQ(stopped, fault.happened);
    EXPECT_EQ(test::ReadTextAt(folder.Native("file")), stopped ? "old" : "new content");
    EraseLeftovers(files, folder.windows);
    EXPECT_EQ(ImageOf(folder.native).size(), 1U);
  });
}

TEST(WholeFile, AReadOnlyFolderOrFileBesideIsAnErrorAndTheOldContentStays) {
  const TemporaryFolder folder;
  Files files;
  WriteFileAt(folder.Native("file"), "old");
  WriteFileAt(folder.Native(leftover), "stuck");
  test::SetReadOnly(folder.Native(leftover), true);
  EXPECT_THROW(WriteWhole(files, folder.Windows("file"), BytesOf("new")), FileError);
  EXPECT_EQ(test::ReadTextAt(folder.Native("file")), "old");
}

TEST(WholeFile, ThePiecesOfAWriterFollowOneAnother) {
  const TemporaryFolder folder;
  Files files;
  WriteBeside(files, folder.Windows("file"), [&](File& file) {
    Put(file, 0, BytesOf("ab"));
    EXPECT_FALSE(std::filesystem::exists(folder.Native("file")));
    Put(file, 2, BytesOf("cd"));
  });
  EXPECT_EQ(test::ReadTextAt(folder.Native("file")), "abcd");
}

TEST(WholeFiles, TakeTheirNamesTogether) {
  const TemporaryFolder folder;
  Files files;
  WholeFiles together;
  for (const char* name : {"a", "b"}) {
    AddWhole(files, together, folder.Windows(name), [&](File& file) { Put(file, 0, BytesOf(name)); });
  }
  EXPECT_FALSE(std::filesystem::exists(folder.Native("a")));
  EXPECT_FALSE(std::filesystem::exists(folder.Native("b")));
  CommitWhole(files, together);
  EXPECT_TRUE(together.paths.empty());
  EXPECT_EQ(ImageOf(folder.native), (FolderImage{{"a", BytesOf("a")}, {"b", BytesOf("b")}}));
  CommitWhole(files, together);  // nothing happens
}

TEST(WholeFiles, NewOnesAreSpelledAsTheyAreGiven) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("Old"), "old");
  Files files;
  WholeFiles together;
  AddNew(files, together, folder.Windows("New.bin"), [&](File& file) { Put(file, 0, BytesOf("new")); });
  AddWhole(files, together, folder.Windows("OLD"), [&](File& file) { Put(file, 0, BytesOf("newer")); });
  EXPECT_FALSE(std::filesystem::exists(folder.Native("New.bin")));
  CommitWhole(files, together);
  EXPECT_TRUE(together.paths.empty());
  EXPECT_EQ(ImageOf(folder.native), (FolderImage{{"New.bin", BytesOf("new")}, {"Old", BytesOf("newer")}}));
}

TEST(WholeFiles, ANewOneWhoseWriterFailsLeavesNothing) {
  const TemporaryFolder folder;
  Files files;
  WholeFiles together;
  EXPECT_THROW(AddNew(files, together, folder.Windows("New.bin"),
                      [](File&) { throw FileError("could not read", "its source", "it ends too early"); }),
               FileError);
  EXPECT_TRUE(together.paths.empty());
  EXPECT_TRUE(ImageOf(folder.native).empty());
}

TEST(WholeFiles, DroppedOnesAreDeleted) {
  const TemporaryFolder folder;
  Files files;
  WholeFiles together;
  for (const char* name : {"a", "b", "c"}) {
    AddNew(files, together, folder.Windows(name), [&](File& file) { Put(file, 0, BytesOf(name)); });
  }
  DropWhole(files, together, 1);
  CommitWhole(files, together);
  EXPECT_EQ(ImageOf(folder.native), (FolderImage{{"a", BytesOf("a")}}));
}

TEST(CopyBytes, CopiesPiecesLongerThanABlockBetweenAnyOffsets) {
  const TemporaryFolder folder;
  Files files;
  Bytes content((std::size_t{5} << 19U) + 3);
  for (std::size_t i = 0; i < content.size(); ++i) content[i] = static_cast<std::uint8_t>(i * 7 + i / 256);
  WriteFileAt(folder.Native("from"), content);
  const std::uint64_t count = content.size() - 5;
  {
    File from(files, folder.Windows("from"), OpenFor::reading);
    File to(files, folder.Windows("to"), OpenFor::replacing);
    CopyBytes(from, 5, to, 2, count);
    CopyBytes(from, 0, to, 0, 2);
    CopyBytes(from, 1, to, 7, 0);
    EXPECT_THROW(CopyBytes(from, 6, to, 2 + count, count), FileError) << "it ends too early";
  }
  Bytes expected(content.begin(), content.begin() + 2);
  expected.insert(expected.end(), content.begin() + 5, content.end());
  Bytes copied = test::ReadFileAt(folder.Native("to"));
  copied.resize(expected.size());
  EXPECT_TRUE(copied == expected);
}

TEST(WholeFiles, WhateverFailsOrStopsEachOfThemIsOldOrNew) {
  for (const FaultKind kind : {FaultKind::failure, FaultKind::stop}) {
    const TemporaryFolder folder;
    const int operations = AtEachOperation(kind, [&](Fault& fault) {
      WriteFileAt(folder.Native("a"), "old");
      WriteFileAt(folder.Native("b"), "old");
      Files files;
      test::Watch(files, fault);
      try {
        WholeFiles together;
        for (const char* name : {"a", "b"}) {
          AddWhole(files, together, folder.Windows(name), [&](File& file) { Put(file, 0, BytesOf("new")); });
        }
        CommitWhole(files, together);
        EXPECT_FALSE(fault.happened);
      } catch (const FileError&) {
        EXPECT_EQ(kind, FaultKind::failure);
      } catch (const test::ProcessStopped&) {
        EXPECT_EQ(kind, FaultKind::stop);
      }
      const std::string a = test::ReadTextAt(folder.Native("a"));
      const std::string b = test::ReadTextAt(folder.Native("b"));
      EXPECT_EQ(a, fault.happened && fault.at < 7 ? "old" : "new") << fault.what;
      EXPECT_EQ(b, fault.happened ? "old" : "new") << fault.what;
      EraseLeftovers(files, folder.windows);
      EXPECT_EQ(ImageOf(folder.native).size(), 2U);
    });
    EXPECT_EQ(operations, 7);  // twice open and write, then one flush and two renames
  }
}

TEST(CopyWhole, CopiesFilesOfEveryLength) {
  const TemporaryFolder folder;
  Files files;
  for (const std::size_t length : {std::size_t{0}, std::size_t{1}, std::size_t{1} << 20, (std::size_t{1} << 21) + 5}) {
    Bytes bytes(length);
    for (std::size_t i = 0; i < length; ++i) bytes[i] = static_cast<std::uint8_t>(i * 7 + i / 251);
    WriteFileAt(folder.Native("from"), bytes);
    CopyWhole(files, folder.Windows("from"), folder.Windows("to"));
    EXPECT_TRUE(test::SameBytes(bytes, test::ReadFileAt(folder.Native("to"))));
  }
}

TEST(CopyWhole, WhateverFailsTheTargetIsOldOrNewAndTheSourceStays) {
  const TemporaryFolder folder;
  AtEachOperation(FaultKind::failure, [&](Fault& fault) {
    WriteFileAt(folder.Native("from"), "new");
    WriteFileAt(folder.Native("to"), "old");
    Files files;
    test::Watch(files, fault);
    bool failed = false;
    try {
      CopyWhole(files, folder.Windows("from"), folder.Windows("to"));
    } catch (const FileError&) {
      failed = true;
    }
    EXPECT_EQ(failed, fault.happened);
    EXPECT_TRUE(SameImage({{"from", BytesOf("new")}, {"to", BytesOf(failed ? "old" : "new")}}, ImageOf(folder.native)));
  });
}

TEST(CopyWhole, AMissingSourceLeavesTheTarget) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("to"), "old");
  Files files;
  EXPECT_THROW(CopyWhole(files, folder.Windows("from"), folder.Windows("to")), FileError);
  EXPECT_EQ(ImageOf(folder.native), (FolderImage{{"to", BytesOf("old")}}));
}

TEST(EraseFile, AMissingFileIsAnError) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("File"), "x");
  Files files;
  EraseFile(files, folder.Windows("FILE"));
  EXPECT_TRUE(ImageOf(folder.native).empty());
  try {
    EraseFile(files, folder.Windows("file"));
    FAIL() << "it was erased";
  } catch (const FileError& error) {
    EXPECT_EQ(std::string(error.what()), "could not delete " + folder.Windows("file") + ": it does not exist");
  }
}

TEST(RenameOver, ReplacesTheFileOfTheNewName) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("from"), "new");
  WriteFileAt(folder.Native("to"), "old");
  Files files;
  RenameOver(files, folder.Windows("from"), folder.Windows("to"));
  EXPECT_EQ(ImageOf(folder.native), (FolderImage{{"to", BytesOf("new")}}));
}

TEST(MakeFolders, MakesEveryMissingFolderOfAPath) {
  const TemporaryFolder folder;
  Files files;
  MakeFolders(files, folder.Windows("a/b/c/"));
  WriteFileAt(folder.Native("a/b/x"), "x");
  MakeFolders(files, folder.Windows("A/b/d/"));
  const FolderImage made{{"a/", {}}, {"a/b/", {}}, {"a/b/c/", {}}, {"a/b/d/", {}}, {"a/b/x", BytesOf("x")}};
  EXPECT_EQ(ImageOf(folder.native), made);
  MakeFolders(files, folder.Windows("a/b/d/"));
  EXPECT_EQ(ImageOf(folder.native), made);
}

TEST(MakeFolders, AFileInTheWayIsAnError) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("a"), "x");
  Files files;
  EXPECT_THROW(MakeFolders(files, folder.Windows("a/b/")), FileError);
  EXPECT_EQ(ImageOf(folder.native), (FolderImage{{"a", BytesOf("x")}}));
}

TEST(MakeFolder, OneThatIsThereStaysAndOneThatCannotBeMadeIsAnError) {
  const TemporaryFolder folder;
  Files files;
  MakeFolder(files, folder.Windows("a/"));
  WriteFileAt(folder.Native("a/b"), "x");
  MakeFolder(files, folder.Windows("A/"));
  EXPECT_EQ(ImageOf(folder.native), (FolderImage{{"a/", {}}, {"a/b", BytesOf("x")}}));
  try {
    MakeFolder(files, folder.Windows("c/d/"));
    FAIL() << "it was made";
  } catch (const FileError& error) {
    EXPECT_EQ(std::string(error.what()), "could not make the folder " + folder.Windows("c/d/") + ": it does not exist");
  }
}

TEST(SameContent, ComparesEveryByte) {
  const TemporaryFolder folder;
  Files files;
  Bytes bytes((std::size_t{1} << 19) + 3, 7);
  WriteFileAt(folder.Native("a"), bytes);
  WriteFileAt(folder.Native("b"), bytes);
  EXPECT_TRUE(SameContent(files, folder.Windows("a"), folder.Windows("b")));
  bytes.back() = 8;
  WriteFileAt(folder.Native("b"), bytes);
  EXPECT_FALSE(SameContent(files, folder.Windows("a"), folder.Windows("b")));
  bytes.pop_back();
  WriteFileAt(folder.Native("b"), bytes);
  EXPECT_FALSE(SameContent(files, folder.Windows("a"), folder.Windows("b")));
  EXPECT_FALSE(SameContent(files, folder.Windows("a"), folder.Windows("missing")));
}

TEST(SameContent, WholeBlocksAndEmptyFilesAreEqual) {
  const TemporaryFolder folder;
  Files files;
  for (const std::size_t length : {std::size_t{0}, std::size_t{1} << 18}) {
    WriteFileAt(folder.Native("a"), Bytes(length, 1));
    WriteFileAt(folder.Native("b"), Bytes(length, 1));
    EXPECT_TRUE(SameContent(files, folder.Windows("a"), folder.Windows("b")));
  }
}

TEST(FileLength, OfAMissingFileIsZero) {
  Files files;
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("a"), "abc");
  EXPECT_EQ(FileLength(files, folder.Windows("A")), 3U);
  EXPECT_EQ(FileLength(files, folder.Windows("b")), 0U);
}

TEST(EraseLeftovers, ErasesThemAndNothingElse) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("file"), "x");
  WriteFileAt(folder.Native(leftover), "x");
  WriteFileAt(folder.Native("sub/" + leftover), "x");
  WriteFileAt(folder.Native(leftover + ".txt"), "x");
  test::MakeFolderAt(folder.Native(std::string("folder") + besideSuffix));
  const FolderImage before = ImageOf(folder.native);
  Files files;
  EraseLeftovers(files, folder.windows);
  EXPECT_TRUE(SameImage(Without(before, {leftover}), ImageOf(folder.native)));
  EraseLeftovers(files, folder.Windows("missing/"));  // nothing happens
}

}  // namespace
}  // namespace oravin
