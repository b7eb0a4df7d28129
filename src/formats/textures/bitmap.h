#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>

#include "base/bytes.h"
#include "files/files.h"

/// Bitmap files (BMP), as textures are imported from and extracted to. Numbers are little-endian:
///
///    0  2  "BM"
///    2  4  the file's size
///   10  4  offset of the pixels
///   14  4  the size of the information header, 40
///   18  4  width
///   22  4  height; negative when the top row comes first
///   26  2  planes, 1
///   28  4  bits a pixel; the two upper bytes are the compression, 0 for none
///   54  .  the palette of an 8-bit bitmap: 256 times blue, green, red, zero
namespace oravin {

inline constexpr std::uint64_t bitmapFileSizeAt = 2;
inline constexpr std::uint64_t bitmapPixelsAt = 10;
inline constexpr std::uint64_t bitmapInfoSizeAt = 14;
inline constexpr std::uint64_t bitmapWidthAt = 18;
inline constexpr std::uint64_t bitmapHeightAt = 22;
inline constexpr std::uint64_t bitmapBitsAt = 28;
inline constexpr std::size_t colourHeaderSize = 54;     ///< of a bitmap without a palette
inline constexpr std::size_t paletteHeaderSize = 1078;  ///< with one of 256 colours
inline constexpr std::uint32_t largestHeader = 65536;   ///< far more than any header with a palette has

/// What is known of a bitmap that is to become a texture.
struct BmpInfo {
  std::uint32_t pixelOffset = 0;  ///< of its pixels in the file; 0 for a file of pixels alone
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::int32_t depth = 0;       ///< bytes a pixel: 1, 2, 3; for other bitmaps the 32-bit field as it is
  std::int32_t imageCount = 0;  ///< mipmap levels; 0 when no number of levels has exactly the file's length

  bool operator==(const BmpInfo&) const = default;
};

/// Reads a bitmap's header and counts its mipmap levels by the file's length. A number of levels counts only where
/// their sizes (TextureDataSize, not rounded) add up to exactly that length: padded rows are not mipmap levels.
/// @throws FileError of the kind `missing`, or when the file ends before its header does
BmpInfo GetBMPInfo(Files& files, const std::string& path);

/// True when both sides are one of 2, 4, 8, ... 256, as a new texture's must be.
bool SidesFit(const BmpInfo& info);

/// True when a bitmap can become a texture: its pixels have 1, 2 or 3 bytes and exactly the length of its mipmap
/// levels, and both sides are one of 2, 4, 8, ... 256. A bitmap with a header must have 8, 16 or 24 bits a pixel and no
/// compression, because its pixels are used unchanged.
/// @param path of the bitmap; a missing one does not fit
/// @throws FileError when it cannot be read
bool BitmapFits(Files& files, const std::string& path, const BmpInfo& info);

/// Makes the header of an extracted bitmap. For 8 bits it is the template's header and palette with width and height
/// changed; for 16 and 24 bits that of a 24-bit bitmap.
/// @param info its width, height and depth are used
/// @param templatePath the bitmap whose header is used for 8 bits
/// @return the header's length in bytes: 54 or 1078
/// @throws FileError when the template cannot be read or is too short
std::size_t BuildBitmapHeader(Files& files, const BmpInfo& info, const std::string& templatePath, Bytes& header);

struct Rgb {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;

  bool operator==(const Rgb&) const = default;
};

using Palette = std::array<Rgb, 256>;

/// The palette of an 8-bit bitmap.
/// @param header the file's bytes before the pixels; colours that are not in there are black
/// @param colours how many there are
Palette PaletteIn(std::span<const std::uint8_t> header, int& colours);

}  // namespace oravin
