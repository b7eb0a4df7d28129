#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "desk/host.h"
#include "textures/bitmap.h"
#include "textures/texture_cache.h"

namespace oravin {

/// Bitmaps that the person has given for a ship's textures: their paths by the textures' names in lower case
/// (BitmapKey).
using GivenBitmaps = std::map<std::string, std::string>;

/// The key of a texture's name: names that differ in case or in blanks at the ends are one texture.
std::string BitmapKey(const std::string& texture);

/// One texture that a model names, and where it can come from.
struct ListedTexture {
  std::string name;                   ///< as the model spells it
  std::optional<TcacheEntry> cached;  ///< what the texture cache says of it, when it is there
  std::string cachedPalette;          ///< the bitmap below the program folder that lends the cached one its palette
  std::string bitmapPath;             ///< the given bitmap, else the one beside the model; empty without either
  bool given = false;                 ///< the person has given the bitmap
  BmpInfo info;                       ///< of the bitmap, as far as it could be read
  std::string unusable;               ///< why the bitmap cannot become a texture; empty when it can, or there is none
};

/// The bitmap of a texture's name beside a model; empty when there is none, or the name is none that a file can bear.
std::string BitmapBeside(Files& files, const std::string& modelPath, const std::string& texture);

/// The bitmaps that a model's textures can be imported from, the given ones first. Empty when the model cannot be read;
/// there is no box.
std::vector<std::string> BitmapsOf(Files& files, const std::string& modelPath, const GivenBitmaps& given);

/// Why a bitmap cannot become a texture, in plain words; empty when it can.
/// @param info what it says of itself, as far as it could be read
std::string WhyUnusable(const std::string& bitmapPath, BmpInfo& info);

/// True when a file is a ship model, as far as its chunks tell: one of them is a whole table of texture names, or they
/// fill the whole file.
/// @throws FileError when it cannot be read
bool IsShpFile(Files& files, const std::string& path);

/// Lists the textures of a ship model, in the order of GetShpTextureNames: whether each is in the cache, and which
/// bitmap it can be imported from.
///
/// A file that is no model gives the box "This is not a valid SL shp file" titled "Oravin - TextureList()". A missing
/// model gives the box of GetShpTextureNames, a missing cache that of FindStructOffset, once.
/// @param textures left as they were when the model cannot be read
/// @return false after a box for the model
bool TextureList(Host& host, std::string modelPath, const std::string& cachePath, const GivenBitmaps& given,
                 std::vector<ListedTexture>& textures);

}  // namespace oravin
