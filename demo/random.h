// A small seeded random generator. The sample must be the same on every machine, so <random> is not used: its
// distributions differ between libraries.
#pragma once

#include <cstdint>
#include <string_view>

namespace oravin::demo {

/// The state of one sequence; any value is a valid seed.
struct Random {
  std::uint64_t state = 0;
};

/// The next 64 bits of the sequence (the splitmix64 step).
inline std::uint64_t Next(Random& random) {
  random.state += 0x9E3779B97F4A7C15ULL;
  std::uint64_t z = random.state;
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
  return z ^ (z >> 31);
}

/// A number from 0 to bound - 1 (bound 1 or more).
inline std::uint32_t Below(Random& random, std::uint32_t bound) {
  return static_cast<std::uint32_t>(((Next(random) >> 32) * bound) >> 32);
}

/// A number from low to high, both included.
inline int Between(Random& random, int low, int high) {
  return low + static_cast<int>(Below(random, static_cast<std::uint32_t>(high - low + 1)));
}

/// A seed derived from a name.
std::uint64_t SeedOf(std::string_view name);

/// 4096 times the sine of `angle` (a full turn is 1024), in integer arithmetic.
int Sine(int angle);
inline int Cosine(int angle) { return Sine(angle + 256); }

}  // namespace oravin::demo
