// The decompressor against streams written by hand, against a plain byte-by-byte decoder, and on damaged streams.

#include "archive/decompress.h"

#include <gtest/gtest.h>

#include <numeric>
#include <random>

#include "base/file_error.h"
#include "demo/compressor.h"
#include "reference_decoder.h"
#include "support/folder_image.h"

namespace oravin::test {
namespace {

constexpr const char* tooEarly = "could not unpack the entry: its compressed data end too early";
constexpr const char* beforeStart = "could not unpack the entry: it refers to what lies before its start";

Bytes operator+(Bytes a, const Bytes& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

/// An entry that unpacks to `size` bytes.
Bytes Entry(std::size_t size, const Bytes& commands) {
  return Bytes{0x10, 0xFB, static_cast<std::uint8_t>(size >> 16), static_cast<std::uint8_t>(size >> 8),
               static_cast<std::uint8_t>(size)} +
         commands;
}

Bytes Unpack(const Bytes& entry) {
  Unpacked unpacked;
  Decompress(entry, unpacked);
  return {unpacked.Span().begin(), unpacked.Span().end()};
}

/// What the decompressor complains of; empty when it does not.
std::string Complaint(const Bytes& entry) {
  Unpacked unpacked;
  try {
    Decompress(entry, unpacked);
    return {};
  } catch (const FileError& error) {
    EXPECT_EQ(unpacked.size, 0U);
    return error.what();
  }
}

Bytes Counting(std::size_t count, int first = 1) {
  Bytes bytes(count);
  std::iota(bytes.begin(), bytes.end(), static_cast<std::uint8_t>(first));
  return bytes;
}

/// A run of literals; as many as the bytes are, a multiple of 4 up to 112.
Bytes LiteralRun(const Bytes& literals) {
  return Bytes{static_cast<std::uint8_t>(0xE0 + literals.size() / 4 - 1)} + literals;
}

/// Commands behind the ones under test, so that these are not among the stream's last ones: 400 literals.
Bytes Following() {
  Bytes commands;
  for (int i = 0; i < 4; ++i) commands = commands + LiteralRun(Counting(100, 50 + i));
  return commands;
}

Bytes FollowingContent() {
  Bytes content;
  for (int i = 0; i < 4; ++i) content = content + Counting(100, 50 + i);
  return content;
}

/// The commands unpack to the content, both as the stream's last ones and with many behind them.
void ExpectContent(const Bytes& commands, const Bytes& content) {
  EXPECT_TRUE(SameBytes(content, Unpack(Entry(content.size(), commands + Bytes{0xFC}))));
  EXPECT_TRUE(SameBytes(content, Unpack(Entry(content.size(), commands))));
  EXPECT_TRUE(SameBytes(content + FollowingContent(), Unpack(Entry(content.size() + 400, commands + Following()))));
}

/// `output` with `count` bytes more, copied one by one from `distance` behind its end.
Bytes WithCopy(Bytes output, std::size_t distance, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) output.push_back(output[output.size() - distance]);
  return output;
}

Bytes ShortCopy(std::size_t distance, std::size_t count, const Bytes& literals = {}) {
  return Bytes{static_cast<std::uint8_t>((distance - 1) / 256 * 32 + (count - 3) * 4 + literals.size()),
               static_cast<std::uint8_t>(distance - 1)} +
         literals;
}

Bytes MediumCopy(std::size_t distance, std::size_t count, const Bytes& literals = {}) {
  return Bytes{static_cast<std::uint8_t>(0x80 + count - 4),
               static_cast<std::uint8_t>(literals.size() * 64 + (distance - 1) / 256),
               static_cast<std::uint8_t>(distance - 1)} +
         literals;
}

Bytes LongCopy(std::size_t distance, std::size_t count, const Bytes& literals = {}) {
  const std::size_t d = distance - 1;
  return Bytes{static_cast<std::uint8_t>(0xC0 + (d >> 16) * 16 + (count - 5) / 256 * 4 + literals.size()),
               static_cast<std::uint8_t>(d >> 8), static_cast<std::uint8_t>(d), static_cast<std::uint8_t>(count - 5)} +
         literals;
}

TEST(Decompress, LiteralRunsOfEveryLength) {
  for (std::size_t count = 4; count <= 112; count += 4) ExpectContent(LiteralRun(Counting(count)), Counting(count));
}

TEST(Decompress, AShortCopyTakesItsNumbersFromTwoBytes) {
  // 79 = 0 11 110 01: distance 3 * 256 + 0x20 + 1, 9 bytes, 1 literal.
  const Bytes start = LiteralRun(Counting(100)) + LiteralRun(Counting(100, 101)) + LiteralRun(Counting(100, 7)) +
                      LiteralRun(Counting(100, 9)) + LiteralRun(Counting(100)) + LiteralRun(Counting(100)) +
                      LiteralRun(Counting(100)) + LiteralRun(Counting(100)) + LiteralRun(Counting(100, 77));
  Bytes content = Counting(100) + Counting(100, 101) + Counting(100, 7) + Counting(100, 9) + Counting(100) +
                  Counting(100) + Counting(100) + Counting(100) + Counting(100, 77) + Bytes{0xAA};
  content = WithCopy(content, 801, 9);
  ExpectContent(start + Bytes{0x79, 0x20, 0xAA}, content);
}

TEST(Decompress, AMediumCopyTakesItsNumbersFromThreeBytes) {
  // 87 82 01: distance 2 * 256 + 1 + 1, 11 bytes, 2 literals.
  Bytes start;
  Bytes content;
  for (int i = 0; i < 6; ++i) {
    start = start + LiteralRun(Counting(100, 3 * i));
    content = content + Counting(100, 3 * i);
  }
  ExpectContent(start + Bytes{0x87, 0x82, 0x01, 0xAA, 0xBB}, WithCopy(content + Bytes{0xAA, 0xBB}, 514, 11));
}

TEST(Decompress, ALongCopyTakesItsNumbersFromFourBytes) {
  // C7 01 02 03: distance 0x0102 + 1, 256 + 3 + 5 bytes, 3 literals.
  Bytes start;
  Bytes content;
  for (int i = 0; i < 3; ++i) {
    start = start + LiteralRun(Counting(100, 3 * i));
    content = content + Counting(100, 3 * i);
  }
  ExpectContent(start + Bytes{0xC7, 0x01, 0x02, 0x03, 1, 2, 3}, WithCopy(content + Bytes{1, 2, 3}, 259, 264));
}

TEST(Decompress, ALongCopyReaches131072BytesBack) {
  Bytes commands = LiteralRun({9, 8, 7, 6}) + LongCopy(4, 1028);
  Bytes content = WithCopy({9, 8, 7, 6}, 4, 1028);
  while (content.size() < 131072 - 1028) {
    commands = commands + LongCopy(1, 1024, {static_cast<std::uint8_t>(content.size() / 512)});
    content = WithCopy(content + Bytes{static_cast<std::uint8_t>(content.size() / 512)}, 1, 1024);
  }
  const std::size_t rest = 131072 - content.size();
  commands = commands + LongCopy(1, rest);
  content = WithCopy(content, 1, rest);
  ExpectContent(commands + LongCopy(131072, 700), WithCopy(content, 131072, 700));
}

TEST(Decompress, EveryCopyFormWithEveryNumberOfLiterals) {
  const Bytes start = Counting(100);
  for (std::size_t literals = 0; literals <= 3; ++literals) {
    const Bytes extra = Counting(literals, 200);
    ExpectContent(LiteralRun(start) + ShortCopy(90, 10, extra), WithCopy(start + extra, 90, 10));
    ExpectContent(LiteralRun(start) + MediumCopy(90, 67, extra), WithCopy(start + extra, 90, 67));
    ExpectContent(LiteralRun(start) + LongCopy(90, 1028, extra), WithCopy(start + extra, 90, 1028));
  }
}

TEST(Decompress, CopiesThatOverlapWhatTheyWriteRepeatIt) {
  const Bytes start = Counting(20);
  for (std::size_t distance = 1; distance <= 20; ++distance) {
    SCOPED_TRACE(distance);
    for (std::size_t count = 3; count <= 10; ++count) {
      ExpectContent(LiteralRun(start) + ShortCopy(distance, count), WithCopy(start, distance, count));
    }
    for (std::size_t count = 4; count <= 67; ++count) {
      ExpectContent(LiteralRun(start) + MediumCopy(distance, count), WithCopy(start, distance, count));
    }
    for (const std::size_t count : {5U, 6U, 15U, 16U, 17U, 31U, 33U, 100U, 255U, 256U, 261U, 1000U, 1027U, 1028U}) {
      ExpectContent(LiteralRun(start) + LongCopy(distance, count), WithCopy(start, distance, count));
    }
  }
}

TEST(Decompress, TwoZeroBytesAfterOneByteRepeatItThreeTimes) {
  EXPECT_EQ(Unpack(Entry(5, {0x01, 0x00, 'x', 0xFC})), (Bytes{'x', 'x', 'x', 'x', 0}));
  EXPECT_EQ(Unpack(Entry(7, {0xE0, 'a', 'b', 'c', 'd', 0x00, 0x00, 0xFC})), (Bytes{'a', 'b', 'c', 'd', 'd', 'd', 'd'}));
}

TEST(Decompress, AnEndCommandAloneGivesZeros) {
  EXPECT_EQ(Unpack(Entry(1000, {0xFC})), Bytes(1000));
  EXPECT_EQ(Unpack(Entry(0xFFFFFF, {0xFC})), Bytes(0xFFFFFF));
}

TEST(Decompress, AnEndCommandBringsUpToThreeLiterals) {
  for (std::uint8_t literals = 0; literals <= 3; ++literals) {
    const Bytes bytes = Counting(literals);
    EXPECT_EQ(Unpack(Entry(3, Bytes{static_cast<std::uint8_t>(0xFC + literals)} + bytes)),
              bytes + Bytes(3U - literals));
  }
}

TEST(Decompress, WhatAStreamThatEndsEarlyLeavesIsZero) {
  EXPECT_EQ(Unpack(Entry(10, LiteralRun(Counting(4)) + Bytes{0xFD, 99})), Counting(4) + Bytes{99} + Bytes(5));
}

TEST(Decompress, WhatFollowsTheEndCommandIsNotLookedAt) {
  EXPECT_EQ(Unpack(Entry(6, LiteralRun(Counting(4)) + Bytes{0xFC} + LiteralRun(Counting(100)))),
            Counting(4) + Bytes(2));
  EXPECT_EQ(Unpack(Entry(6, LiteralRun(Counting(4)) + Bytes{0xFC, 0x00})), Counting(4) + Bytes(2));
}

TEST(Decompress, WhatGoesBeyondTheSizeIsCutOff) {
  EXPECT_EQ(Unpack(Entry(3, LiteralRun(Counting(100)))), Counting(3));
  EXPECT_EQ(Unpack(Entry(3, LiteralRun(Counting(100)) + Following())), Counting(3));
  EXPECT_EQ(Unpack(Entry(21, LiteralRun(Counting(20)) + LongCopy(7, 1028))), WithCopy(Counting(20), 7, 1));
  EXPECT_EQ(Unpack(Entry(21, LiteralRun(Counting(20)) + LongCopy(7, 1028) + Following())),
            WithCopy(Counting(20), 7, 1));
}

TEST(Decompress, NothingIsReadOnceTheSizeIsReached) {
  EXPECT_EQ(Unpack(Entry(4, LiteralRun(Counting(4)))), Counting(4));
  EXPECT_EQ(Unpack(Entry(4, LiteralRun(Counting(4)) + ShortCopy(700, 3))), Counting(4));
}

TEST(Decompress, ASizeOfZeroNeedsNoCommands) {
  EXPECT_EQ(Unpack(Entry(0, {})), Bytes());
  EXPECT_EQ(Unpack(Entry(0, {0x00})), Bytes());
  EXPECT_EQ(Unpack(Entry(0, LiteralRun(Counting(100)) + Following())), Bytes());
}

TEST(Decompress, TheSizeIsReadWithItsHighestByteFirst) { EXPECT_EQ(Unpack(Entry(0x010203, {0xFC})).size(), 0x010203U); }

TEST(Decompress, TheLongHeaderHasANumberMoreThatIsPassedOver) {
  const Bytes entry = Bytes{0x11, 0xFB, 0xEE, 0xEE, 0xEE, 0, 0, 6} + LiteralRun(Counting(4)) + Bytes{0xFE, 7, 8};
  EXPECT_EQ(Unpack(entry), Counting(4) + Bytes({7, 8}));
}

TEST(Decompress, AnEntryShorterThanItsHeaderIsRefused) {
  for (std::size_t length = 0; length < 5; ++length) {
    EXPECT_EQ(Complaint(Bytes(length, 0x10)), tooEarly) << length;
  }
  for (std::size_t length = 1; length < 8; ++length) {
    EXPECT_EQ(Complaint(Bytes(length, 0x11)), tooEarly) << length;
  }
}

TEST(Decompress, AStreamThatRunsOutAtAnyLengthIsRefused) {
  const Bytes entry = Entry(2000, LiteralRun(Counting(112)) + ShortCopy(3, 4, {1, 2}) + MediumCopy(60, 40, {3}) +
                                      LongCopy(100, 700, {4, 5, 6}) + LiteralRun(Counting(8)) + Bytes{0xFE, 7, 8});
  EXPECT_EQ(Complaint(entry), "");
  for (std::size_t length = 5; length < entry.size(); ++length) {
    EXPECT_EQ(Complaint(Bytes(entry.begin(), entry.begin() + static_cast<std::ptrdiff_t>(length))), tooEarly) << length;
  }
}

TEST(Decompress, LiteralsThatRunOutBehindTheSizeAreRefusedToo) {
  EXPECT_EQ(Complaint(Entry(2, {0xE0, 1, 2, 3})), tooEarly);
}

TEST(Decompress, AReferenceToBeforeTheStartIsRefused) {
  EXPECT_EQ(Complaint(Entry(10, {0x00, 0x00})), beforeStart);
  EXPECT_EQ(Complaint(Entry(10, LiteralRun(Counting(4)) + ShortCopy(5, 3))), beforeStart);
  EXPECT_EQ(Complaint(Entry(10, LiteralRun(Counting(4)) + MediumCopy(16384, 4))), beforeStart);
  EXPECT_EQ(Complaint(Entry(10, LiteralRun(Counting(4)) + LongCopy(131072, 5))), beforeStart);
  EXPECT_EQ(Complaint(Entry(500, LiteralRun(Counting(4)) + ShortCopy(5, 3) + Following())), beforeStart);
  EXPECT_EQ(Complaint(Entry(500, LiteralRun(Counting(4)) + MediumCopy(5, 4) + Following())), beforeStart);
  EXPECT_EQ(Complaint(Entry(500, LiteralRun(Counting(4)) + LongCopy(5, 5) + Following())), beforeStart);
}

TEST(Decompress, TheVeryFirstByteIsWithinReachAndTheOneBeforeItIsNot) {
  const Bytes start = Counting(100);
  const auto run = LiteralRun(start);
  ExpectContent(run + ShortCopy(100, 3), WithCopy(start, 100, 3));
  ExpectContent(run + MediumCopy(100, 4), WithCopy(start, 100, 4));
  ExpectContent(run + LongCopy(100, 5), WithCopy(start, 100, 5));
  for (const Bytes& behind : {Bytes{0xFC}, Following()}) {
    EXPECT_EQ(Complaint(Entry(500, run + ShortCopy(101, 3) + behind)), beforeStart);
    EXPECT_EQ(Complaint(Entry(500, run + MediumCopy(101, 4) + behind)), beforeStart);
    EXPECT_EQ(Complaint(Entry(500, run + LongCopy(101, 5) + behind)), beforeStart);
  }
}

TEST(Decompress, ACommandsOwnLiteralsCountForItsReference) {
  ExpectContent(ShortCopy(3, 5, {1, 2, 3}), WithCopy({1, 2, 3}, 3, 5));
  ExpectContent(MediumCopy(3, 5, {1, 2, 3}), WithCopy({1, 2, 3}, 3, 5));
  ExpectContent(LongCopy(3, 5, {1, 2, 3}), WithCopy({1, 2, 3}, 3, 5));
}

TEST(Decompress, TheErrorNamesTheEntry) {
  Unpacked unpacked;
  try {
    Decompress(Bytes(), unpacked, "ships\\alpha.shp");
    ADD_FAILURE() << "nothing was thrown";
  } catch (const FileError& error) {
    EXPECT_STREQ(error.what(), "could not unpack ships\\alpha.shp: its compressed data end too early");
  }
}

TEST(Decompress, MemoryThatIsUsedAgainShowsNothingOfItsOldContent) {
  Unpacked unpacked;
  Decompress(Entry(5000, LiteralRun(Counting(4)) + LongCopy(4, 1028) + Bytes{0xFC}), unpacked);
  const std::uint8_t* const memory = unpacked.bytes.get();
  Decompress(Entry(3000, LiteralRun(Counting(4, 9)) + Bytes{0xFC}), unpacked);
  EXPECT_EQ(unpacked.bytes.get(), memory);
  EXPECT_TRUE(SameBytes(Counting(4, 9) + Bytes(2996), {unpacked.Span().begin(), unpacked.Span().end()}));
  EXPECT_THROW(Decompress(Entry(10, {0x00, 0x00}), unpacked), FileError);
  EXPECT_TRUE(unpacked.Span().empty());
  Decompress(Entry(200000, {0xFC}), unpacked);
  EXPECT_TRUE(SameBytes(Bytes(200000), {unpacked.Span().begin(), unpacked.Span().end()}));
}

/// Content of one of several kinds: noise, long repeats, few different bytes, text-like.
Bytes RandomContent(std::mt19937& random, std::size_t size) {
  Bytes content;
  const unsigned letters = 1U << random() % 9;
  while (content.size() < size) {
    if (content.size() > 20 && random() % 3 == 0) {
      const std::size_t distance = 1 + random() % std::min<std::size_t>(content.size(), 140000);
      content = WithCopy(std::move(content), distance, random() % 90);
    } else {
      content.push_back(static_cast<std::uint8_t>(random() % letters));
    }
  }
  content.resize(size);
  return content;
}

TEST(Decompress, RandomContentComesBackFromTheCompressor) {
  std::mt19937 random(7);  // NOLINT(cert-msc51-cpp): the same content every time
  for (int round = 0; round < 200; ++round) {
    const Bytes content = RandomContent(random, random() % 9 == 0 ? random() % 60000 : random() % 700);
    SCOPED_TRACE(round);
    for (const demo::Effort effort : {demo::Effort::kFast, demo::Effort::kNormal}) {
      ASSERT_TRUE(SameBytes(content, Unpack(demo::Compress(content, effort))));
    }
  }
}

/// Commands of every form; about one stream in eight refers to before its start somewhere.
Bytes RandomCommands(std::mt19937& random, std::size_t count) {
  const bool wild = random() % 8 == 0;
  Bytes commands;
  std::size_t made = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const Bytes literals = Counting(random() % 4, static_cast<int>(random() % 256));
    const std::size_t most = wild ? 131072 : made + literals.size();
    const auto distance = [&](std::size_t farthest) { return 1 + random() % std::min(most, farthest); };
    const unsigned form = most == 0 ? 3 : random() % 4;
    std::size_t copied = 0;
    if (form == 0) {
      commands = std::move(commands) + ShortCopy(distance(1024), copied = 3 + random() % 8, literals);
    } else if (form == 1) {
      commands = std::move(commands) + MediumCopy(distance(16384), copied = 4 + random() % 64, literals);
    } else if (form == 2) {
      commands = std::move(commands) + LongCopy(distance(131072), copied = 5 + random() % 1024, literals);
    } else {
      const Bytes run = Counting(4 * (1 + random() % 28), static_cast<int>(random() % 256));
      commands = std::move(commands) + LiteralRun(run);
      made += run.size();
      continue;
    }
    made += literals.size() + copied;
  }
  return commands;
}

TEST(Decompress, RandomCommandsUnpackAsInThePlainDecoder) {
  std::mt19937 random(11);  // NOLINT(cert-msc51-cpp): the same commands every time
  int refused = 0;
  int unpacked = 0;
  for (int round = 0; round < 3000; ++round) {
    const Bytes commands = RandomCommands(random, 1 + random() % 60);
    Bytes entry = Entry(random() % 20000, commands + Bytes{static_cast<std::uint8_t>(0xFC + random() % 4), 1, 2, 3});
    if (random() % 4 == 0) entry.resize(5 + random() % (entry.size() - 4));
    const auto expected = ReferenceDecompress(entry);
    SCOPED_TRACE(round);
    if (!expected) {
      ++refused;
      ASSERT_NE(Complaint(entry), "");
    } else {
      ++unpacked;
      ASSERT_TRUE(SameBytes(*expected, Unpack(entry)));
    }
  }
  EXPECT_GT(refused, 100);
  EXPECT_GT(unpacked, 1000);
}

TEST(Decompress, RandomBytesUnpackAsInThePlainDecoder) {
  std::mt19937 random(13);  // NOLINT(cert-msc51-cpp): the same bytes every time
  int unpacked = 0;
  for (int round = 0; round < 20000; ++round) {
    Bytes commands = LiteralRun(Counting(112));
    const std::size_t length = random() % 400;
    for (std::size_t i = 0; i < length; ++i) commands.push_back(static_cast<std::uint8_t>(random()));
    const Bytes entry = Entry(random() % 3000, commands);
    const auto expected = ReferenceDecompress(entry);
    SCOPED_TRACE(round);
    if (!expected) {
      ASSERT_NE(Complaint(entry), "");
    } else {
      ++unpacked;
      ASSERT_TRUE(SameBytes(*expected, Unpack(entry)));
    }
  }
  EXPECT_GT(unpacked, 500);
}

}  // namespace
}  // namespace oravin::test
