#include "actions/import_texture.h"

#include <algorithm>
#include <optional>

#include "actions/learn_loadout.h"
#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/program_end.h"
#include "files/file.h"
#include "files/look_up.h"
#include "textures/mipmap_chain.h"

namespace oravin {

namespace {

/// Reads the table of a cache that so many textures are to be added to.
TcacheBytes ReadCacheToAddTo(Files& files, const std::string& cachePath, std::size_t textures) {
  TcacheBytes cache = ReadTcache(files, cachePath);
  if (cache.count <= tcacheCapacity && cache.count > tcacheCapacity - static_cast<int>(textures)) {
    throw CacheIsFull(cachePath);
  }
  if (!CanBeAddedTo(cache)) throw CacheIsDamaged(cachePath);
  return cache;
}

/// Adds textures to the cache, all in the same moment; false after the box for a name that is taken.
bool Append(Host& host, const std::string& cachePath, TcacheBytes& cache, const std::vector<NewTexture>& textures) {
  for (const NewTexture& texture : textures) {
    if (SlotNamed(cache, texture.name) < 0) continue;
    ShowNameTaken(host, texture.name);
    return false;
  }
  const int fromSlot = cache.count;
  File file(host.files, cachePath, OpenFor::changing);
  for (const NewTexture& texture : textures) AddPixels(file, cache, texture);
  WriteTable(file, cache, fromSlot);
  return true;
}

}  // namespace

bool ImportTexture(Host& host, const std::string& cachePath, const std::string& bitmapPath, const std::string& name,
                   const BmpInfo& info) {
  const std::string given = Trim(name).substr(0, tcacheNameWidth - 1);
  return TrappedImport(host, false, [&] {
    TcacheBytes cache = ReadCacheToAddTo(host.files, cachePath, 1);
    if (!BitmapFits(host.files, bitmapPath, info)) throw BitmapDoesNotFit(bitmapPath);
    return Append(host, cachePath, cache, {MakeTexture(given, info, ReadPixels(host.files, bitmapPath, info))});
  });
}

bool ImportTextures(Host& host, const std::string& cachePath, const std::vector<NewTexture>& textures) {
  return TrappedImport(host, false, [&] {
    TcacheBytes cache = ReadCacheToAddTo(host.files, cachePath, textures.size());
    for (const NewTexture& texture : textures) {
      if (!SidesFit(texture.info)) throw BitmapDoesNotFit(texture.name);
    }
    return Append(host, cachePath, cache, textures);
  });
}

bool ImportFighterTextures(Host& host, const Installation& installation, const std::string& bitmapPath,
                           const BmpInfo& info, const std::string& name) {
  const std::string cache = installation.cachePath();
  const std::string mapsPath = installation.loadoutMapsPath();
  Bytes chain;
  if (!Trap(host, "ConvertFighterText", [&] { chain = ConvertFighterText(host.files, bitmapPath, info); })) {
    return false;
  }
  std::vector<NewTexture> textures = {
      MakeTexture(Trim(name).substr(0, longestTextureName), fighterChain, std::move(chain))};
  std::optional<LoadoutMaps> maps;
  if (!FileExists(host.files, mapsPath) && FileExists(host.files, cache)) {
    maps = ProvideLoadoutMaps(host, installation);
  } else if (!Trap(host, "ConvertTexture", [&] { maps = ReadLoadoutMaps(host.files, mapsPath); })) {
    return false;
  }
  if (maps) textures.push_back(CompanionOf(textures.front(), *maps));
  return ImportTextures(host, cache, textures);
}

NewTexture CompanionOf(const NewTexture& texture, const LoadoutMaps& maps) {
  NewTexture companion = texture;
  companion.name = "g" + texture.name;
  MapPixels(companion.pixels, maps);
  return companion;
}

FileError CacheIsFull(const std::string& cachePath) {
  return {"could not add to", cachePath, "it has " + std::to_string(tcacheCapacity) + " textures already",
          ErrorKind::tooMany};
}

FileError CacheIsDamaged(const std::string& cachePath) {
  return {"could not add to", cachePath, "its count or its data end is wrong", ErrorKind::damaged};
}

FileError BitmapDoesNotFit(const std::string& bitmapPath) {
  return {"could not import", bitmapPath, "it cannot become a texture", ErrorKind::wrongFormat};
}

void EndForFullCache(Host& host) {
  ShowTrapped(host, "ImportTexture", CacheIsFull(tcacheName));
  throw ProgramEnd();
}

void ShowNameTaken(Host& host, const std::string& name) {
  Show(host, "A texture with the name of '" + name + "' already exists.\nUnable to import.", Icon::exclamation);
}

}  // namespace oravin
