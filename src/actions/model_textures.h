#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "desk/host.h"
#include "textures/bitmap.h"
#include "textures/texture_cache.h"

namespace oravin {

/// Bitmaps that the user has chosen for a ship's textures: their paths by the textures' names in lower case
/// (BitmapKey).
using GivenBitmaps = std::map<std::string, std::string>;

/// The key of a texture's name: names that differ in case or in spaces at the ends are one texture.
std::string BitmapKey(const std::string& texture);

/// One texture that a model names, and where it can come from.
struct ListedTexture {
  std::string name;                   ///< as the model spells it
  std::optional<TcacheEntry> cached;  ///< its entry in the texture cache, when it is there
  std::string cachedPalette;          ///< the bitmap below the program folder whose palette the cached one is shown in
  std::string bitmapPath;             ///< the chosen bitmap, else the one in the model's folder; empty without either
  bool given = false;                 ///< the user has chosen the bitmap
  BmpInfo info;                       ///< of the bitmap, as far as it could be read
  std::string unusable;               ///< why the bitmap cannot become a texture; empty when it can, or there is none
};

/// The bitmap of a texture's name in a model's folder; empty when there is none, or no file can have that name.
std::string BitmapBeside(Files& files, const std::string& modelPath, const std::string& texture);

/// The bitmaps that a model's textures can be imported from: for each the chosen one, else the one in the model's
/// folder. Empty when the model cannot be read, without a box.
std::vector<std::string> BitmapsOf(Files& files, const std::string& modelPath, const GivenBitmaps& given);

/// Why a bitmap cannot become a texture, in plain words; empty when it can.
/// @param info its header, as far as it could be read
std::string WhyUnusable(Files& files, const std::string& bitmapPath, BmpInfo& info);

/// True when a file looks like a ship model: one of its chunks is a whole table of texture names, or its chunks fill
/// the whole file.
/// @throws FileError when it cannot be read
bool IsShpFile(Files& files, const std::string& path);

/// Lists the textures of a ship model, in the order of GetShpTextureNames: whether each is in the cache, and which
/// bitmap it can be imported from.
///
/// A file that is no model gives the box "This is not a valid SL shp file" titled "Oravin - TextureList()". A missing
/// model gives the box of GetShpTextureNames, a missing cache the box "TCACHE file not found" titled
/// "FindStructOffset".
/// @param textures left as they were when the model cannot be read
/// @return false after a box for the model
bool TextureList(Host& host, std::string modelPath, const std::string& cachePath, const GivenBitmaps& given,
                 std::vector<ListedTexture>& textures);

}  // namespace oravin
