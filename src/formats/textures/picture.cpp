#include "textures/picture.h"

#include <algorithm>

#include "base/file_error.h"
#include "files/file.h"
#include "files/look_up.h"
#include "textures/colour.h"

namespace oravin {

namespace {

/// Makes a picture of stored rows: reverses their order, and blue, green, red to red, green, blue.
Picture FromRows(int width, int height, const Bytes& bgr) {
  Picture picture{width, height, Bytes(bgr.size())};
  const std::size_t row = static_cast<std::size_t>(width) * 3;
  for (std::size_t y = 0; y < static_cast<std::size_t>(height); ++y) {
    const std::uint8_t* from = &bgr[(static_cast<std::size_t>(height) - 1 - y) * row];
    std::uint8_t* to = &picture.rgb[y * row];
    for (std::size_t x = 0; x < row; x += 3) {
      to[x] = from[x + 2];
      to[x + 1] = from[x + 1];
      to[x + 2] = from[x];
    }
  }
  return picture;
}

/// Makes a picture of stored pixels. The depth is 1, 2 or 3 bytes a pixel.
Picture Decode(const Bytes& pixels, int width, int height, int depth, const Palette& palette) {
  if (depth == 3) return FromRows(width, height, pixels);
  Bytes bgr(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 3);
  if (depth == 2) {
    Convert16To24(pixels, bgr);
  } else {
    for (std::size_t i = 0; i < pixels.size(); ++i) {
      const Rgb& colour = palette[pixels[i]];
      bgr[3 * i] = colour.blue;
      bgr[3 * i + 1] = colour.green;
      bgr[3 * i + 2] = colour.red;
    }
  }
  return FromRows(width, height, bgr);
}

bool IsShownSide(std::int32_t side) { return side >= 1 && side <= longestSide; }

}  // namespace

int VisibleImages(const TcacheEntry& entry) {
  if (!IsShownSide(entry.width) || !IsShownSide(entry.height)) return 0;
  int images = 1;
  while (images < entry.imageCount && entry.width >> images > 0 && entry.height >> images > 0) ++images;
  return images;
}

std::optional<Picture> TexturePicture(Files& files, const std::string& cachePath, const TcacheEntry& entry, int image,
                                      const Palette& palette) {
  if (entry.pixelFormat != paletteFormat && entry.pixelFormat != colourFormat) return std::nullopt;
  if (image < 0 || image >= VisibleImages(entry)) return std::nullopt;
  File cache(files, cachePath, OpenFor::reading);
  if (!DataLiesIn(entry, cache.length)) return std::nullopt;
  const int width = entry.width >> image;
  const int height = entry.height >> image;
  Bytes pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) *
               static_cast<std::size_t>(entry.pixelFormat));
  // Fractions of odd sides must not move a level past the end of the data.
  const std::uint64_t room = DataSizeOf(entry).value_or(0);
  if (room < pixels.size()) return std::nullopt;
  const std::uint64_t larger =
      image == 0 ? 0 : RoundedSize(TextureDataSize(entry.width, entry.height, image, entry.pixelFormat));
  const std::uint64_t before = std::min(larger, room - pixels.size());
  Get(cache, static_cast<std::uint64_t>(entry.dataOffset) + before, pixels);
  return Decode(pixels, width, height, entry.pixelFormat, palette);
}

std::optional<Picture> TextureThumbnail(Files& files, const std::string& cachePath, const TcacheEntry& entry,
                                        const Palette& palette, int side) {
  int image = 0;
  while (image + 1 < VisibleImages(entry) && std::max(entry.width, entry.height) >> (image + 1) >= side) ++image;
  auto picture = TexturePicture(files, cachePath, entry, image, palette);
  if (!picture) return std::nullopt;
  const int longest = std::max(picture->width, picture->height);
  if (longest <= side) return picture;
  return Scaled(*picture, picture->width * side / longest, picture->height * side / longest);
}

Palette TemplatePalette(Files& files, const std::string& templatePath) {
  Palette palette;
  for (std::size_t i = 0; i < palette.size(); ++i) {
    const auto shade = static_cast<std::uint8_t>(i);
    palette.at(i) = {shade, shade, shade};
  }
  if (!FileExists(files, templatePath)) return palette;
  try {
    File file(files, templatePath, OpenFor::reading);
    Bytes header(paletteHeaderSize);
    Get(file, 0, header);
    int colours = 0;
    return PaletteIn(header, colours);
  } catch (const FileError&) {
    return palette;
  }
}

std::optional<Picture> BitmapPicture(Files& files, const std::string& path, const BmpInfo& info) {
  if (!BitmapFits(files, path, info)) return std::nullopt;
  File file(files, path, OpenFor::reading);
  Bytes header(std::min(info.pixelOffset, largestHeader));
  Get(file, 0, header);
  Bytes pixels(static_cast<std::size_t>(info.width) * static_cast<std::size_t>(info.height) *
               static_cast<std::size_t>(info.depth));
  Get(file, info.pixelOffset, pixels);
  int colours = 0;
  return Decode(pixels, info.width, info.height, info.depth, PaletteIn(header, colours));
}

Picture Scaled(const Picture& picture, int width, int height) {
  Picture scaled{std::max(width, 1), std::max(height, 1), {}};
  scaled.rgb.resize(static_cast<std::size_t>(scaled.width) * static_cast<std::size_t>(scaled.height) * 3);
  std::uint8_t* to = scaled.rgb.data();
  for (int y = 0; y < scaled.height; ++y) {
    const std::int64_t row = std::int64_t{y} * picture.height / scaled.height * picture.width;
    for (int x = 0; x < scaled.width; ++x) {
      const std::int64_t at = row + std::int64_t{x} * picture.width / scaled.width;
      to = std::copy_n(&picture.rgb[static_cast<std::size_t>(at) * 3], 3, to);
    }
  }
  return scaled;
}

const Picture* FindPicture(PictureCache& cache, int number) {
  const auto found = cache.items.find(number);
  if (found == cache.items.end()) return nullptr;
  found->second.used = ++cache.clock;
  return &found->second.picture;
}

void KeepPicture(PictureCache& cache, int number, Picture picture) {
  PictureCache::Item& item = cache.items[number];
  cache.bytes += picture.rgb.size() - item.picture.rgb.size();
  item = {std::move(picture), ++cache.clock};
  while (cache.bytes > cache.mostBytes && cache.items.size() > 1) {
    const auto oldest = std::min_element(cache.items.begin(), cache.items.end(),
                                         [](const auto& a, const auto& b) { return a.second.used < b.second.used; });
    cache.bytes -= oldest->second.picture.rgb.size();
    cache.items.erase(oldest);
  }
}

void ForgetPictures(PictureCache& cache) {
  cache.items.clear();
  cache.bytes = 0;
}

}  // namespace oravin
