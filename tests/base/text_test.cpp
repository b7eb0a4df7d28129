#include "base/text.h"

#include <gtest/gtest.h>

namespace oravin {
namespace {

TEST(Text, TrimTakesBlanksAndNothingElse) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(Trim("\ta\n"), "\ta\n");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(Trim(""), "");
  std::string text = " x ";
  TrimInPlace(text);
  EXPECT_EQ(text, "x");
  std::string blanks = "  ";
  TrimInPlace(blanks);
  EXPECT_EQ(blanks, "");
}

TEST(Text, UpperCaseKnowsTheLettersOfTheCodePage) {
  EXPECT_EQ(UpperCase("azAZ09_"), "AZAZ09_");
  EXPECT_EQ(UpperCase("\xE0\xE4\xF6\xFC\xFE"), "\xC0\xC4\xD6\xDC\xDE");
  EXPECT_EQ(UpperCase("\x9A\x9C\x9E\xFF"), "\x8A\x8C\x8E\x9F");
  EXPECT_EQ(UpperCase("\xF7\xD7\xDF\xB5"), "\xF7\xD7\xDF\xB5");  // signs, sharp s and micro have no other case
}

TEST(Text, LowerCaseIsTheWayBack) {
  EXPECT_EQ(LowerCase("AZaz"), "azaz");
  for (int code = 0; code < 256; ++code) {
    const std::string one(1, static_cast<char>(code));
    if (UpperCase(one) != one) {
      EXPECT_EQ(LowerCase(UpperCase(one)), one) << code;
    }
    if (LowerCase(one) != one) {
      EXPECT_EQ(UpperCase(LowerCase(one)), one) << code;
    }
  }
}

TEST(Text, NamesAreComparedWithoutBlanksAtTheEndsAndWithoutRegardToCase) {
  EXPECT_TRUE(SameName(" Tiger ", "TIGER"));
  EXPECT_TRUE(SameName("J\xE4ger", "J\xC4GER"));
  EXPECT_TRUE(SameName("", "  "));
  EXPECT_FALSE(SameName("Tiger", "Tiger2"));
  EXPECT_FALSE(SameName("Ti ger", "Tiger"));
}

TEST(Text, DigitsAreGroupedByThousands) {
  EXPECT_EQ(Grouped(0), "0");
  EXPECT_EQ(Grouped(999), "999");
  EXPECT_EQ(Grouped(1000), "1,000");
  EXPECT_EQ(Grouped(1234567), "1,234,567");
  EXPECT_EQ(Grouped(18446744073709551615ULL), "18,446,744,073,709,551,615");
}

TEST(Text, NamesAreListedOneALine) {
  EXPECT_EQ(Listed({}), "");
  EXPECT_EQ(Listed({"a", "b"}), "\na\nb");
}

TEST(Text, AllNamesAreListedWhereTheTextCanBeScrolled) {
  EXPECT_EQ(AllListed({}), "");
  std::string all;
  const std::vector<std::string> names(50, "name");
  for (const std::string& name : names) all += "\n" + name;
  EXPECT_EQ(AllListed(names), all);
}

TEST(Text, OfManyNamesOnlyTheFirstTwentyAreListed) {
  std::vector<std::string> names(20, "x");
  std::string all;
  for (int i = 0; i < 20; ++i) all += "\nx";
  EXPECT_EQ(Listed(names), all);
  names.push_back("y");
  EXPECT_EQ(Listed(names), all + "\nand 1 more");
  names.push_back("z");
  EXPECT_EQ(Listed(names), all + "\nand 2 more");
}

TEST(Text, EveryByteComesBackThroughUtf8) {
  std::string all;
  for (int code = 0; code < 256; ++code) all += static_cast<char>(code);
  EXPECT_EQ(FromUtf8(ToUtf8(all)), all);
}

TEST(Text, TheUpperHalfOfTheCodePageIsRead) {
  EXPECT_EQ(ToUtf8("\x80"), "\xE2\x82\xAC");  // euro sign
  EXPECT_EQ(ToUtf8("\x8A"), "\xC5\xA0");      // S with caron
  EXPECT_EQ(ToUtf8("\xE4"), "\xC3\xA4");      // a with diaeresis
  EXPECT_EQ(FromUtf8("\xE2\x82\xAC\xC3\xA4z"), "\x80\xE4z");
}

TEST(Text, ACharacterOutsideTheCodePageBecomesASubstitute) {
  EXPECT_EQ(FromUtf8("a\xD0\x96z"), "a\x1Az");
  EXPECT_EQ(FromUtf8("\xF0\x9F\x9A\x80!"), "\x1A!");
  EXPECT_EQ(FromUtf8("a?"), "a?");
  EXPECT_EQ(ToUtf8("a\x1Az"), "a\xEF\xBF\xBDz") << "the replacement character";
}

TEST(Text, WhatIsNoUtf8IsNotTakenForACharacter) {
  EXPECT_EQ(FromUtf8("a\xE4z"), "a\x1Az") << "one byte of another code page";
  EXPECT_EQ(FromUtf8("\xC3("), "\x1A(") << "the second byte of a letter is missing";
  EXPECT_EQ(FromUtf8("\xA4"), "\x1A") << "the second byte alone";
  EXPECT_EQ(FromUtf8("\xC1\xA1"), "\x1A\x1A") << "an 'a' in a longer form than it needs";
  EXPECT_EQ(FromUtf8("\xE0\x83\xA4z"), "\x1A\x1A\x1Az");
  EXPECT_EQ(FromUtf8("\xE2\x82"), "\x1A\x1A") << "the end in the middle of a character";
}

TEST(Text, EveryCharacterOfTheCodePageIsItsOwnAndNoControlCharacterIs) {
  const std::string left = "\x81\x8D\x8F\x90\x9D";
  for (int code = 0; code < 256; ++code) {
    const char c = static_cast<char>(code);
    const bool own = code >= 32 && code != 127 && left.find(c) == std::string::npos;
    EXPECT_EQ(IsCodePageText(std::string("a") + c), own) << code;
  }
  EXPECT_TRUE(IsCodePageText(""));
  EXPECT_FALSE(IsCodePageText(FromUtf8("\xD0\x96")));
}

TEST(Text, APresentableTextIsShortAndHoldsNothingThatCannotBeShown) {
  EXPECT_EQ(Presentable("J\xE4ger?"), "J\xE4ger?");
  EXPECT_EQ(Presentable(std::string("a\0b\n\x1A\x7F\x81", 7)), "a?b????");
  EXPECT_EQ(Presentable(std::string(120, 'x')), std::string(120, 'x'));
  EXPECT_EQ(Presentable(std::string(60, 'a') + std::string(61, 'b')),
            std::string(58, 'a') + "..." + std::string(58, 'b'));
}

TEST(Text, BrokenUtf8DoesNoHarm) {
  EXPECT_EQ(FromUtf8("a\xE2\x82").front(), 'a');
  EXPECT_EQ(FromUtf8("\xC3").size(), 1U);
  EXPECT_EQ(FromUtf8("\xFF\xFF\xFF\xFFz").back(), 'z');
}

}  // namespace
}  // namespace oravin
