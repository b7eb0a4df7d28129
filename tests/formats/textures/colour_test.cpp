#include "textures/colour.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>

#include "base/bytes.h"
#include "support/folder_image.h"
#include "textures/colour_kernels.h"

namespace oravin {
namespace {

/// The rule in floating point: scaled, and rounded to the nearest, halves to the even neighbour.
std::uint8_t Scale(int value, int from, int to) {
  return static_cast<std::uint8_t>(std::nearbyint(static_cast<double>(value) * to / from));
}

Bytes To24(const Bytes& input) {
  Bytes output(Size24Of16(input.size()));
  EXPECT_EQ(Convert16To24(input, output), output.size());
  return output;
}

Bytes To16(const Bytes& input) {
  Bytes output(Size16Of24(input.size()));
  EXPECT_EQ(Convert24To16(input, output), output.size());
  return output;
}

TEST(Colours16To24, OfTheEdgesOfTheirRange) {
  EXPECT_EQ(To24({0xFF, 0xFF}), (Bytes{255, 255, 255}));
  EXPECT_EQ(To24({0x00, 0x00}), (Bytes{0, 0, 0}));
  EXPECT_EQ(To24({0x00, 0xF8}), (Bytes{0, 0, 255}));  // pure red
}

TEST(Colours16To24, OfAll65536PixelsFollowTheRule) {
  Bytes input;
  Bytes expected;
  for (int pixel = 0; pixel < 65536; ++pixel) {
    input.push_back(static_cast<std::uint8_t>(pixel & 255));
    input.push_back(static_cast<std::uint8_t>(pixel >> 8));
    expected.push_back(Scale(pixel & 31, 31, 255));
    expected.push_back(Scale((pixel >> 5) & 63, 63, 255));
    expected.push_back(Scale(pixel >> 11, 31, 255));
  }
  EXPECT_TRUE(test::SameBytes(expected, To24(input)));
}

TEST(Colours16To24, OfEveryLengthAreTheBeginningOfALongerOne) {
  Bytes input;
  for (int i = 0; i < 2200; ++i) input.push_back(static_cast<std::uint8_t>(i * 7 + i / 256));
  const Bytes whole = To24(input);
  for (std::size_t length = 0; length < input.size(); ++length) {
    const Bytes part = To24(Bytes(input.begin(), input.begin() + static_cast<std::ptrdiff_t>(length)));
    ASSERT_EQ(part.size(), length / 2 * 3);
    ASSERT_TRUE(std::equal(part.begin(), part.end(), whole.begin())) << length;
  }
}

TEST(Colours24To16, OfGrey128) { EXPECT_EQ(To16({128, 128, 128}), (Bytes{0x10, 0x84})); }

TEST(Colours24To16, OfAll256ValuesOfEachPartFollowTheRule) {
  for (int part = 0; part < 3; ++part) {
    Bytes input;
    Bytes expected;
    for (int value = 0; value < 256; ++value) {
      int bgr[3] = {17, 130, 201};
      bgr[part] = value;
      for (const int v : bgr) input.push_back(static_cast<std::uint8_t>(v));
      const int pixel = Scale(bgr[2], 255, 31) << 11 | Scale(bgr[1], 255, 63) << 5 | Scale(bgr[0], 255, 31);
      expected.push_back(static_cast<std::uint8_t>(pixel & 255));
      expected.push_back(static_cast<std::uint8_t>(pixel >> 8));
    }
    EXPECT_TRUE(test::SameBytes(expected, To16(input))) << part;
    // One by one as well: short runs take another way through the code.
    for (std::size_t i = 0; i < 256; ++i) {
      EXPECT_EQ(To16({input[3 * i], input[3 * i + 1], input[3 * i + 2]}),
                (Bytes{expected[2 * i], expected[2 * i + 1]}));
    }
  }
}

TEST(Colours24To16, OfEveryLengthAreTheBeginningOfALongerOne) {
  Bytes input;
  for (int i = 0; i < 2400; ++i) input.push_back(static_cast<std::uint8_t>(i * 11 + i / 256));
  const Bytes whole = To16(input);
  for (std::size_t length = 0; length < input.size(); ++length) {
    const Bytes part = To16(Bytes(input.begin(), input.begin() + static_cast<std::ptrdiff_t>(length)));
    ASSERT_EQ(part.size(), length / 3 * 2);
    ASSERT_TRUE(std::equal(part.begin(), part.end(), whole.begin())) << length;
  }
}

TEST(Colours, ComeOutTheSameInBuffersAndInWideRegisters) {
  if constexpr (std::endian::native != std::endian::little) GTEST_SKIP() << "the buffers are not used here";
  for (std::size_t pixels = 0; pixels < 1100; pixels += 7) {
    Bytes narrow(2 * pixels);
    for (std::size_t i = 0; i < narrow.size(); ++i) narrow[i] = static_cast<std::uint8_t>(i * 37 + i / 256);
    const Bytes wide = To24(narrow);
    Bytes widened(wide.size());
    std::size_t done = WidenInBuffers(narrow.data(), pixels, widened.data());
    EXPECT_EQ(done, pixels / 256 * 256);
    EXPECT_TRUE(std::equal(wide.begin(), wide.begin() + static_cast<std::ptrdiff_t>(3 * done), widened.begin()));
    Bytes narrowed(narrow.size());
    done = NarrowInBuffers(wide.data(), pixels, narrowed.data());
    EXPECT_EQ(done, pixels / 256 * 256);
    EXPECT_TRUE(std::equal(narrow.begin(), narrow.begin() + static_cast<std::ptrdiff_t>(2 * done), narrowed.begin()));
  }
}

TEST(Colours, Of16BitsComeBackFrom24Unchanged) {
  Bytes input;
  for (int pixel = 0; pixel < 65536; ++pixel) {
    input.push_back(static_cast<std::uint8_t>(pixel & 255));
    input.push_back(static_cast<std::uint8_t>(pixel >> 8));
  }
  EXPECT_TRUE(test::SameBytes(input, To16(To24(input))));
}

}  // namespace
}  // namespace oravin
