#include "base/hex_text.h"

#include <gtest/gtest.h>

#include "base/bytes.h"

namespace oravin {
namespace {

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

TEST(HexToByteArray, ACharacterThatIsNoDigitIsRefused) {
  std::string text = "12G4";
  FourBytes bytes{9, 9, 9, 9};
  EXPECT_FALSE(HexToByteArray(text, bytes));
  EXPECT_EQ(bytes[0], 0);
  EXPECT_EQ(bytes[1], 0);
  EXPECT_EQ(bytes[2], 0);
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

}  // namespace
}  // namespace oravin
