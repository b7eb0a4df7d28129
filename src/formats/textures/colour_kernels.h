#pragma once

#include <cstddef>
#include <cstdint>

/// The inner loops of the conversions of colour.h. Each does as many pixels as make whole steps and returns how many
/// these were; the last few are left.
namespace oravin {

/// By way of a small buffer, on every processor that puts the lowest byte of a number first.
std::size_t WidenInBuffers(const std::uint8_t* from, std::size_t pixels, std::uint8_t* to);
std::size_t NarrowInBuffers(const std::uint8_t* from, std::size_t pixels, std::uint8_t* to);

/// True when this processor has the wide registers that the two procedures below need; else they must not be called.
bool ShufflesWide();

std::size_t WidenPixels(const std::uint8_t* from, std::size_t pixels, std::uint8_t* to);
std::size_t NarrowPixels(const std::uint8_t* from, std::size_t pixels, std::uint8_t* to);

}  // namespace oravin
