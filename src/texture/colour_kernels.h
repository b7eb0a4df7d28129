#pragma once

#include <cstddef>
#include <cstdint>

/// What a processor's wide registers can do for the conversions of colour.h. Where the compiler or the processor has
/// none of it, ShufflesWide is false and the others are never called.
namespace oravin {

/// True when the two procedures below can be used on this processor.
bool ShufflesWide();

/// Converts 16-bit pixels to 24-bit ones, as many as make whole steps.
/// @return the number of pixels done; the last few are left
std::size_t WidenPixels(const std::uint8_t* from, std::size_t pixels, std::uint8_t* to);

/// Converts 24-bit pixels to 16-bit ones, likewise.
std::size_t NarrowPixels(const std::uint8_t* from, std::size_t pixels, std::uint8_t* to);

}  // namespace oravin
