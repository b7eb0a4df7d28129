// Sixteen pixels a step in AVX2 registers. The arithmetic is that of colour.cpp, in 16-bit lanes. Only this file is
// compiled for AVX2, so it must not include inline code that other files use too.
//
// 24-bit pixels are read and written four at a time, 12 bytes each, by accesses of 16 bytes, which reach 4 bytes past
// the step's end. So the plain loop converts the last pixels.
#include <immintrin.h>

#include "textures/colour_kernels.h"

namespace oravin {

namespace {

constexpr std::size_t step = 16;
constexpr std::size_t reach = step + 2;  // the 4 bytes past the step's end are within two pixels

/// (value * factor + half) >> shift in each lane of 16 bits.
template <int shift>
__m256i Scaled(__m256i value, short factor, short half) {
  const __m256i product = _mm256_mullo_epi16(value, _mm256_set1_epi16(factor));
  return _mm256_srli_epi16(_mm256_add_epi16(product, _mm256_set1_epi16(half)), shift);
}

__m128i* Target(std::uint8_t* at) { return reinterpret_cast<__m128i*>(at); }
__m128i Loaded(const std::uint8_t* at) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(at)); }

/// Twelve bytes at each of two places, one in each half.
__m256i LoadedPair(const std::uint8_t* low, const std::uint8_t* high) {
  return _mm256_inserti128_si256(_mm256_castsi128_si256(Loaded(low)), Loaded(high), 1);
}

}  // namespace

bool ShufflesWide() {
  static const bool known = __builtin_cpu_supports("avx2") != 0;
  return known;
}

std::size_t WidenPixels(const std::uint8_t* from, std::size_t pixels, std::uint8_t* to) {
  const __m256i pack = _mm256_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1,  //
                                        0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1);
  std::size_t done = 0;
  for (; done + reach <= pixels; done += step) {
    const __m256i pixel = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from + 2 * done));
    const __m256i blue = Scaled<6>(_mm256_and_si256(pixel, _mm256_set1_epi16(31)), 527, 23);
    const __m256i green = Scaled<6>(_mm256_and_si256(_mm256_srli_epi16(pixel, 5), _mm256_set1_epi16(63)), 259, 33);
    const __m256i red = Scaled<6>(_mm256_srli_epi16(pixel, 11), 527, 23);
    const __m256i low = _mm256_or_si256(blue, _mm256_slli_epi16(green, 8));
    // Pixels 0 to 3 and 8 to 11, then 4 to 7 and 12 to 15, each in 32 bits; then the fourth byte of each is taken out.
    const __m256i first = _mm256_shuffle_epi8(_mm256_unpacklo_epi16(low, red), pack);
    const __m256i second = _mm256_shuffle_epi8(_mm256_unpackhi_epi16(low, red), pack);
    std::uint8_t* const out = to + 3 * done;
    _mm_storeu_si128(Target(out), _mm256_castsi256_si128(first));
    _mm_storeu_si128(Target(out + 12), _mm256_castsi256_si128(second));
    _mm_storeu_si128(Target(out + 24), _mm256_extracti128_si256(first, 1));
    _mm_storeu_si128(Target(out + 36), _mm256_extracti128_si256(second, 1));
  }
  return done;
}

std::size_t NarrowPixels(const std::uint8_t* from, std::size_t pixels, std::uint8_t* to) {
  const __m256i unpack = _mm256_setr_epi8(0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1,  //
                                          0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1);
  const __m256i lowHalf = _mm256_set1_epi32(0xFFFF);
  std::size_t done = 0;
  for (; done + reach <= pixels; done += step) {
    const std::uint8_t* const in = from + 3 * done;
    // Pixels 0 to 3 and 8 to 11, then 4 to 7 and 12 to 15, as 32 bits: packing restores their order.
    const __m256i first = _mm256_shuffle_epi8(LoadedPair(in, in + 24), unpack);
    const __m256i second = _mm256_shuffle_epi8(LoadedPair(in + 12, in + 36), unpack);
    const __m256i low = _mm256_packus_epi32(_mm256_and_si256(first, lowHalf), _mm256_and_si256(second, lowHalf));
    const __m256i red = _mm256_packus_epi32(_mm256_srli_epi32(first, 16), _mm256_srli_epi32(second, 16));
    const __m256i blue5 = Scaled<11>(_mm256_and_si256(low, _mm256_set1_epi16(255)), 249, 1014);
    const __m256i green6 = Scaled<10>(_mm256_srli_epi16(low, 8), 253, 505);
    // Red's five bits are the highest ones already.
    const __m256i red5 = _mm256_and_si256(Scaled<0>(red, 249, 1014), _mm256_set1_epi16(static_cast<short>(0xF800)));
    const __m256i pixel = _mm256_or_si256(_mm256_or_si256(red5, _mm256_slli_epi16(green6, 5)), blue5);
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(to + 2 * done), pixel);
  }
  return done;
}

}  // namespace oravin
