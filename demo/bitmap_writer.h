// Writer of Windows bitmaps.
#pragma once

#include <cstdint>
#include <span>

#include "demo/bytes.h"
#include "demo/palettes.h"

namespace oravin::demo {

/// An 8-bit bitmap: a header of 1078 bytes with a palette of 256 colours, then `pixels` (rows bottom up). More mipmap
/// levels may follow the first; the header describes the first.
Bytes BuildBitmap8(int width, int height, const Palette& palette, std::span<const std::uint8_t> pixels);

/// A 24-bit bitmap: a header of 54 bytes, then `pixels` as blue, green, red (rows bottom up; the width must be a
/// multiple of 4, so that rows have no padding).
Bytes BuildBitmap24(int width, int height, std::span<const std::uint8_t> pixels);

}  // namespace oravin::demo
