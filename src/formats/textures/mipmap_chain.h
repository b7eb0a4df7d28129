#pragma once

#include <string>

#include "base/bytes.h"
#include "files/files.h"
#include "textures/bitmap.h"

namespace oravin {

/// A fighter's texture as pixels alone: 8 mipmap levels of 256 x 256 to 2 x 2 pixels of 8 bits, 87380 bytes.
inline constexpr BmpInfo fighterChain{0, 256, 256, 1, 8};

/// Makes a fighter's mipmap chain (fighterChain) from an 8-bit bitmap of 256 x 256 pixels.
///
/// The first level is the bitmap's own pixels. A pixel of the level of side 256 / 2^k is the average colour of a block
/// of 2^k x 2^k pixels of the first level, each part rounded, halves up, and then the nearest colour of the bitmap's
/// palette by squared distance; of equal ones the lowest index.
///
/// @param info of the bitmap, as GetBMPInfo returns it
/// @throws FileError of the kind `missing`; of the kind `wrongFormat` for a bitmap of another size or depth, or one
///   that ends before its pixels do; or when it cannot be read
Bytes ConvertFighterText(Files& files, const std::string& path, const BmpInfo& info);

}  // namespace oravin
