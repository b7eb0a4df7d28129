#pragma once

#include <cstddef>
#include <cstdint>

/// The inner loops of the conversions of colour.h. Each converts whole steps of pixels and returns how many pixels
/// these were; the caller converts the last few.
namespace oravin {

/// Through a small buffer, for every little-endian processor.
std::size_t WidenInBuffers(const std::uint8_t* from, std::size_t pixels, std::uint8_t* to);
std::size_t NarrowInBuffers(const std::uint8_t* from, std::size_t pixels, std::uint8_t* to);

/// True when this processor has AVX2, which the two procedures below need.
bool ShufflesWide();

std::size_t WidenPixels(const std::uint8_t* from, std::size_t pixels, std::uint8_t* to);
std::size_t NarrowPixels(const std::uint8_t* from, std::size_t pixels, std::uint8_t* to);

}  // namespace oravin
