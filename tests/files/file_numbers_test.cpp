#include "files/file_numbers.h"

#include <gtest/gtest.h>

#include "base/run_time_error.h"
#include "support/temporary_folder.h"

namespace oravin {
namespace {

/// A file of some bytes, open on a handle.
struct HexUtil : testing::Test {
  test::TemporaryFolder folder;
  Files files;
  static constexpr int handle = 7;

  void Hold(const Bytes& bytes) {
    test::WriteFileAt(folder.Native("file"), bytes);
    OpenBinary(files, handle, folder.Windows("file"), platform::OpenFor::reading);
  }
};

TEST_F(HexUtil, ReadsFourBytesInEitherOrder) {
  Hold({0x00, 0x00, 0x03, 0xC7});
  EXPECT_EQ(ReadLongBE(files, 0, handle), 967U);
  EXPECT_EQ(ReadLongLE(files, 0, handle), 0xC7030000U);
  EXPECT_GT(ReadLongLE(files, 0, handle), 2000000000U);
}

TEST_F(HexUtil, A32BitResultIsNeverNegative) {
  Hold({0xFF, 0xFF, 0xFF, 0xFE});
  EXPECT_EQ(std::int64_t{ReadLongBE(files, 0, handle)}, 4294967294);
  EXPECT_EQ(std::int64_t{ReadLongLE(files, 0, handle)}, 4278190079);
}

TEST_F(HexUtil, ReadsTwoBytesInEitherOrder) {
  Hold({0x99, 0x12, 0x80});
  EXPECT_EQ(ReadWordBE(files, 1, handle), 0x1280U);
  EXPECT_EQ(ReadWordLE(files, 1, handle), 0x8012U);
}

TEST_F(HexUtil, ReadsThreeBytes) {
  Hold({0x99, 0xFE, 0x12, 0x80});
  EXPECT_EQ(Read24BE(files, 1, handle), 0xFE1280U);
}

TEST_F(HexUtil, AReaderPastTheEndIsARunTimeError) {
  Hold({1, 2, 3});
  EXPECT_THROW(ReadLongBE(files, 0, handle), RunTimeError);
  EXPECT_THROW(ReadLongLE(files, 0, handle), RunTimeError);
  EXPECT_THROW(ReadWordBE(files, 2, handle), RunTimeError);
  EXPECT_THROW(ReadWordLE(files, 3, handle), RunTimeError);
  EXPECT_THROW(Read24BE(files, 1, handle), RunTimeError);
  EXPECT_THROW(ReadLongLE(files, 0xFFFFFFFFFFFFFFFFU, handle), RunTimeError);
}

TEST_F(HexUtil, ReadsTextUpToTheZeroByteAndTellsWhereToReadOn) {
  Hold(BytesOf(std::string("ab\0cd\0", 6)));
  const CString first = ReadCString(files, 0, handle);
  EXPECT_EQ(first.text, "ab");
  EXPECT_EQ(first.next, 3U);
  const CString second = ReadCString(files, first.next, handle);
  EXPECT_EQ(second.text, "cd");
  EXPECT_EQ(second.next, 6U);
}

TEST_F(HexUtil, TextAtAZeroByteIsEmpty) {
  Hold({0, 'a', 0});
  const CString text = ReadCString(files, 0, handle);
  EXPECT_EQ(text.text, "");
  EXPECT_EQ(text.next, 1U);
}

TEST_F(HexUtil, TextKeepsCharactersAbove127) {
  Hold({0xE4, 0xFF, 0});
  EXPECT_EQ(ReadCString(files, 0, handle).text, "\xE4\xFF");
}

TEST_F(HexUtil, TextWithoutAnEndIsARunTimeError) {
  Hold(Bytes(40000, 'a'));
  EXPECT_THROW(ReadCString(files, 0, handle), RunTimeError);
}

}  // namespace
}  // namespace oravin
