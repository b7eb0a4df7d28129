#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "files/files.h"
#include "textures/bitmap.h"
#include "textures/texture_cache.h"

/// Textures as pictures on the screen, without any toolkit.
namespace oravin {

/// Pixels as red, green, blue, the top row first, without padding.
struct Picture {
  int width = 0;
  int height = 0;
  Bytes rgb;
};

/// The longest side of a picture; a texture with a longer one is not shown.
inline constexpr int longestSide = 8192;

/// How many mipmap levels of a texture have at least one pixel.
int VisibleImages(const TcacheEntry& entry);

/// One mipmap level of a texture: 16-bit pixels in their true colours, 8-bit ones through a palette. It is what an
/// image program shows of the extracted bitmap: the row that is stored first is the bottom row.
/// @param image the level, from 0, the largest
/// @return nothing for an unsupported format, a level that the texture does not have, and data that do not lie in the
///   cache
/// @throws FileError when the cache cannot be read
std::optional<Picture> TexturePicture(Files& files, const std::string& cachePath, const TcacheEntry& entry, int image,
                                      const Palette& palette);

/// A small picture of a texture, at most `side` pixels wide and high, from the smallest mipmap level that is large
/// enough.
std::optional<Picture> TextureThumbnail(Files& files, const std::string& cachePath, const TcacheEntry& entry,
                                        const Palette& palette, int side);

/// The palette of a template bitmap; shades of grey where it is missing or too short.
Palette TemplatePalette(Files& files, const std::string& templatePath);

/// The largest mipmap level of a bitmap that is to be imported, as the texture will look.
/// @return nothing for a bitmap that cannot be imported
/// @throws FileError when it cannot be read
std::optional<Picture> BitmapPicture(Files& files, const std::string& path, const BmpInfo& info);

/// The picture with its sides scaled, each pixel the nearest of the old ones; sides of at least 1.
Picture Scaled(const Picture& picture, int width, int height);

/// The picture as a bitmap file of 24 bits, and as a PNG file.
Bytes BitmapFileOf(const Picture& picture);
Bytes PngFileOf(const Picture& picture);

/// Pictures by number; the least recently used ones are dropped when there are too many bytes.
struct PictureCache {
  struct Item {
    Picture picture;
    std::uint64_t used = 0;
  };
  std::size_t mostBytes = 8U << 20U;
  std::size_t bytes = 0;  ///< of all pictures
  std::uint64_t clock = 0;
  std::map<int, Item> items;
};

/// A picture of the cache; null when it is not there. It counts as used now.
const Picture* FindPicture(PictureCache& cache, int number);

/// Adds a picture to the cache, or replaces the one of its number. The latest one always stays.
void KeepPicture(PictureCache& cache, int number, Picture picture);

void ForgetPictures(PictureCache& cache);

}  // namespace oravin
