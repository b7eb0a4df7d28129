#include "demo/random.h"

namespace oravin::demo {

std::uint64_t SeedOf(std::string_view name) {
  std::uint64_t hash = 0xCBF29CE484222325ULL;  // FNV-1a
  for (const char c : name) hash = (hash ^ static_cast<std::uint8_t>(c)) * 0x100000001B3ULL;
  return hash;
}

int Sine(int angle) {
  // Bhaskara's approximation over half a turn h: sin = 16 a (h - a) / (5 h h - 4 a (h - a)), within 0.2 %.
  constexpr int kHalf = 512;
  const int turn = angle & 1023;
  const int a = turn % kHalf;
  const int product = a * (kHalf - a);
  const int sine = static_cast<int>(4096LL * 16 * product / (5LL * kHalf * kHalf - 4LL * product));
  return turn < kHalf ? sine : -sine;
}

}  // namespace oravin::demo
