#include "files/file_numbers.h"
#include "files/file.h"

#include <gtest/gtest.h>

#include "base/file_error.h"
#include "support/temporary_folder.h"

namespace oravin {
namespace {

/// A file of some bytes, open.
struct FileNumbers : testing::Test {
  test::TemporaryFolder folder;
  Files files;
  File file;

  void Hold(const Bytes& bytes) {
    test::WriteFileAt(folder.Native("file"), bytes);
    file = File(files, folder.Windows("file"), OpenFor::reading);
  }
};

TEST_F(FileNumbers, ReadsFourBytesInEitherOrder) {
  Hold({0x00, 0x00, 0x03, 0xC7});
  EXPECT_EQ(ReadLongBE(file, 0), 967U);
  EXPECT_EQ(ReadLongLE(file, 0), 0xC7030000U);
  EXPECT_GT(ReadLongLE(file, 0), 2000000000U);
}

TEST_F(FileNumbers, A32BitResultIsNeverNegative) {
  Hold({0xFF, 0xFF, 0xFF, 0xFE});
  EXPECT_EQ(std::int64_t{ReadLongBE(file, 0)}, 4294967294);
  EXPECT_EQ(std::int64_t{ReadLongLE(file, 0)}, 4278190079);
}

TEST_F(FileNumbers, ReadsTwoBytesInEitherOrder) {
  Hold({0x99, 0x12, 0x80});
  EXPECT_EQ(ReadWordBE(file, 1), 0x1280U);
}

TEST_F(FileNumbers, ReadsThreeBytes) {
  Hold({0x99, 0xFE, 0x12, 0x80});
  EXPECT_EQ(Read24BE(file, 1), 0xFE1280U);
}

TEST_F(FileNumbers, AReaderPastTheEndIsAFileError) {
  Hold({1, 2, 3});
  EXPECT_THROW(ReadLongBE(file, 0), FileError);
  EXPECT_THROW(ReadLongLE(file, 0), FileError);
  EXPECT_THROW(ReadWordBE(file, 2), FileError);
  EXPECT_THROW(Read24BE(file, 1), FileError);
  EXPECT_THROW(ReadLongLE(file, 0xFFFFFFFFFFFFFFFFU), FileError);
}

}  // namespace
}  // namespace oravin
