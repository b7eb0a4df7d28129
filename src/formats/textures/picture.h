#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "files/files.h"
#include "textures/bitmap.h"
#include "textures/texture_cache.h"

/// Textures as pictures for people to look at, without any toolkit.
namespace oravin {

/// Pixels as red, green, blue, the highest row first, without padding.
struct Picture {
  int width = 0;
  int height = 0;
  Bytes rgb;
};

/// The longest side of a picture; what claims a longer one is not shown.
inline constexpr int longestSide = 8192;

/// How many images of a texture have at least one pixel.
int VisibleImages(const TcacheEntry& entry);

/// One image of a texture: 16-bit pixels in their true colours, 8-bit ones through a palette. It is what an image
/// program shows of the extracted bitmap: the row that is stored first is the lowest.
/// @param image counted from 0, the largest
/// @return nothing for an unsupported format, an image that the texture does not have, and data that do not lie in the
///   cache
/// @throws FileError when the cache cannot be read
std::optional<Picture> TexturePicture(Files& files, const std::string& cachePath, const TcacheEntry& entry, int image,
                                      const Palette& palette);

/// A small picture of a texture, at most `side` pixels wide and high, from the smallest image that is large enough.
std::optional<Picture> TextureThumbnail(Files& files, const std::string& cachePath, const TcacheEntry& entry,
                                        const Palette& palette, int side);

/// The palette of a template bitmap; shades of grey where it is missing or too short.
Palette TemplatePalette(Files& files, const std::string& templatePath);

/// The first image of a bitmap that is to be imported, as the texture will look.
/// @return nothing for a bitmap that cannot be imported
/// @throws FileError when it cannot be read
std::optional<Picture> BitmapPicture(Files& files, const std::string& path, const BmpInfo& info);

/// The picture with its sides scaled, each pixel the nearest of the old ones; sides of at least 1.
Picture Scaled(const Picture& picture, int width, int height);

/// The picture as a bitmap file of 24 bits, and as a PNG file.
Bytes BitmapFileOf(const Picture& picture);
Bytes PngFileOf(const Picture& picture);

/// Pictures by number, of which those that were not used for the longest time go when there are too many bytes.
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

/// Puts a picture into the cache, in place of one of its number. The one put in last always stays.
void KeepPicture(PictureCache& cache, int number, Picture picture);

void ForgetPictures(PictureCache& cache);

}  // namespace oravin
