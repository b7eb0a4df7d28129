// Writes Windows bitmaps.
#pragma once

#include <cstdint>
#include <span>

#include "demo/bytes.h"
#include "demo/palettes.h"

namespace oravin::demo {

/// A bitmap of 8 bits per pixel: a header of 1078 bytes with a palette of 256 colours, then `pixels` as they are (rows
/// bottom up). The smaller images of a chain may follow the first one; the header describes the first.
Bytes BuildBitmap8(int width, int height, const Palette& palette, std::span<const std::uint8_t> pixels);

/// A bitmap of 24 bits per pixel: a header of 54 bytes, then `pixels` as blue, green, red (rows bottom up; the width
/// must be a multiple of 4, so that no row is padded).
Bytes BuildBitmap24(int width, int height, std::span<const std::uint8_t> pixels);

}  // namespace oravin::demo
