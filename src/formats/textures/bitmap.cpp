#include "textures/bitmap.h"

#include "base/text.h"

#include <algorithm>

#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/file.h"
#include "files/look_up.h"
#include "files/whole_file.h"
#include "textures/texture_cache.h"

namespace oravin {

namespace {

constexpr std::size_t headerRead = 32;
constexpr std::uint32_t pixelsPerMetre = 2835;
constexpr std::size_t coloursBegin = 54;

std::int32_t SignedAt(const std::uint8_t* at) { return static_cast<std::int32_t>(LittleEndian32(at)); }

std::int32_t DepthOf(std::uint32_t bits) {
  return bits == 8 ? 1 : bits == 16 ? 2 : bits == 24 ? 3 : static_cast<std::int32_t>(bits);
}

/// The bytes from the pixels' begin to the file's end; negative when they would begin behind it.
std::int64_t PixelBytes(std::uint64_t fileLength, const BmpInfo& info) {
  return static_cast<std::int64_t>(fileLength) - static_cast<std::int64_t>(info.pixelOffset);
}

std::uint64_t SizeOf(const BmpInfo& info, int images) {
  return RoundedSize(TextureDataSize(info.width, info.height, images, info.depth));
}

/// Adds up the images in whole numbers: in floating-point ones the fractions of very small images round to whole bytes.
std::int32_t CountImages(std::uint64_t fileLength, const BmpInfo& info) {
  const std::int64_t length = PixelBytes(fileLength, info);
  const double first = TextureDataSize(info.width, info.height, 1, info.depth);
  if (first < 1 || first > static_cast<double>(length)) return 0;
  auto image = static_cast<std::int64_t>(first);
  std::int64_t rest = length;
  for (int images = 1; image <= rest; ++images) {
    rest -= image;
    if (rest == 0) return images;
    // The sizes of this and all further images have fractions, which never add up to a whole number.
    if (image % 4 != 0) return 0;
    image /= 4;
  }
  return 0;
}

bool IsChainSide(std::int32_t side) { return side >= 2 && side <= 256 && (side & (side - 1)) == 0; }

/// True when a bitmap's own header states the depth that its pixels are used with. One of 1 bit a pixel would pass for
/// one of 8, since its number of bits is the number of bytes of the other.
bool PixelsAsUsed(File& file, const BmpInfo& info) {
  std::array<std::uint8_t, headerRead> header{};
  if (info.pixelOffset < header.size()) return true;  // no header to look at
  if (GetSome(file, 0, header) < header.size()) return false;
  const std::uint32_t bits = LittleEndian32(&header[bitmapBitsAt]);
  return (bits == 8 || bits == 16 || bits == 24) && DepthOf(bits) == info.depth;
}

}  // namespace

bool GetBMPInfo(Host& host, std::string path, BmpInfo& info) {
  constexpr const char* title = "GetBMPInfo";
  TrimInPlace(path);
  if (!FileExists(host.files, path)) {
    Show(host, "File not found", Icon::exclamation, title);
    return false;
  }
  return Trap(host, title, [&] {
    File file(host.files, path, OpenFor::reading);
    std::array<std::uint8_t, headerRead> header{};
    Get(file, 0, header);
    BmpInfo read;
    read.pixelOffset = LittleEndian32(&header[bitmapPixelsAt]);
    read.width = SignedAt(&header[bitmapWidthAt]);
    read.height = SignedAt(&header[bitmapHeightAt]);
    read.depth = DepthOf(LittleEndian32(&header[bitmapBitsAt]));
    read.imageCount = CountImages(file.length, read);
    info = read;
  });
}

bool SidesFit(const BmpInfo& info) { return IsChainSide(info.width) && IsChainSide(info.height); }

bool BitmapFits(Files& files, const std::string& path, const BmpInfo& info) {
  // Pixels of other depths are nothing that could be shown or added, whether there is a header to look at or not.
  if (info.depth < 1 || info.depth > 3) return false;
  if (!SidesFit(info) || !FileExists(files, path)) return false;
  File file(files, path, OpenFor::reading);
  const std::int64_t length = PixelBytes(file.length, info);
  return length > 0 && static_cast<std::uint64_t>(length) == SizeOf(info, info.imageCount) && PixelsAsUsed(file, info);
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
    header[bitmapPixelsAt] = '6';  // its code is 54, where the pixels begin
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
  if (header.size() < coloursBegin) return palette;
  // Longer information headers push the palette back.
  const std::uint64_t begin = bitmapInfoSizeAt + std::uint64_t{LittleEndian32(&header[bitmapInfoSizeAt])};
  for (std::uint64_t at = begin; at + 4 <= header.size() && colours < 256; at += 4, ++colours) {
    const auto i = static_cast<std::size_t>(at);
    palette.at(static_cast<std::size_t>(colours)) = {header[i + 2], header[i + 1], header[i]};
  }
  return palette;
}

}  // namespace oravin
