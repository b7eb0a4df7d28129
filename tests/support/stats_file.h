#pragma once

#include <cstring>
#include <string>

#include "base/bytes.h"
#include "stats/ship_stats.h"

namespace oravin::test {

/// Statistics that are easily told apart: `first`, `first` + 1, ... in the order of the file.
inline ShipStats StatsFrom(float first) {
  ShipStats stats;
  for (std::size_t i = 0; i < stats.values.size(); ++i) stats.values.at(i) = first + static_cast<float>(i);
  return stats;
}

/// One block of 352 bytes as the game has it: a name, the statistics, and a tail that nobody else knows.
inline Bytes StatsBlock(const std::string& name, const ShipStats& stats, std::uint8_t tail = 0xEE) {
  Bytes block(352);
  std::copy(name.begin(), name.end(), block.begin());
  static_assert(sizeof(float) == 4);
  for (std::size_t i = 0; i < 15; ++i) {
    std::uint32_t bits = 0;
    std::memcpy(&bits, &stats.values.at(i), 4);
    PutLittleEndian32(block.data() + 64 + 4 * i, bits);
  }
  std::fill(block.begin() + 124, block.end(), tail);
  return block;
}

inline Bytes Joined(const std::vector<Bytes>& blocks) {
  Bytes all;
  for (const Bytes& block : blocks) all.insert(all.end(), block.begin(), block.end());
  return all;
}

}  // namespace oravin::test
