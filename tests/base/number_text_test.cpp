#include "base/number_text.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <random>

namespace oravin {
namespace {

TEST(NumberFrom, ReadsWhatAPersonTypes) {
  EXPECT_EQ(NumberFrom("250"), 250.0);
  EXPECT_EQ(NumberFrom("  250 "), 250.0);
  EXPECT_EQ(NumberFrom("+0.5"), 0.5);
  EXPECT_EQ(NumberFrom("-0.5"), -0.5);
  EXPECT_EQ(NumberFrom(".5"), 0.5);
  EXPECT_EQ(NumberFrom("5."), 5.0);
  EXPECT_EQ(NumberFrom("1e3"), 1000.0);
}

TEST(NumberFrom, RefusesWhatIsNoNumber) {
  for (const char* text : {"", " ", "+", "-", ".", "abc", "1,5", "1 5", "1x", "0x10", "+-5", "++5", "- 5", "+ 5", "inf",
                           "nan", "-inf", "1e400"}) {
    EXPECT_EQ(NumberFrom(text), std::nullopt) << text;
  }
}

TEST(NumberText, IsReadByNumberFromAsTheSameNumber) {
  for (const float number : {1.0F / 3, 16777216.0F, 9999999.0F, std::numeric_limits<float>::denorm_min(),
                             std::numeric_limits<float>::max(), 0.30000001F}) {
    EXPECT_EQ(static_cast<float>(NumberFrom(NumberText(number)).value_or(-1)), number);
  }
}

TEST(NumberText, IsTheShortestDecimal) {
  EXPECT_EQ(NumberText(0.1F), "0.1");
  EXPECT_EQ(NumberText(250.0F), "250");
  EXPECT_EQ(NumberText(-0.5F), "-0.5");
  EXPECT_EQ(NumberText(1e20F), "1e+20");
  EXPECT_EQ(NumberText(0.0F), "0");
  EXPECT_EQ(NumberText(16777216.0F), "16777216");
  EXPECT_EQ(NumberText(1.17549435e-38F), "1.1754944e-38");
}

TEST(NumberText, ReadsBackAsTheSameNumber) {
  std::mt19937 random(1);
  for (int i = 0; i < 100000; ++i) {
    const auto number = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
    if (!std::isfinite(number)) continue;
    const std::string text = NumberText(number);
    float back = 0;
    std::from_chars(text.data(), text.data() + text.size(), back);
    ASSERT_EQ(std::bit_cast<std::uint32_t>(back), std::bit_cast<std::uint32_t>(number)) << text;
  }
}

}  // namespace
}  // namespace oravin
