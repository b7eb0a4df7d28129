#include "util/Hex_Util.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"
#include "util/run_time_error.h"

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

TEST(StrToByteArray, GivesTheCharactersOfTheTrimmedText) {
  Bytes bytes{9, 9, 9, 9, 9};
  EXPECT_EQ(StrToByteArray("  a\xE4z ", bytes), 3U);
  EXPECT_EQ(bytes, (Bytes{'a', 0xE4, 'z'}));
}

TEST(StrToByteArray, AnEmptyTextGivesOneZeroByte) {
  Bytes bytes{9, 9};
  EXPECT_EQ(StrToByteArray("   ", bytes), 0U);
  EXPECT_EQ(bytes, (Bytes{0}));
}

using FourBytes = std::array<std::uint8_t, 4>;

TEST(HexToByteArray, ShortTextIsAlignedToTheRight) {
  std::string text = "3c7";
  FourBytes bytes{9, 9, 9, 9};
  EXPECT_TRUE(HexToByteArray(text, bytes));
  EXPECT_EQ(bytes, (FourBytes{0, 0, 0x03, 0xC7}));
}

TEST(HexToByteArray, TrimsTheCallersTextAndPutsItInUpperCase) {
  std::string text = "  deadBEEF ";
  FourBytes bytes{};
  EXPECT_TRUE(HexToByteArray(text, bytes));
  EXPECT_EQ(text, "DEADBEEF");
  EXPECT_EQ(bytes, (FourBytes{0xDE, 0xAD, 0xBE, 0xEF}));
}

TEST(HexToByteArray, OfLongerTextTheLastEightCharactersCount) {
  std::string text = "zz12345678";
  FourBytes bytes{};
  EXPECT_TRUE(HexToByteArray(text, bytes));
  EXPECT_EQ(bytes, (FourBytes{0x12, 0x34, 0x56, 0x78}));
}

TEST(HexToByteArray, ACharacterThatIsNoDigitEndsItWithTheBytesFilledInPart) {
  std::string text = "12G4";
  FourBytes bytes{9, 9, 9, 9};
  EXPECT_FALSE(HexToByteArray(text, bytes));
  EXPECT_EQ(bytes[0], 0);
  EXPECT_EQ(bytes[1], 0);
  EXPECT_EQ(bytes[2], 0);  // the places left of the character were never reached
  std::string minus = "-1";
  EXPECT_FALSE(HexToByteArray(minus, bytes));
  std::string colon = "1:";
  EXPECT_FALSE(HexToByteArray(colon, bytes));
}

TEST(HexToByteArray, AnEmptyTextIsZero) {
  std::string text;
  FourBytes bytes{9, 9, 9, 9};
  EXPECT_TRUE(HexToByteArray(text, bytes));
  EXPECT_EQ(bytes, (FourBytes{0, 0, 0, 0}));
}

TEST(DecToHex, UpperCaseDigitsWithoutLeadingZeros) {
  EXPECT_EQ(DecToHex(0), "0");
  EXPECT_EQ(DecToHex(967), "3C7");
  EXPECT_EQ(DecToHex(0xFFFFFFFF), "FFFFFFFF");
}

TEST(DecToByteArray, TheLowestByteFirst) {
  EXPECT_EQ(DecToByteArray(967), (FourBytes{0xC7, 0x03, 0, 0}));
  EXPECT_EQ(DecToByteArray(0), (FourBytes{0, 0, 0, 0}));
  EXPECT_EQ(DecToByteArray(0xFFFFFFFF), (FourBytes{0xFF, 0xFF, 0xFF, 0xFF}));
}

TEST(DecToByteArray, ANumberOfMoreThan32BitsKeepsItsLowestOnes) {
  EXPECT_EQ(DecToByteArray(0x1'2345'6789), (FourBytes{0x89, 0x67, 0x45, 0x23}));
}

TEST(DecToByteArray, ComesBackThroughTheLittleEndianReader) {
  for (const std::uint32_t number : {0U, 1U, 255U, 256U, 967U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
    EXPECT_EQ(LittleEndian32(DecToByteArray(number).data()), number);
  }
}

TEST(Shifts, RightDividesAndLeftMultipliesByTwo) {
  EXPECT_EQ(ShiftRight(967, 3), 120);
  EXPECT_EQ(ShiftRight(1, 1), 0);
  EXPECT_EQ(ShiftRight(5, 0), 5);
  EXPECT_EQ(ShiftRight(-3, 1), -1);  // the remainder is dropped
  EXPECT_EQ(ShiftLeft(3, 4), 48);
  EXPECT_EQ(ShiftLeft(1, 40), std::int64_t{1} << 40);
  EXPECT_EQ(ShiftLeft(5, 0), 5);
}

}  // namespace
}  // namespace oravin
