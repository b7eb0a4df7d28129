#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

/// The cache's 16-bit pixels and the 24-bit pixels of bitmaps.
///
/// A 16-bit pixel is two bytes, the low one first: bits 15 to 11 red, 10 to 5 green, 4 to 0 blue. A 24-bit pixel is
/// three bytes: blue, green, red. The bytes are one stream: padding at a row's end would be converted as pixels.
namespace oravin {

/// Output size of a conversion in bytes. An incomplete pixel at the end is dropped.
constexpr std::size_t Size24Of16(std::size_t bytes) { return bytes / 2 * 3; }
constexpr std::size_t Size16Of24(std::size_t bytes) { return bytes / 3 * 2; }

/// Converts 16-bit pixels to 24-bit ones; each part is scaled from 31 or 63 to 255 and rounded to the nearest.
/// @param output Size24Of16(input.size()) bytes or more; it must not overlap the input
/// @return the number of bytes written
std::size_t Convert16To24(std::span<const std::uint8_t> input, std::span<std::uint8_t> output);

/// Converts 24-bit pixels to 16-bit ones; each part is scaled from 255 to 31 or 63 and rounded to the nearest.
/// @param output Size16Of24(input.size()) bytes or more; it must not overlap the input
/// @return the number of bytes written
std::size_t Convert24To16(std::span<const std::uint8_t> input, std::span<std::uint8_t> output);

}  // namespace oravin
