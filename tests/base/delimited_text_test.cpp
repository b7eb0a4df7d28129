#include "base/delimited_text.h"

#include <gtest/gtest.h>

#include <vector>

#include "base/file_error.h"

namespace oravin {
namespace {

/// All values of a text.
std::vector<std::string> Values(std::string_view all) {
  DelimitedText text{"list.txt", all};
  std::vector<std::string> values;
  while (!AtEnd(text)) values.push_back(TakeText(text));
  return values;
}

using Texts = std::vector<std::string>;

/// What is wrong with a text, as it is told: the error's reason. Empty when nothing is.
template <typename Take>
std::string Wrong(std::string_view all, int count, Take&& take) {
  DelimitedText text{"list.txt", all};
  try {
    for (int i = 0; i < count; ++i) take(text);
    return {};
  } catch (const FileError& error) {
    EXPECT_EQ(error.operation, "could not read");
    EXPECT_EQ(error.path, "list.txt");
    return error.reason;
  }
}

std::string WrongText(std::string_view all, int count) {
  return Wrong(all, count, [](DelimitedText& text) { TakeText(text); });
}

std::string WrongNumber(std::string_view all, int count = 1) {
  return Wrong(all, count, [](DelimitedText& text) { TakeNumber(text); });
}

TEST(DelimitedText, CommasAndLineEndsSeparateValues) {
  EXPECT_EQ(Values("1,two,\"three\"\r\n4\n5\r6"), (Texts{"1", "two", "three", "4", "5", "6"}));
}

TEST(DelimitedText, ATextInQuotesMayHoldCommasAndBlanks) {
  EXPECT_EQ(Values("\"a, b\",\" c \""), (Texts{"a, b", " c "}));
}

TEST(DelimitedText, BlanksAndTabsAroundAValueDoNotCount) {
  EXPECT_EQ(Values(" \t1\t ,  \"a\"\t,two words \t\r\n 3"), (Texts{"1", "a", "two words", "3"}));
}

TEST(DelimitedText, AnItemsLineMayBeEmpty) {
  const std::vector<std::pair<std::string, Texts>> cases = {
      {"a\n\nb\n", {"a", "", "b"}},
      {"a\r\n\r\nb\r\n", {"a", "", "b"}},
      {"a\r\rb", {"a", "", "b"}},
      {" \t \nb", {"", "b"}},
      {"a, \n\"b, c\" \nd", {"a", "", "b, c", "d"}},
      {"a,", {"a", ""}},
      {"\n", {""}},
  };
  for (const auto& [all, items] : cases) {
    SCOPED_TRACE(all);
    DelimitedText text{"list.txt", all};
    for (const std::string& item : items) EXPECT_EQ(TakeItem(text), item);
    EXPECT_THROW(TakeItem(text), FileError) << "nothing is left";
  }
}

TEST(DelimitedText, BehindACommaAtTheEndStandsOneEmptyValueAndNoMore) {
  for (const std::string_view all : {"a,", "a, \t"}) {
    DelimitedText text{"list.txt", all};
    EXPECT_EQ(TakeText(text), "a");
    EXPECT_EQ(TakeText(text), "");
    EXPECT_TRUE(AtEnd(text));
    EXPECT_THROW(TakeText(text), FileError);
  }
}

TEST(DelimitedText, AnItemIsMissingWhereNothingButBlanksIsLeft) {
  const auto take = [](DelimitedText& text) { TakeItem(text); };
  EXPECT_EQ(Wrong("", 1, take), "it ends too early (line 1)");
  EXPECT_EQ(Wrong("a\n  ", 2, take), "it ends too early (line 2)");
  EXPECT_EQ(Wrong("a\n\"b", 2, take), "a quote is not closed (line 2)");
}

TEST(DelimitedText, TwoSeparatorsInARowHoldAnEmptyValue) {
  EXPECT_EQ(Values("1,,2"), (Texts{"1", "", "2"}));
  EXPECT_EQ(Values("1, ,2"), (Texts{"1", "", "2"}));
  EXPECT_EQ(Values("\"\",1"), (Texts{"", "1"}));
  EXPECT_EQ(Values(",1"), (Texts{"", "1"}));
}

TEST(DelimitedText, AnEmptyValueBehindTheLastCommaOfALine) { EXPECT_EQ(Values("1,\r\n2"), (Texts{"1", "", "2"})); }

TEST(DelimitedText, AnEmptyValueBehindTheVeryLastComma) {
  DelimitedText text{"list.txt", "1,"};
  EXPECT_EQ(TakeText(text), "1");
  EXPECT_EQ(TakeText(text), "");
}

TEST(DelimitedText, EmptyLinesStandForNothing) { EXPECT_EQ(Values("\r\n\r\n1\r\n\r\n\n2\n\n"), (Texts{"1", "2"})); }

TEST(DelimitedText, AtEndLooksPastBlanksAndLineEnds) {
  DelimitedText blank{"list.txt", " \t\r\n "};
  EXPECT_TRUE(AtEnd(blank));
  DelimitedText empty{"list.txt", ""};
  EXPECT_TRUE(AtEnd(empty));
  DelimitedText more{"list.txt", " \n x"};
  EXPECT_FALSE(AtEnd(more));
}

TEST(DelimitedText, AMissingValueIsAnErrorWithItsLine) {
  EXPECT_EQ(WrongText("", 1), "it ends too early (line 1)");
  EXPECT_EQ(WrongText("1\n2\n", 3), "it ends too early (line 3)");
}

TEST(DelimitedText, AQuoteThatIsNotClosedOnItsLineIsAnErrorWithItsLine) {
  EXPECT_EQ(WrongText("1\r\n2\r\n\"abc\r\n\",3", 3), "a quote is not closed (line 3)");
  EXPECT_EQ(WrongText("\"abc", 1), "a quote is not closed (line 1)");
  EXPECT_EQ(WrongText("\"", 1), "a quote is not closed (line 1)");
}

TEST(DelimitedText, TextBehindAQuoteIsAnErrorWithItsLine) {
  EXPECT_EQ(WrongText("1\n\"abc\" def,2", 2), "a comma is missing after a quote (line 2)");
  EXPECT_EQ(WrongText("\"abc\"\"def\"", 1), "a comma is missing after a quote (line 1)");
}

TEST(DelimitedText, NumbersInPlainDecimals) {
  DelimitedText text{"list.txt", "1,-2.5,+3,.5,1e3,0.015625"};
  EXPECT_EQ(TakeNumber(text), 1);
  EXPECT_EQ(TakeNumber(text), -2.5);
  EXPECT_EQ(TakeNumber(text), 3);
  EXPECT_EQ(TakeNumber(text), 0.5);
  EXPECT_EQ(TakeNumber(text), 1000);
  EXPECT_EQ(TakeNumber(text), 0.015625);
}

TEST(DelimitedText, ANumberMayStandInQuotes) {
  DelimitedText text{"list.txt", "\"17\""};
  EXPECT_EQ(TakeNumber(text), 17);
}

TEST(DelimitedText, WhatIsNoNumberIsAnErrorWithItsLine) {
  EXPECT_EQ(WrongNumber("1\r\n\r\nabc", 2), "\"abc\" is no number (line 3)");
  EXPECT_EQ(WrongNumber("1,,2", 2), "\"\" is no number (line 1)");
  EXPECT_EQ(WrongNumber("12x"), "\"12x\" is no number (line 1)");
  EXPECT_EQ(WrongNumber("1 2"), "\"1 2\" is no number (line 1)");
  EXPECT_EQ(WrongNumber("+"), "\"+\" is no number (line 1)");
  EXPECT_EQ(WrongNumber("nan"), "\"nan\" is no number (line 1)");
  EXPECT_EQ(WrongNumber("inf"), "\"inf\" is no number (line 1)");
  EXPECT_EQ(WrongNumber("1e999"), "\"1e999\" is no number (line 1)");
}

TEST(DelimitedText, ALongValueIsNotShownWhole) {
  EXPECT_EQ(WrongNumber(std::string(1000, 'x')), "\"" + std::string(40, 'x') + "\" is no number (line 1)");
}

TEST(DelimitedText, WholeNumbersInTheirBounds) {
  DelimitedText text{"list.txt", "1,5,3.0"};
  EXPECT_EQ(TakeWhole(text, 1, 5), 1);
  EXPECT_EQ(TakeWhole(text, 1, 5), 5);
  EXPECT_EQ(TakeWhole(text, 1, 5), 3);
}

TEST(DelimitedText, AWholeNumberOutOfItsBoundsIsAnErrorWithItsLine) {
  const auto wrong = [](std::string_view all) {
    return Wrong(all, 1, [](DelimitedText& text) { TakeWhole(text, -1, 5); });
  };
  EXPECT_EQ(wrong("\n6"), "a whole number from -1 to 5 is wanted (line 2)");
  EXPECT_EQ(wrong("-2"), "a whole number from -1 to 5 is wanted (line 1)");
  EXPECT_EQ(wrong("1.5"), "a whole number from -1 to 5 is wanted (line 1)");
  EXPECT_EQ(wrong("99999999999"), "a whole number from -1 to 5 is wanted (line 1)");
  EXPECT_EQ(wrong("-1"), "");
}

TEST(DelimitedText, AZeroByteIsACharacterLikeAnyOther) {
  EXPECT_EQ(Values(std::string("a\0b,c", 5)), (Texts{std::string("a\0b", 3), "c"}));
}

}  // namespace
}  // namespace oravin
