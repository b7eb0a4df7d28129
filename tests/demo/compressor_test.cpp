#include "demo/compressor.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "demo/contents.h"
#include "demo/model_writer.h"
#include "demo/random.h"
#include "reading.h"

namespace oravin::demo {
namespace {

using reading::Bytes;
using reading::Decode;
using reading::Forms;

Bytes RandomBytes(std::uint64_t seed, std::size_t size, std::uint32_t different = 256) {
  Random random{seed};
  Bytes bytes;
  while (bytes.size() < size) bytes.push_back(static_cast<std::uint8_t>(Below(random, different)));
  return bytes;
}

Forms RoundTrip(const Bytes& data, Effort effort, std::size_t* size = nullptr) {
  Forms forms;
  const Bytes packed = Compress(data, effort);
  EXPECT_EQ(Decode(packed, &forms), data);
  EXPECT_EQ(forms.ends, 1U);
  if (size != nullptr) *size = packed.size();
  return forms;
}

class CompressorEffort : public ::testing::TestWithParam<Effort> {};
std::string NameOfEffort(const ::testing::TestParamInfo<Effort>& info) {
  return info.param == Effort::kFast ? "Fast" : info.param == Effort::kNormal ? "Normal" : "Best";
}
INSTANTIATE_TEST_SUITE_P(Compressor, CompressorEffort, ::testing::Values(Effort::kFast, Effort::kNormal, Effort::kBest),
                         NameOfEffort);

TEST_P(CompressorEffort, EmptyContentIsHeaderAndEndCommand) {
  EXPECT_EQ(Compress({}, GetParam()), (Bytes{0x10, 0xFB, 0, 0, 0, 0xFC}));
}

TEST_P(CompressorEffort, OneByteRidesOnTheEndCommand) {
  EXPECT_EQ(Compress(Bytes{0x42}, GetParam()), (Bytes{0x10, 0xFB, 0, 0, 1, 0xFD, 0x42}));
}

TEST_P(CompressorEffort, EveryLengthUpTo300RoundTrips) {
  for (std::size_t size = 0; size <= 300; ++size) {
    RoundTrip(RandomBytes(size, size), GetParam());
    RoundTrip(RandomBytes(size, size, 2), GetParam());
    RoundTrip(Bytes(size, 7), GetParam());
  }
}

TEST_P(CompressorEffort, ContentsOfEveryKindRoundTrip) {
  for (const Content content :
       {Content::kSound, Content::kScript, Content::kPicture, Content::kTable, Content::kProp, Content::kMusic}) {
    RoundTrip(MakeContent(content, 5, 150000), GetParam());
  }
}

TEST_P(CompressorEffort, FewSymbolsRoundTrip) {
  for (std::uint32_t different = 1; different <= 8; ++different) {
    RoundTrip(RandomBytes(different, 60000, different), GetParam());
  }
}

TEST_P(CompressorEffort, RunsUseOverlappingLongCopies) {
  std::size_t packed = 0;
  const Forms forms = RoundTrip(Bytes(100000, 0), GetParam(), &packed);
  EXPECT_GT(forms.overlapping, 0U);
  EXPECT_EQ(forms.longest, 1028U);
  EXPECT_LT(packed, 500U);
}

TEST_P(CompressorEffort, NoiseGrowsByLessThanOnePercent) {
  std::size_t packed = 0;
  const Forms forms = RoundTrip(RandomBytes(3, 200000), GetParam(), &packed);
  EXPECT_GT(forms.literalRuns, 1000U);
  EXPECT_LT(packed, 202000U);
}

// The same 64 bytes at a given distance, with noise in between; and whether the copy was found.
Bytes Twice(std::size_t distance) {
  Bytes data = RandomBytes(1, 64);
  const Bytes between = RandomBytes(2, distance - 64);
  const Bytes again = data;
  data.insert(data.end(), between.begin(), between.end());
  data.insert(data.end(), again.begin(), again.end());
  return data;
}

TEST(Compressor, CopiesReachAsFarAsEachFormDoes) {
  for (const std::size_t distance : {1024U, 1025U, 16384U, 16385U, 65536U, 65537U, 131071U, 131072U}) {
    EXPECT_EQ(RoundTrip(Twice(distance), Effort::kBest).farthest, distance);
  }
}

TEST(Compressor, CopiesNeverReachBeyondTheWindow) {
  for (const std::size_t distance : {131073U, 131100U, 262144U, 262145U, 500000U}) {
    EXPECT_LE(RoundTrip(Twice(distance), Effort::kBest).farthest, 131072U);
  }
}

TEST(Compressor, AModelUsesEveryFormAndEveryLiteralCount) {
  ModelOptions options;
  options.seed = 12;
  options.size = 190000;
  const Forms forms = RoundTrip(BuildModel(options), Effort::kNormal);
  EXPECT_GT(forms.shortCopies, 0U);
  EXPECT_GT(forms.mediumCopies, 0U);
  EXPECT_GT(forms.longCopies, 0U);
  EXPECT_GT(forms.literalRuns, 0U);
  for (const std::size_t count : forms.literalsOnCopies) EXPECT_GT(count, 0U);
}

TEST(Compressor, MoreEffortNeverCostsSpaceOnAText) {
  const Bytes text = MakeContent(Content::kScript, 9, 300000);
  const std::size_t fast = Compress(text, Effort::kFast).size();
  const std::size_t normal = Compress(text, Effort::kNormal).size();
  const std::size_t best = Compress(text, Effort::kBest).size();
  EXPECT_LE(best, normal);
  EXPECT_LE(normal, fast);
  EXPECT_LT(fast, text.size() / 2);
}

TEST(Compressor, TheLargestContentHasThreeFullSizeBytes) {
  const Bytes packed = Compress(Bytes(kMaxContent, 1), Effort::kFast);
  EXPECT_EQ(Bytes(packed.begin(), packed.begin() + 5), (Bytes{0x10, 0xFB, 0xFF, 0xFF, 0xFF}));
  EXPECT_EQ(Decode(packed).size(), kMaxContent);
  EXPECT_THROW(Compress(Bytes(kMaxContent + 1, 1), Effort::kFast), std::length_error);
}

}  // namespace
}  // namespace oravin::demo
