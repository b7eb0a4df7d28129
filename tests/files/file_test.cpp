#include "files/file.h"

#include <gtest/gtest.h>

#include <random>

#include "base/file_error.h"
#include "support/fault.h"
#include "support/temporary_folder.h"

namespace oravin {
namespace {

using test::TemporaryFolder;
using test::WriteFileAt;

struct FileAccess : testing::Test {
  TemporaryFolder folder;
  Files files;

  std::string Make(const std::string& name, const Bytes& bytes) {
    WriteFileAt(folder.Native(name), bytes);
    return folder.Windows(name);
  }
  static Bytes Read(File& file, std::uint64_t offset, std::size_t count) {
    Bytes bytes(count);
    Get(file, offset, bytes);
    return bytes;
  }
};

/// Runs something that must fail and returns the error in words.
template <typename Run>
std::string ErrorOf(Run&& run) {
  try {
    run();
  } catch (const FileError& error) {
    return error.what();
  }
  return "no error";
}

TEST_F(FileAccess, AreClosedAtTheEndOfTheirLife) {
  const std::string path = Make("a", {1});
  {
    const File first(files, path, OpenFor::reading);
    const File second(files, path, OpenFor::reading);
    EXPECT_TRUE(IsOpen(first));
    EXPECT_EQ(files.open, 2);
  }
  EXPECT_EQ(files.open, 0);
}

TEST_F(FileAccess, MovingLeavesAClosedOneBehind) {
  File first(files, Make("a", {'a'}), OpenFor::reading);
  File second = std::move(first);
  EXPECT_FALSE(IsOpen(first));  // NOLINT(bugprone-use-after-move): that is what is asked
  EXPECT_EQ(Read(second, 0, 1), (Bytes{'a'}));
  EXPECT_EQ(files.open, 1);
}

TEST_F(FileAccess, AnotherFileMovedOntoAnOpenOneClosesIt) {
  File file(files, Make("a", {'a'}), OpenFor::reading);
  EXPECT_EQ(Read(file, 0, 1), (Bytes{'a'}));
  file = File(files, Make("b", {'b', 'b'}), OpenFor::reading);
  EXPECT_EQ(Read(file, 0, 1), (Bytes{'b'}));
  EXPECT_EQ(file.length, 2U);
  EXPECT_EQ(files.open, 1);
}

TEST_F(FileAccess, OneThatCannotBeOpenedLeavesNothingOpen) {
  EXPECT_THROW(File(files, folder.Windows("missing"), OpenFor::reading), FileError);
  EXPECT_EQ(files.open, 0);
}

TEST_F(FileAccess, ClosingTwiceDoesNotMatter) {
  File file(files, Make("a", {1}), OpenFor::reading);
  Close(file);
  Close(file);
  EXPECT_FALSE(IsOpen(file));
  EXPECT_EQ(files.open, 0);
  EXPECT_THROW(Read(file, 0, 1), FileError);
}

TEST_F(FileAccess, AnErrorTellsTheOperationThePathAndTheReason) {
  const std::string missing = folder.Windows("missing.bin");
  EXPECT_EQ(ErrorOf([&] { File(files, missing, OpenFor::reading); }),
            "could not open " + missing + ": it does not exist");
  const std::string path = Make("short.bin", {1, 2});
  File file(files, path, OpenFor::reading);
  EXPECT_EQ(ErrorOf([&] { Read(file, 0, 3); }), "could not read " + path + ": it ends too early");
  EXPECT_EQ(ErrorOf([&] { Put(file, 0, Bytes{1}); }).find("could not write " + path + ": "), 0U);
  Close(file);
  EXPECT_EQ(ErrorOf([&] { Read(file, 0, 1); }), "could not use " + path + ": it is not open");
}

TEST_F(FileAccess, ReadingUpToTheVeryEndIsNoError) {
  File file(files, Make("file", {1, 2, 3}), OpenFor::reading);
  EXPECT_EQ(Read(file, 1, 2), (Bytes{2, 3}));
  EXPECT_THROW(Read(file, 2, 2), FileError);
  EXPECT_THROW(Read(file, 3, 1), FileError);
  EXPECT_EQ(Read(file, 3, 0), Bytes());
}

TEST_F(FileAccess, GetSomeTellsHowManyBytesThereWere) {
  File file(files, Make("file", {1, 2, 3}), OpenFor::reading);
  Bytes bytes(4);
  EXPECT_EQ(GetSome(file, 1, bytes), 2U);
  EXPECT_EQ(bytes, (Bytes{2, 3, 0, 0}));
  EXPECT_EQ(GetSome(file, 3, bytes), 0U);
  EXPECT_EQ(GetSome(file, 1000000, bytes), 0U);
}

TEST_F(FileAccess, BufferedReadsSeeWhatWasPut) {
  File file(files, Make("file", {1, 2, 3, 4}), OpenFor::changing);
  EXPECT_EQ(Read(file, 0, 4), (Bytes{1, 2, 3, 4}));
  Put(file, 1, Bytes{9, 8});
  EXPECT_EQ(Read(file, 0, 4), (Bytes{1, 9, 8, 4}));
  EXPECT_EQ(test::ReadFileAt(folder.Native("file")), (Bytes{1, 9, 8, 4}));  // it went straight to the file
}

TEST_F(FileAccess, TheLengthCountsWhatIsPutBehindTheEnd) {
  File file(files, folder.Windows("new"), OpenFor::creating);
  EXPECT_EQ(file.length, 0U);
  Put(file, 3, Bytes{7});
  EXPECT_EQ(file.length, 4U);
  EXPECT_EQ(Read(file, 0, 4), (Bytes{0, 0, 0, 7}));
  Put(file, 0, Bytes{1});
  EXPECT_EQ(file.length, 4U);
}

TEST_F(FileAccess, ReadingByteByByteCostsOneReadOfTheFile) {
  File file(files, Make("file", Bytes(5000, 1)), OpenFor::reading);
  int reads = 0;
  files.before = [&](const FileOperation& operation) { reads += operation.kind == FileOperation::Kind::read ? 1 : 0; };
  for (std::uint64_t i = 0; i < 5000; ++i) Read(file, i, 1);
  EXPECT_EQ(reads, 1);
}

TEST_F(FileAccess, RandomReadsAndWritesGiveWhatThePlainBytesWould) {
  std::mt19937 random(17);
  const auto below = [&](std::size_t end) { return std::uniform_int_distribution<std::size_t>(0, end - 1)(random); };
  Bytes plain(60000);
  for (auto& byte : plain) byte = static_cast<std::uint8_t>(below(256));
  File file(files, Make("file", plain), OpenFor::changing);
  for (int i = 0; i < 2000; ++i) {
    const std::size_t at = below(plain.size());
    const std::size_t count = std::min(plain.size() - at, i % 7 == 0 ? below(40000) : below(64));
    if (i % 5 == 0) {
      const Bytes bytes(count, static_cast<std::uint8_t>(i));
      Put(file, at, bytes);
      std::copy(bytes.begin(), bytes.end(), plain.begin() + static_cast<std::ptrdiff_t>(at));
    }
    const auto begin = plain.begin() + static_cast<std::ptrdiff_t>(at);
    ASSERT_EQ(Read(file, at, count), Bytes(begin, begin + static_cast<std::ptrdiff_t>(count)));
  }
  Close(file);
  EXPECT_TRUE(test::SameBytes(plain, test::ReadFileAt(folder.Native("file"))));
}

TEST_F(FileAccess, TheHookSeesEveryOperationJustBeforeItIsDone) {
  std::vector<std::string> seen;
  files.before = [&](const FileOperation& operation) { seen.push_back(test::InWords(operation)); };
  const std::string path = folder.Windows("file");
  File file(files, path, OpenFor::creating);
  Put(file, 0, Bytes{1});
  Read(file, 0, 1);
  Flush(file);
  EXPECT_EQ(seen, (std::vector<std::string>{"open " + path, "write " + path, "read " + path, "flush " + path}));
}

TEST_F(FileAccess, AFailedReadIsNotTakenForWhatIsInTheFile) {
  File file(files, Make("file", {5, 6}), OpenFor::reading);
  test::Fault fault{test::FaultKind::failure, 1, 0, false, {}};
  test::Watch(files, fault);
  EXPECT_THROW(Read(file, 0, 1), FileError);
  EXPECT_EQ(Read(file, 0, 2), (Bytes{5, 6}));
}

}  // namespace
}  // namespace oravin
