// Makes the template bitmaps that are shipped, data/3D/cube.bmp and data/3D/gcube.bmp.
#pragma once

#include "demo/bytes.h"
#include "demo/palettes.h"

namespace oravin::demo {

/// A general palette: 6 x 6 x 6 colours (index 36 * red + 6 * green + blue, each component 0, 51, ... 255), then 40
/// shades of grey between black and white.
Palette CubePalette();

/// The bitmap: 16 x 16 pixels of 8 bits with each colour once, index 0 at the lower left.
Bytes BuildTemplate();

}  // namespace oravin::demo
