#include "actions/import_texture.h"

#include "actions/import_refusals.h"
#include "actions/learn_loadout.h"
#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "desk/new_name.h"
#include "files/file.h"
#include "files/look_up.h"
#include "installation/installation.h"
#include "textures/loadout_maps.h"
#include "textures/mipmap_chain.h"
#include "textures/new_texture.h"

namespace oravin {

namespace {

/// Adds textures to the cache, all in the same moment.
void Append(Files& files, const std::string& path, TcacheBytes& cache, const std::vector<NewTexture>& textures) {
  const int fromSlot = cache.count;
  File file(files, path, OpenFor::changing);
  for (const NewTexture& texture : textures) AddPixels(file, cache, texture);
  WriteTable(file, cache, fromSlot);
}

bool ImportOne(Host& host, std::string& cachePath, const std::string& bitmapPath, const std::string& name,
               const BmpInfo& info) {
  TcacheBytes cache;
  if (!ReadCacheToAddTo(host, cachePath, cache)) return false;
  if (cache.count == tcacheCapacity) EndForFullCache(host);
  if (!CanBeAddedTo(cache)) return RefuseCache(host);
  if (!BitmapFits(host.files, bitmapPath, info)) return RefuseBitmap(host);
  if (!NameIsFree(host, cache, name)) return false;
  Append(host.files, cachePath, cache, {MakeTexture(name, info, ReadPixels(host.files, bitmapPath, info))});
  return true;
}

bool ImportWithCompanion(Host& host, std::string& cachePath, const std::string& name, const std::string& bitmapPath,
                         const std::string& programPath) {
  TcacheBytes cache;
  if (!ReadCacheToAddTo(host, cachePath, cache)) return false;
  BmpInfo info;
  if (!GetBMPInfo(host, bitmapPath, info)) return false;
  if (cache.count == tcacheCapacity) EndForFullCache(host);
  if (!CanBeAddedTo(cache)) return RefuseCache(host);
  if (!BitmapFits(host.files, bitmapPath, info)) return RefuseBitmap(host);
  if (!NameIsFree(host, cache, name) || !NameCanBeStored(host, name)) return false;
  const std::string companion = "g" + name;
  std::optional<LoadoutMaps> maps;
  if (info.depth == 1 && SlotNamed(cache, companion) < 0) {
    maps = ProvideLoadoutMaps(host, cachePath, programPath + loadoutMapsName);
  }
  if (maps && cache.count == tcacheCapacity - 1) EndForFullCache(host);
  Bytes pixels;
  std::uint64_t end = 0;
  MemMappedFile(host, bitmapPath, pixels, info.pixelOffset, end);
  std::vector<NewTexture> textures;
  textures.push_back(MakeTexture(name, info, pixels));
  if (maps) {
    MapPixels(pixels, *maps);
    textures.push_back(MakeTexture(companion, info, std::move(pixels)));
  }
  Append(host.files, cachePath, cache, textures);
  return true;
}

bool ImportPair(Host& host, std::string& cachePath, const std::string& chainPath, const std::string& companionPath,
                const std::string& name) {
  const std::string companion = "g" + name;
  TcacheBytes cache;
  if (!ReadCacheToAddTo(host, cachePath, cache)) return false;
  if (cache.count == tcacheCapacity || cache.count == tcacheCapacity - 1) EndForFullCache(host);
  if (!CanBeAddedTo(cache)) return RefuseCache(host);
  std::vector<NewTexture> textures;
  for (const auto& [path, texture] : {std::pair(chainPath, name), std::pair(companionPath, companion)}) {
    if (!BitmapFits(host.files, path, fighterChain)) return RefuseBitmap(host);
    textures.push_back(MakeTexture(texture, fighterChain, ReadPixels(host.files, path, fighterChain)));
  }
  if (!NameIsFree(host, cache, name) || !NameIsFree(host, cache, companion)) return false;
  Append(host.files, cachePath, cache, textures);
  return true;
}

}  // namespace

bool ImportTexture(Host& host, std::string cachePath, std::string bitmapPath, const std::string& name,
                   const BmpInfo& info) {
  const std::string given = Trim(name).substr(0, tcacheNameWidth - 1);
  return Trapped(host, importTitle, false, [&] { return ImportOne(host, cachePath, bitmapPath, given, info); });
}

bool ImportTexture(Host& host, std::string cachePath, const std::string& name, std::string bitmapPath,
                   const std::string& programPath) {
  const std::string given = Trim(name).substr(0, longestTextureName);
  return Trapped(host, importTitle, false,
                 [&] { return ImportWithCompanion(host, cachePath, given, bitmapPath, programPath); });
}

bool ImportFighterTextures(Host& host, std::string cachePath, const std::string& chainPath,
                           const std::string& companionPath, const std::string& name) {
  const std::string given = Trim(name).substr(0, longestTextureName);
  return Trapped(host, importTitle, false,
                 [&] { return ImportPair(host, cachePath, chainPath, companionPath, given); });
}

}  // namespace oravin
