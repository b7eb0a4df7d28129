// A block of shipstats.bin:
//
//   0    name, 64 bytes, zero-padded
//   64   fifteen 32-bit floats, little-endian
//   124  228 bytes that only the game reads
#include "demo/stats_writer.h"

#include "demo/random.h"

namespace oravin::demo {

SampleStats MakeStats(std::uint64_t seed, bool capital) {
  Random random{seed ^ 0x57A75};
  const int bulk = capital ? 40 : 1;
  // Quarters and 64ths are exact in binary, so the file is the same on every machine.
  const auto quarters = [&](int low, int high) {
    return static_cast<float>(Between(random, low * 4, high * 4)) / 4.0F;
  };
  const auto share = [&] { return static_cast<float>(Between(random, 8, 60)) / 64.0F; };
  SampleStats stats{};
  stats[0] = capital ? quarters(20, 90) : quarters(350, 700);
  stats[1] = share();
  for (std::size_t i = 2; i < 8; i += 2) {
    stats[i] = capital ? quarters(2, 12) : quarters(45, 120);
    stats[i + 1] = share();
  }
  stats[8] = quarters(150, 600) * static_cast<float>(bulk);
  stats[9] = quarters(100, 400) * static_cast<float>(bulk);
  stats[10] = capital ? 0.0F : quarters(60, 240);
  stats[11] = quarters(4, 24);
  stats[12] = quarters(80, 320) * static_cast<float>(bulk);
  stats[13] = quarters(2, 16);
  stats[14] = static_cast<float>(Between(random, 0, 2000));
  return stats;
}

Bytes BuildStatsBlock(const std::string& name, const SampleStats& stats) {
  Bytes block;
  PutField(block, name, 64);
  for (const float value : stats) PutFloat(block, value);
  Random random{SeedOf(name) ^ 0x7A11};
  while (block.size() < kStatsBlockSize) block.push_back(static_cast<std::uint8_t>(Between(random, 1, 255)));
  return block;
}

std::string BuildStatsText(const SampleStats& stats) {
  constexpr std::array<std::size_t, 15> kShownOrder{0, 1, 2, 3, 4, 5, 6, 7, 8, 11, 9, 10, 12, 13, 14};
  std::string text;
  for (const std::size_t i : kShownOrder) {
    // The values are multiples of 1/64, so six decimals are exact.
    const auto millionths = static_cast<long long>(stats.at(i) * 64.0F) * 15625;
    std::string fraction = std::to_string(millionths % 1000000);
    fraction.insert(0, 6 - fraction.size(), '0');
    while (!fraction.empty() && fraction.back() == '0') fraction.pop_back();
    text += std::to_string(millionths / 1000000);
    if (!fraction.empty()) text += "." + fraction;
    text += "\r\n";
  }
  return text;
}

}  // namespace oravin::demo
