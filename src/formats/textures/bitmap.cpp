#include "textures/bitmap.h"

#include "files/file.h"
#include "files/look_up.h"
#include "textures/texture_cache.h"

namespace oravin {

namespace {

constexpr std::size_t headerRead = 32;
constexpr std::uint32_t pixelsPerMetre = 2835;
constexpr std::size_t paletteAt = 54;

std::int32_t SignedAt(const std::uint8_t* at) { return static_cast<std::int32_t>(LittleEndian32(at)); }

std::int32_t DepthOf(std::uint32_t bits) {
  return bits == 8 ? 1 : bits == 16 ? 2 : bits == 24 ? 3 : static_cast<std::int32_t>(bits);
}

/// Bytes from the first pixel to the file's end; negative when the pixels would start after it.
std::int64_t PixelBytes(std::uint64_t fileLength, const BmpInfo& info) {
  return static_cast<std::int64_t>(fileLength) - static_cast<std::int64_t>(info.pixelOffset);
}

std::uint64_t SizeOf(const BmpInfo& info) {
  return RoundedSize(TextureDataSize(info.width, info.height, info.imageCount, info.depth));
}

/// Counts mipmap levels in whole numbers: in floating point the fractions of very small levels round to whole bytes.
std::int32_t CountLevels(std::uint64_t fileLength, const BmpInfo& info) {
  const std::int64_t length = PixelBytes(fileLength, info);
  const double first = TextureDataSize(info.width, info.height, 1, info.depth);
  if (first < 1 || first > static_cast<double>(length)) return 0;
  auto level = static_cast<std::int64_t>(first);
  std::int64_t rest = length;
  for (int levels = 1; level <= rest; ++levels) {
    rest -= level;
    if (rest == 0) return levels;
    // The sizes of all further levels have fractions, which never add up to a whole number.
    if (level % 4 != 0) return 0;
    level /= 4;
  }
  return 0;
}

bool IsChainSide(std::int32_t side) { return side >= 2 && side <= 256 && (side & (side - 1)) == 0; }

/// True when a bitmap's own header has the depth that its pixels are used with. A 1-bit bitmap has depth 1, which is
/// also the code for 8-bit pixels, so it must be refused here.
bool PixelsAsUsed(File& file, const BmpInfo& info) {
  std::array<std::uint8_t, headerRead> header{};
  if (info.pixelOffset < header.size()) return true;  // it has no header
  if (GetSome(file, 0, header) < header.size()) return false;
  const std::uint32_t bits = LittleEndian32(&header[bitmapBitsAt]);
  return (bits == 8 || bits == 16 || bits == 24) && DepthOf(bits) == info.depth;
}

}  // namespace

BmpInfo GetBMPInfo(Files& files, const std::string& path) {
  RequireFile(files, path);
  File file(files, path, OpenFor::reading);
  std::array<std::uint8_t, headerRead> header{};
  Get(file, 0, header);
  BmpInfo info;
  info.pixelOffset = LittleEndian32(&header[bitmapPixelsAt]);
  info.width = SignedAt(&header[bitmapWidthAt]);
  info.height = SignedAt(&header[bitmapHeightAt]);
  info.depth = DepthOf(LittleEndian32(&header[bitmapBitsAt]));
  info.imageCount = CountLevels(file.length, info);
  return info;
}

bool SidesFit(const BmpInfo& info) { return IsChainSide(info.width) && IsChainSide(info.height); }

bool BitmapFits(Files& files, const std::string& path, const BmpInfo& info) {
  // Pixels of other depths can neither be shown nor added, with or without a header.
  if (info.depth < 1 || info.depth > 3) return false;
  if (!SidesFit(info) || !FileExists(files, path)) return false;
  File file(files, path, OpenFor::reading);
  const std::int64_t length = PixelBytes(file.length, info);
  return length > 0 && static_cast<std::uint64_t>(length) == SizeOf(info) && PixelsAsUsed(file, info);
}

std::size_t BuildBitmapHeader(Files& files, const BmpInfo& info, const std::string& templatePath, Bytes& header) {
  if (info.depth == 1) {
    header.assign(paletteHeaderSize, 0);
    File lender(files, templatePath, OpenFor::reading);
    Get(lender, 0, header);
  } else {
    header.assign(colourHeaderSize, 0);
    header[0] = 'B';
    header[1] = 'M';
    const std::uint64_t image = RoundedSize(TextureDataSize(info.width, info.height, 1, 3));
    PutLittleEndian32(&header[bitmapFileSizeAt], static_cast<std::uint32_t>(colourHeaderSize + image));
    header[bitmapPixelsAt] = '6';  // its code is 54, the offset of the pixels
    header[bitmapInfoSizeAt] = 40;
    header[26] = 1;
    header[bitmapBitsAt] = 24;
    PutLittleEndian32(&header[38], pixelsPerMetre);
    PutLittleEndian32(&header[42], pixelsPerMetre);
  }
  PutLittleEndian32(&header[bitmapWidthAt], static_cast<std::uint32_t>(info.width));
  PutLittleEndian32(&header[bitmapHeightAt], static_cast<std::uint32_t>(info.height));
  return header.size();
}

Palette PaletteIn(std::span<const std::uint8_t> header, int& colours) {
  Palette palette{};
  colours = 0;
  if (header.size() < paletteAt) return palette;
  // The palette follows the information header, which may be longer than usual.
  const std::uint64_t begin = bitmapInfoSizeAt + std::uint64_t{LittleEndian32(&header[bitmapInfoSizeAt])};
  for (std::uint64_t at = begin; at + 4 <= header.size() && colours < 256; at += 4, ++colours) {
    const auto i = static_cast<std::size_t>(at);
    palette.at(static_cast<std::size_t>(colours)) = {header[i + 2], header[i + 1], header[i]};
  }
  return palette;
}

}  // namespace oravin
