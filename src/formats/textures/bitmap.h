#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>

#include "base/bytes.h"
#include "desk/host.h"

/// The bitmap files (BMP) that textures come from and go to. Numbers are little-endian:
///
///    0  2  "BM"
///    2  4  the file's size
///   10  4  where the pixels begin
///   14  4  the size of the information header, 40
///   18  4  width
///   22  4  height; negative in bitmaps whose first row is the highest
///   26  2  planes, 1
///   28  4  bits a pixel; in the two upper bytes the compression, 0 for none
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
inline constexpr std::uint32_t largestHeader = 65536;   ///< far beyond every header with a palette

/// What is known of a bitmap that is to become a texture.
struct BmpInfo {
  std::uint32_t pixelOffset = 0;  ///< where its pixels begin in the file; 0 for a file of pixels alone
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::int32_t depth = 0;  ///< bytes a pixel: 1, 2, 3; of other bitmaps the 32 bits as they stand
  std::int32_t imageCount =
      0;  ///< images one behind the other; 0 when no number of them takes exactly the file's length

  bool operator==(const BmpInfo&) const = default;
};

/// Reads what a bitmap says of itself, and counts its images by the file's length. A number of images counts only where
/// their sizes (TextureDataSize, not rounded) add up to that length: rows that an image program has padded are no
/// images.
///
/// A missing file gives the box "File not found" titled "GetBMPInfo"; one that ends before its header does, the error
/// trap's.
/// @param info left as it was on an error
/// @return whether it was read
bool GetBMPInfo(Host& host, std::string path, BmpInfo& info);

/// True when both sides are one of 2, 4, 8, ... 256, as a new texture's must be.
bool SidesFit(const BmpInfo& info);

/// True when a bitmap can become a texture: its pixels have 1, 2 or 3 bytes and are exactly as long as the images take,
/// and both sides are one of 2, 4, 8, ... 256. A bitmap with a header must have 8, 16 or 24 bits a pixel and no
/// compression, because its pixels are taken as they stand.
/// @param path of the bitmap; a missing one does not fit
/// @throws FileError when it cannot be read
bool BitmapFits(Files& files, const std::string& path, const BmpInfo& info);

/// Makes the header that goes before the pixels of an extracted bitmap. For 8 bits it is the template's own, with its
/// palette, in which only width and height are changed; for 16 and 24 bits that of a 24-bit bitmap.
/// @param info width, height and depth count
/// @param templatePath the bitmap that lends its header; for 8 bits alone
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

/// The palette of an 8-bit bitmap by its first bytes, up to where the pixels begin. Colours that it does not have are
/// black.
/// @param colours how many colours it has
Palette PaletteIn(std::span<const std::uint8_t> header, int& colours);

}  // namespace oravin
