// The scaling is done in whole numbers. For a 5-bit part v, v * 255 / 31 rounded to the nearest is (v * 527 + 23) >> 6;
// the others are alike, and the tests compare all of them with the division in floating point. Halves never occur,
// because 31, 63 and 255 are odd. Every product fits 16 bits, so the compiler can work on eight pixels at a time.
//
// For that each pixel needs a word of its own: pixels pass through a small buffer of 32-bit words, four of which are
// packed into three words or unpacked from them at a time. Big-endian machines use the plain loop only. Processors with
// AVX2 do it all in registers (colour_avx2.cpp); without that the conversions take 6 to 15 times as long as memcpy.
#include "textures/colour.h"

#include <array>
#include <bit>
#include <cstring>

#include "textures/colour_kernels.h"

namespace oravin {

namespace {

constexpr std::size_t bufferedPixels = 256;
using PixelBuffer = std::array<std::uint32_t, bufferedPixels>;

constexpr std::uint16_t Half(unsigned value) { return static_cast<std::uint16_t>(value); }

/// A 16-bit pixel as blue, green << 8, red << 16.
inline std::uint32_t Widened(std::uint16_t pixel) {
  const std::uint16_t blue = Half(Half((pixel & 31U) * 527U + 23U) >> 6U);
  const std::uint16_t green = Half(Half((Half(pixel >> 5U) & 63U) * 259U + 33U) >> 6U);
  const std::uint16_t red = Half(Half(Half(pixel >> 11U) * 527U + 23U) >> 6U);
  const std::uint16_t low = Half(blue | unsigned{green} << 8U);
  return low | std::uint32_t{red} << 16U;
}

/// Such a word as a 16-bit pixel.
inline std::uint16_t Narrowed(std::uint32_t pixel) {
  const std::uint16_t low = Half(pixel);
  const std::uint16_t red = Half(pixel >> 16U);
  const std::uint16_t blue5 = Half(Half((low & 255U) * 249U + 1014U) >> 11U);
  const std::uint16_t green6 = Half(Half(Half(low >> 8U) * 253U + 505U) >> 10U);
  const std::uint16_t red5 = Half(Half(red * 249U + 1014U) >> 11U);
  return Half(unsigned{red5} << 11U | unsigned{green6} << 5U | blue5);
}

template <typename Word>
Word Load(const std::uint8_t* at) {
  Word word;
  std::memcpy(&word, at, sizeof word);
  return word;
}

template <typename Word>
void Store(std::uint8_t* at, Word word) {
  std::memcpy(at, &word, sizeof word);
}

void PackFour(const std::uint32_t* words, std::uint8_t* to) {
  const std::uint64_t first = words[0] | std::uint64_t{words[1]} << 24U;
  const std::uint64_t second = words[2] | std::uint64_t{words[3]} << 24U;
  Store(to, first | second << 48U);
  Store(to + 8, static_cast<std::uint32_t>(second >> 16U));
}

void UnpackFour(const std::uint8_t* from, std::uint32_t* words) {
  const auto first = Load<std::uint64_t>(from);
  const auto second = Load<std::uint32_t>(from + 8);
  words[0] = static_cast<std::uint32_t>(first) & 0xFFFFFFU;
  words[1] = static_cast<std::uint32_t>(first >> 24U) & 0xFFFFFFU;
  words[2] = static_cast<std::uint32_t>(first >> 48U) | (second & 0xFFU) << 16U;
  words[3] = second >> 8U;
}

}  // namespace

std::size_t WidenInBuffers(const std::uint8_t* from, std::size_t pixels, std::uint8_t* to) {
  PixelBuffer words;
  std::array<std::uint16_t, bufferedPixels> narrow;
  std::size_t done = 0;
  for (; pixels - done >= bufferedPixels; done += bufferedPixels) {
    std::memcpy(narrow.data(), from + 2 * done, sizeof narrow);
    for (std::size_t i = 0; i < bufferedPixels; ++i) words[i] = Widened(narrow[i]);
    for (std::size_t i = 0; i < bufferedPixels; i += 4) PackFour(&words[i], to + 3 * (done + i));
  }
  return done;
}

std::size_t NarrowInBuffers(const std::uint8_t* from, std::size_t pixels, std::uint8_t* to) {
  PixelBuffer words;
  std::array<std::uint16_t, bufferedPixels> narrow;
  std::size_t done = 0;
  for (; pixels - done >= bufferedPixels; done += bufferedPixels) {
    for (std::size_t i = 0; i < bufferedPixels; i += 4) UnpackFour(from + 3 * (done + i), &words[i]);
    for (std::size_t i = 0; i < bufferedPixels; ++i) narrow[i] = Narrowed(words[i]);
    std::memcpy(to + 2 * done, narrow.data(), sizeof narrow);
  }
  return done;
}

std::size_t Convert16To24(std::span<const std::uint8_t> input, std::span<std::uint8_t> output) {
  const std::size_t pixels = input.size() / 2;
  std::size_t done = 0;
  if (ShufflesWide()) {
    done = WidenPixels(input.data(), pixels, output.data());
  } else if constexpr (std::endian::native == std::endian::little) {
    done = WidenInBuffers(input.data(), pixels, output.data());
  }
  for (; done < pixels; ++done) {
    const std::uint32_t word = Widened(Half(input[2 * done] | unsigned{input[2 * done + 1]} << 8U));
    for (std::size_t part = 0; part < 3; ++part) output[3 * done + part] = static_cast<std::uint8_t>(word >> 8 * part);
  }
  return pixels * 3;
}

std::size_t Convert24To16(std::span<const std::uint8_t> input, std::span<std::uint8_t> output) {
  const std::size_t pixels = input.size() / 3;
  std::size_t done = 0;
  if (ShufflesWide()) {
    done = NarrowPixels(input.data(), pixels, output.data());
  } else if constexpr (std::endian::native == std::endian::little) {
    done = NarrowInBuffers(input.data(), pixels, output.data());
  }
  for (; done < pixels; ++done) {
    const std::uint8_t* part = &input[3 * done];
    const std::uint16_t pixel = Narrowed(part[0] | std::uint32_t{part[1]} << 8U | std::uint32_t{part[2]} << 16U);
    output[2 * done] = static_cast<std::uint8_t>(pixel & 255U);
    output[2 * done + 1] = static_cast<std::uint8_t>(pixel >> 8U);
  }
  return pixels * 2;
}

}  // namespace oravin
