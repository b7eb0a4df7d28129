#include "files/files.h"

#include <gtest/gtest.h>

#include <random>

#include "base/run_time_error.h"
#include "support/fault.h"
#include "support/temporary_folder.h"

namespace oravin {
namespace {

using platform::OpenFor;
using test::TemporaryFolder;
using test::WriteFileAt;

struct NumberedFiles : testing::Test {
  TemporaryFolder folder;
  Files files;

  std::string Make(const std::string& name, const Bytes& bytes) {
    WriteFileAt(folder.Native(name), bytes);
    return folder.Windows(name);
  }
  Bytes Read(int handle, std::uint64_t offset, std::size_t count) {
    Bytes bytes(count);
    Get(files, handle, offset, bytes);
    return bytes;
  }
};

/// Runs something that must fail and returns the error in words.
template <typename Run>
std::string ErrorOf(Run&& run) {
  try {
    run();
  } catch (const RunTimeError& error) {
    return error.what();
  }
  return "no error";
}

TEST_F(NumberedFiles, FreeFileLeavesOneAndTwoToTheArchiveBrowser) { EXPECT_EQ(FreeFile(files), 3); }

TEST_F(NumberedFiles, FreeFileIsTheLowestThatIsNotInUse) {
  const std::string path = Make("file", {1});
  OpenBinary(files, 3, path, OpenFor::reading);
  OpenBinary(files, 4, path, OpenFor::reading);
  EXPECT_EQ(FreeFile(files), 5);
  Close(files, 3);
  EXPECT_EQ(FreeFile(files), 3);
}

TEST_F(NumberedFiles, OpeningAHandleAgainClosesTheFileThatItStoodFor) {
  OpenBinary(files, 1, Make("a", {'a'}), OpenFor::reading);
  EXPECT_EQ(Read(1, 0, 1), (Bytes{'a'}));
  OpenBinary(files, 1, Make("b", {'b', 'b'}), OpenFor::reading);
  EXPECT_EQ(Read(1, 0, 1), (Bytes{'b'}));
  EXPECT_EQ(LengthOf(files, 1), 2U);
  EXPECT_EQ(files.open.size(), 1U);
}

TEST_F(NumberedFiles, AHandleWhoseFileCannotBeOpenedIsClosed) {
  OpenBinary(files, 1, Make("a", {'a'}), OpenFor::reading);
  EXPECT_THROW(OpenBinary(files, 1, folder.Windows("missing"), OpenFor::reading), RunTimeError);
  EXPECT_FALSE(IsOpen(files, 1));
}

TEST_F(NumberedFiles, ClosingAHandleThatIsNotOpenDoesNotMatter) {
  Close(files, 9);
  EXPECT_FALSE(IsOpen(files, 9));
}

TEST_F(NumberedFiles, AllAreClosedAtOnce) {
  OpenBinary(files, 1, Make("a", {1}), OpenFor::reading);
  OpenBinary(files, 5, Make("b", {1}), OpenFor::reading);
  CloseAll(files);
  EXPECT_FALSE(IsOpen(files, 1));
  EXPECT_FALSE(IsOpen(files, 5));
}

TEST_F(NumberedFiles, AnOpenedFileIsClosedAtTheEndOfItsLife) {
  const std::string path = Make("a", {1});
  int handle = 0;
  {
    const OpenedFile file(files, path, OpenFor::reading);
    handle = file.handle;
    EXPECT_TRUE(IsOpen(files, handle));
  }
  EXPECT_FALSE(IsOpen(files, handle));
}

TEST_F(NumberedFiles, AnErrorTellsTheOperationThePathAndTheReason) {
  const std::string missing = folder.Windows("missing.bin");
  EXPECT_EQ(ErrorOf([&] { OpenBinary(files, 3, missing, OpenFor::reading); }),
            "could not open " + missing + ": it does not exist");
  const std::string path = Make("short.bin", {1, 2});
  OpenBinary(files, 3, path, OpenFor::reading);
  EXPECT_EQ(ErrorOf([&] { Read(3, 0, 3); }), "could not read " + path + ": it ends too early");
  EXPECT_EQ(ErrorOf([&] { Put(files, 3, 0, Bytes{1}); }).find("could not write " + path + ": "), 0U);
  EXPECT_EQ(ErrorOf([&] { Read(8, 0, 1); }), "could not use file 8: it is not open");
}

TEST_F(NumberedFiles, ReadingUpToTheVeryEndIsNoError) {
  OpenBinary(files, 3, Make("file", {1, 2, 3}), OpenFor::reading);
  EXPECT_EQ(Read(3, 1, 2), (Bytes{2, 3}));
  EXPECT_THROW(Read(3, 2, 2), RunTimeError);
  EXPECT_THROW(Read(3, 3, 1), RunTimeError);
  EXPECT_EQ(Read(3, 3, 0), Bytes());
}

TEST_F(NumberedFiles, GetSomeTellsHowManyBytesThereWere) {
  OpenBinary(files, 3, Make("file", {1, 2, 3}), OpenFor::reading);
  Bytes bytes(4);
  EXPECT_EQ(GetSome(files, 3, 1, bytes), 2U);
  EXPECT_EQ(bytes, (Bytes{2, 3, 0, 0}));
  EXPECT_EQ(GetSome(files, 3, 3, bytes), 0U);
  EXPECT_EQ(GetSome(files, 3, 1000000, bytes), 0U);
}

TEST_F(NumberedFiles, BufferedReadsSeeWhatWasPut) {
  OpenBinary(files, 3, Make("file", {1, 2, 3, 4}), OpenFor::changing);
  EXPECT_EQ(Read(3, 0, 4), (Bytes{1, 2, 3, 4}));
  Put(files, 3, 1, Bytes{9, 8});
  EXPECT_EQ(Read(3, 0, 4), (Bytes{1, 9, 8, 4}));
  EXPECT_EQ(test::ReadFileAt(folder.Native("file")), (Bytes{1, 9, 8, 4}));  // it went straight to the file
}

TEST_F(NumberedFiles, TheLengthCountsWhatIsPutBehindTheEnd) {
  OpenBinary(files, 3, folder.Windows("new"), OpenFor::creating);
  EXPECT_EQ(LengthOf(files, 3), 0U);
  Put(files, 3, 3, Bytes{7});
  EXPECT_EQ(LengthOf(files, 3), 4U);
  EXPECT_EQ(Read(3, 0, 4), (Bytes{0, 0, 0, 7}));
  Put(files, 3, 0, Bytes{1});
  EXPECT_EQ(LengthOf(files, 3), 4U);
}

TEST_F(NumberedFiles, ReadingByteByByteCostsOneReadOfTheFile) {
  OpenBinary(files, 3, Make("file", Bytes(5000, 1)), OpenFor::reading);
  int reads = 0;
  files.before = [&](const FileOperation& operation) { reads += operation.kind == FileOperation::Kind::read ? 1 : 0; };
  for (std::uint64_t i = 0; i < 5000; ++i) Read(3, i, 1);
  EXPECT_EQ(reads, 1);
}

TEST_F(NumberedFiles, RandomReadsAndWritesGiveWhatThePlainBytesWould) {
  std::mt19937 random(17);
  const auto below = [&](std::size_t end) { return std::uniform_int_distribution<std::size_t>(0, end - 1)(random); };
  Bytes plain(60000);
  for (auto& byte : plain) byte = static_cast<std::uint8_t>(below(256));
  OpenBinary(files, 3, Make("file", plain), OpenFor::changing);
  for (int i = 0; i < 2000; ++i) {
    const std::size_t at = below(plain.size());
    const std::size_t count = std::min(plain.size() - at, i % 7 == 0 ? below(40000) : below(64));
    if (i % 5 == 0) {
      const Bytes bytes(count, static_cast<std::uint8_t>(i));
      Put(files, 3, at, bytes);
      std::copy(bytes.begin(), bytes.end(), plain.begin() + static_cast<std::ptrdiff_t>(at));
    }
    const auto begin = plain.begin() + static_cast<std::ptrdiff_t>(at);
    ASSERT_EQ(Read(3, at, count), Bytes(begin, begin + static_cast<std::ptrdiff_t>(count)));
  }
  CloseAll(files);
  EXPECT_TRUE(test::SameBytes(plain, test::ReadFileAt(folder.Native("file"))));
}

TEST_F(NumberedFiles, TheHookSeesEveryOperationJustBeforeItIsDone) {
  std::vector<std::string> seen;
  files.before = [&](const FileOperation& operation) { seen.push_back(test::InWords(operation)); };
  const std::string path = folder.Windows("file");
  OpenBinary(files, 3, path, OpenFor::creating);
  Put(files, 3, 0, Bytes{1});
  Read(3, 0, 1);
  Flush(files, 3);
  EXPECT_EQ(seen, (std::vector<std::string>{"open " + path, "write " + path, "read " + path, "flush " + path}));
}

TEST_F(NumberedFiles, AFailedReadIsNotTakenForWhatIsInTheFile) {
  OpenBinary(files, 3, Make("file", {5, 6}), OpenFor::reading);
  test::Fault fault{test::FaultKind::failure, 1, 0, false, {}};
  test::Watch(files, fault);
  EXPECT_THROW(Read(3, 0, 1), RunTimeError);
  EXPECT_EQ(Read(3, 0, 2), (Bytes{5, 6}));
}

}  // namespace
}  // namespace oravin
