#include "base/tagged_value.h"

#include <gtest/gtest.h>

#include "base/bytes.h"
#include "base/fixed_text.h"

namespace oravin {
namespace {

/// The value's bytes; and, read back, the value itself.
Bytes Written(const TaggedValue& value) {
  Bytes bytes;
  AppendTagged(bytes, value);
  std::size_t at = 0;
  const auto back = TakeTagged(bytes, at);
  EXPECT_TRUE(back);
  EXPECT_EQ(back.value_or(TaggedValue{}), value);
  EXPECT_EQ(at, bytes.size());
  return bytes;
}

TaggedValue Taken(const Bytes& bytes) {
  std::size_t at = 0;
  const auto value = TakeTagged(bytes, at);
  EXPECT_TRUE(value);
  return value.value_or(TaggedValue{});
}

TEST(TaggedValue, EmptyAndNullHaveNoBytesBehindTheTag) {
  EXPECT_EQ(Written({TaggedValue::empty, 0, {}}), (Bytes{0, 0}));
  EXPECT_EQ(Written({TaggedValue::null, 0, {}}), (Bytes{1, 0}));
}

TEST(TaggedValue, AWholeNumberOf16Bits) {
  EXPECT_EQ(Written(Int16Value(3)), (Bytes{2, 0, 3, 0}));
  EXPECT_EQ(Written(Int16Value(-2)), (Bytes{2, 0, 0xFE, 0xFF}));
  EXPECT_EQ(WholeNumber(Taken({2, 0, 0x00, 0x80})), -32768);
}

TEST(TaggedValue, AWholeNumberOf32BitsKeepsItsBitPattern) {
  EXPECT_EQ(Written(Int32Value(967)), (Bytes{3, 0, 0xC7, 3, 0, 0}));
  EXPECT_EQ(Written(Int32Value(0x80000001)), (Bytes{3, 0, 1, 0, 0, 0x80}));
  EXPECT_EQ(Unsigned32(Int32Value(0xFFFFFFFE)), 0xFFFFFFFEU);
  EXPECT_EQ(WholeNumber(Int32Value(0xFFFFFFFE)), -2);
}

TEST(TaggedValue, Floats) {
  EXPECT_EQ(Written({TaggedValue::single, -2.5, {}}), (Bytes{4, 0, 0, 0, 0x20, 0xC0}));
  EXPECT_EQ(Written({TaggedValue::real, -2.5, {}}), (Bytes{5, 0, 0, 0, 0, 0, 0, 0, 4, 0xC0}));
}

TEST(TaggedValue, Text) {
  EXPECT_EQ(Written({TaggedValue::text, 0, "a\xE4"}), (Bytes{8, 0, 2, 0, 'a', 0xE4}));
  EXPECT_EQ(Written({TaggedValue::text, 0, ""}), (Bytes{8, 0, 0, 0}));
}

TEST(TaggedValue, TruthValues) {
  EXPECT_EQ(Written(BooleanValue(true)), (Bytes{11, 0, 0xFF, 0xFF}));
  EXPECT_EQ(Written(BooleanValue(false)), (Bytes{11, 0, 0, 0}));
}

TEST(TaggedValue, AByteIsUnsigned) { EXPECT_EQ(Written({TaggedValue::byte, 200, {}}), (Bytes{17, 0, 200})); }

TEST(TaggedValue, AnyNumericTagIsReadAsAWholeNumber) {
  EXPECT_EQ(WholeNumber({TaggedValue::empty, 0, {}}), 0);
  EXPECT_EQ(WholeNumber({TaggedValue::byte, 200, {}}), 200);
  EXPECT_EQ(WholeNumber({TaggedValue::single, 17, {}}), 17);
  EXPECT_EQ(WholeNumber({TaggedValue::real, 17.4, {}}), 17);
  EXPECT_EQ(WholeNumber(BooleanValue(true)), -1);
  EXPECT_EQ(WholeNumber({TaggedValue::text, 0, " 42"}), 42);
  EXPECT_EQ(WholeNumber({TaggedValue::text, 0, "abc"}), 0);
}

TEST(TaggedValue, WhatIsNoNumberOrFarTooLargeCountsAsZero) {
  EXPECT_EQ(WholeNumber(Taken({5, 0, 0, 0, 0, 0, 0, 0, 0xF8, 0x7F})), 0);  // not a number
  EXPECT_EQ(WholeNumber(Taken({5, 0, 0, 0, 0, 0, 0, 0, 0xF0, 0x7F})), 0);  // infinity
  EXPECT_EQ(WholeNumber(Taken({4, 0, 0xFF, 0xFF, 0x7F, 0x7F})), 0);        // the largest single
  EXPECT_EQ(WholeNumber(TaggedValue{TaggedValue::text, 0, "1e300"}), 0);
}

TEST(TaggedValue, AnUnknownTagIsRefused) {
  for (const int tag : {6, 7, 9, 10, 12, 16, 18, 255}) {
    const Bytes bytes{static_cast<std::uint8_t>(tag), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    std::size_t at = 0;
    EXPECT_FALSE(TakeTagged(bytes, at)) << tag;
    EXPECT_EQ(at, 0U);
  }
  const Bytes highByte{2, 1, 0, 0};
  std::size_t at = 0;
  EXPECT_FALSE(TakeTagged(highByte, at));
}

TEST(TaggedValue, BytesThatEndTooEarlyAreRefused) {
  for (const Bytes& whole :
       {Bytes{2, 0, 1, 1}, Bytes{3, 0, 1, 1, 1, 1}, Bytes{4, 0, 1, 1, 1, 1}, Bytes{5, 0, 1, 1, 1, 1, 1, 1, 1, 1},
        Bytes{8, 0, 2, 0, 'a', 'b'}, Bytes{11, 0, 1, 1}, Bytes{17, 0, 1}}) {
    for (std::size_t length = 0; length < whole.size(); ++length) {
      const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
      std::size_t at = 0;
      EXPECT_FALSE(TakeTagged(cut, at)) << "tag " << unsigned{whole[0]} << ", " << length << " bytes";
    }
    std::size_t at = 0;
    EXPECT_TRUE(TakeTagged(whole, at));
  }
  std::size_t behind = 9;
  EXPECT_FALSE(TakeTagged(Bytes{2, 0, 1, 1}, behind));
}

TEST(TaggedValue, ATextPastTheEndIsRefused) {
  const Bytes bytes{8, 0, 0xFF, 0xFF, 'a'};
  std::size_t at = 0;
  EXPECT_FALSE(TakeTagged(bytes, at));
}

TEST(TaggedValue, ValuesFollowOneAnother) {
  Bytes bytes;
  AppendTagged(bytes, Int16Value(1));
  AppendTagged(bytes, {TaggedValue::text, 0, "x"});
  AppendTagged(bytes, Int32Value(2));
  std::size_t at = 0;
  EXPECT_EQ(TakeTagged(bytes, at), Int16Value(1));
  EXPECT_EQ(TakeTagged(bytes, at), (TaggedValue{TaggedValue::text, 0, "x"}));
  EXPECT_EQ(TakeTagged(bytes, at), Int32Value(2));
  EXPECT_EQ(at, bytes.size());
}

TEST(FixedText, IsPaddedWithBlanksAndCutAtItsWidth) {
  const FixedText<5> text("abc");
  EXPECT_EQ(std::string(text.characters.data(), 5), "abc  ");
  const FixedText<5> cut("abcdefgh");
  EXPECT_EQ(std::string(cut.characters.data(), 5), "abcde");
  EXPECT_EQ(std::string(FixedText<5>().characters.data(), 5), "     ");
}

TEST(FixedText, IsReadWithoutBlanksAndZeros) {
  EXPECT_EQ(FixedText<8>(" abc ").Trimmed(), "abc");
  EXPECT_EQ(FixedText<8>(std::string_view("abc\0\0\0\0\0", 8)).Trimmed(), "abc");
  EXPECT_EQ(FixedText<8>(std::string_view("ab \0xyz ", 8)).Trimmed(), "ab");
  EXPECT_EQ(FixedText<3>("abc").Trimmed(), "abc");
  EXPECT_EQ(FixedText<3>().Trimmed(), "");
}

TEST(FixedText, SettingAShorterTextLeavesNothingOfTheOld) {
  FixedText<6> text("abcdef");
  text.Set("x");
  EXPECT_EQ(text, FixedText<6>("x"));
}

}  // namespace
}  // namespace oravin
