#pragma once

#include <string>

#include "desk/host.h"
#include "textures/bitmap.h"

namespace oravin {

/// A fighter's texture as a file of pixels alone: 8 images of 256 x 256 to 2 x 2 pixels of 8 bits, 87380 bytes.
inline constexpr BmpInfo fighterChain{0, 256, 256, 1, 8};

/// Makes a fighter's chain from an 8-bit bitmap of 256 x 256 pixels: eight bitmaps, "256_8.bmp" to "2_8.bmp", one a
/// size, are written into the program folder, their pixels put one behind the other into the output, and they are
/// deleted again, whatever happens.
///
/// The first is a copy of the source. A pixel of the one of side 256 / 2^k is the average colour of a block of 2^k x
/// 2^k pixels of the source, each part rounded, halves up, and then the nearest colour of its palette by squared
/// distance; of equal ones the lowest index.
///
/// A missing source gives the box "File not found" titled "FighterResize"; a bitmap of another size or depth, or one
/// that ends before its pixels do, "Error - not a fighter texture" titled "ConvertFighterText". An existing output file
/// is deleted in either case but the first.
/// @param programPath the program folder, ending in a backslash
/// @return whether the output was written
bool ConvertFighterText(Host& host, std::string bitmapPath, std::string outputPath, const std::string& programPath);

}  // namespace oravin
