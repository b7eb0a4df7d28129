#include "desk/message_length.h"

#include <gtest/gtest.h>

namespace oravin {
namespace {

/// So many lines of so many characters each.
std::string Lines(std::size_t count, std::size_t length) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) text += (i > 0 ? "\n" : "") + std::string(length, 'x');
  return text;
}

bool IsLongText(const std::string& text) { return IsLong({text, programTitle, Icon::none, Buttons::ok, false}); }

TEST(ShownLines, AnEmptyLineCountsAsOne) {
  EXPECT_EQ(ShownLines(""), 1U);
  EXPECT_EQ(ShownLines("\n"), 2U);
  EXPECT_EQ(ShownLines("One\n\nThree\n"), 4U);
}

TEST(ShownLines, ALineOfMoreThanSixtyCharactersCountsAsSeveral) {
  EXPECT_EQ(ShownLines(Lines(1, 60)), 1U);
  EXPECT_EQ(ShownLines(Lines(1, 61)), 2U);
  EXPECT_EQ(ShownLines(Lines(1, 120)), 2U);
  EXPECT_EQ(ShownLines(Lines(1, 121)), 3U);
  EXPECT_EQ(ShownLines(Lines(3, 61)), 6U);
  EXPECT_EQ(ShownLines(Lines(1, 60) + "\n" + Lines(1, 61) + "\n"), 4U);
}

TEST(IsLong, AMessageOfMoreThanTwentyEightShortLinesIs) {
  EXPECT_FALSE(IsLongText(""));
  EXPECT_FALSE(IsLongText(Lines(28, 60)));
  EXPECT_TRUE(IsLongText(Lines(29, 1)));
}

TEST(IsLong, AMessageOfFewLinesThatAreBrokenIsToo) {
  EXPECT_FALSE(IsLongText(Lines(14, 120)));
  EXPECT_TRUE(IsLongText(Lines(15, 61)));
  EXPECT_TRUE(IsLongText(Lines(1, 28 * 60 + 1)));
}

}  // namespace
}  // namespace oravin
