// Makes the template bitmaps that the program ships, data/3D/cube.bmp and data/3D/gcube.bmp.
#pragma once

#include "demo/bytes.h"
#include "demo/palettes.h"

namespace oravin::demo {

/// A general palette: a cube of 6 x 6 x 6 colours (index 36 * red + 6 * green + blue, each part 0, 51, ... 255), then
/// 40 shades of grey between black and white.
Palette CubePalette();

/// The bitmap: 16 x 16 pixels of 8 bits that show each colour once, index 0 at the lower left.
Bytes BuildTemplate();

}  // namespace oravin::demo
