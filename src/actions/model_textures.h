#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "desk/host.h"
#include "textures/bitmap.h"
#include "textures/texture_cache.h"

namespace oravin {

/// Bitmaps that the user has given for a ship's textures: their paths by the textures' names (BitmapKey).
using GivenBitmaps = std::map<std::string, std::string>;

/// Comparison key of a texture's name: trimmed, lower case.
std::string BitmapKey(const std::string& texture);

/// One texture that a model names, and where it can come from.
struct ListedTexture {
  std::string name;                   ///< as the model spells it
  std::optional<TcacheEntry> cached;  ///< what the texture cache says of it, when it is there
  std::string cachedPalette;          ///< the bitmap below the program folder that lends the cached one its palette
  std::string bitmapPath;             ///< the given bitmap, else the one next to the model; empty without either
  bool given = false;                 ///< the user has given the bitmap
  BmpInfo info;                       ///< of the bitmap, as far as it could be read
  std::string unusable;               ///< why the bitmap cannot become a texture; empty when it can, or there is none
};

/// The bitmap with a texture's name next to a model; empty when there is none, or the name cannot be a file's.
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

struct TextureListing {
  std::vector<ListedTexture> textures;  ///< in the order of GetShpTextureNames
  bool cacheMissing = false;            ///< there is no cache to look the names up in
};

/// Lists the textures of a ship model: whether each is in the cache, and which bitmap it can be imported from.
/// @throws FileError of the kind `missing` without a model, `wrongFormat` for a file that is no model, of another kind
///   when a file cannot be read
TextureListing ListTextures(Files& files, const std::string& modelPath, const std::string& cachePath,
                            const GivenBitmaps& given);

/// The same with message boxes. A file that is no model gives "This is not a valid SL shp file" titled
/// "Oravin - TextureList()", a missing model the box of GetShpTextureNames, a missing cache that of FindStructOffset,
/// once.
/// @param textures unchanged when the model cannot be read
/// @return false after a box for the model
bool TextureList(Host& host, const std::string& modelPath, const std::string& cachePath, const GivenBitmaps& given,
                 std::vector<ListedTexture>& textures);

}  // namespace oravin
