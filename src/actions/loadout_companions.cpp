#include "actions/loadout_companions.h"

#include <algorithm>
#include <set>

#include "actions/import_texture.h"
#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/look_up.h"
#include "textures/extract_texture.h"
#include "textures/loadout_maps.h"
#include "textures/new_texture.h"

namespace oravin {

namespace {

constexpr const char* loadoutTitle = "LoadoutSetup";

/// After a ship's first two textures only those that an editor added lack a companion: an import adds one to each,
/// while many of the game's own textures of capital ships have none.
bool LacksCompanion(const TcacheBytes& cache, const std::string& name, std::size_t texture) {
  const int slot = name.empty() ? -1 : SlotNamed(cache, name);
  if (slot < 0 || EntryOf(cache, slot).pixelFormat != paletteFormat || SlotNamed(cache, "g" + name) >= 0) return false;
  return texture < loadoutTextures || slot >= factoryTextures;
}

/// Makes one companion; false when the whole run must end.
bool MakeCompanion(Host& host, const Installation& installation, const std::string& name) {
  const std::string cachePath = installation.cachePath();
  const TcacheBytes cache = ReadTcache(host.files, cachePath);
  const int slot = SlotNamed(cache, name);
  const TcacheEntry entry = slot < 0 ? TcacheEntry() : EntryOf(cache, slot);
  if (entry.pixelFormat == 0) {
    Show(host, "Error - Texture not found", Icon::exclamation, loadoutTitle);
    return false;
  }
  if (entry.dataOffset == 0) {
    Show(host, "Error in TCACHE. Can't find " + name + "!", Icon::critical);
    return false;
  }
  if (entry.pixelFormat != paletteFormat) return true;
  Bytes pixels = ReadTextureData(host.files, cachePath, entry);
  const std::string mapsPath = installation.loadoutMapsPath();
  LoadoutMaps maps;
  if (!Trap(host, "ConvertTexture", [&] { maps = ReadLoadoutMaps(host.files, mapsPath); })) return false;
  const BmpInfo info{0, entry.width, entry.height, entry.pixelFormat, entry.imageCount};
  ImportTextures(host, cachePath, {CompanionOf(MakeTexture(name, info, std::move(pixels)), maps)});
  return true;
}

}  // namespace

bool LoadoutSetup(Host& host, const Installation& installation, const Ships& ships) {
  if (!FolderExists(host.files, installation.ProgramPath) || !FileExists(host.files, installation.cachePath())) {
    Show(host, "Error - Path(s) not found", Icon::critical, loadoutTitle);
    return false;
  }
  return Trapped(host, loadoutTitle, false, [&] {
    for (const ShipRecord& ship : ships) {
      if (!ship.Imported) continue;
      for (std::size_t t = 0; t < loadoutTextures; ++t) {
        const std::string name = ship.Textures.at(t).Trimmed();
        if (!name.empty() && !MakeCompanion(host, installation, name)) return false;
      }
    }
    return true;
  });
}

Ships LackingCompanions(const TcacheBytes& cache, const Ships& ships) {
  Ships lacking;
  std::set<std::string> named;
  for (const ShipRecord& ship : ships) {
    if (!ship.Imported) continue;
    for (std::size_t first = 0; first < texturesPerShip; first += loadoutTextures) {
      ShipRecord copy = ship;
      copy.Textures.fill({});
      bool lacks = false;
      for (std::size_t t = first; t < std::min(first + loadoutTextures, texturesPerShip); ++t) {
        const std::string name = ship.Textures.at(t).Trimmed();
        if (!LacksCompanion(cache, name, t) || !named.insert(UpperCase(name)).second) continue;
        copy.Textures.at(t - first) = ship.Textures.at(t);
        lacks = true;
      }
      if (lacks) lacking.push_back(copy);
    }
  }
  return lacking;
}

Ships LackingCompanions(Files& files, const std::string& cachePath, const Ships& ships) {
  return LackingCompanions(ReadTcache(files, cachePath), ships);
}

bool CompanionsHaveSlots(const TcacheBytes& cache, const Ships& lacking) {
  const bool usable = CanBeAddedTo(cache);
  int count = cache.count;
  for (const ShipRecord& ship : lacking) {
    for (std::size_t t = 0; t < loadoutTextures; ++t) {
      const std::string name = ship.Textures.at(t).Trimmed();
      if (name.empty()) continue;
      const TcacheEntry entry = EntryOf(cache, SlotNamed(cache, name));
      if (entry.dataOffset == 0 || !DataLiesIn(entry, cache.length)) return true;
      if (count == tcacheCapacity) return false;
      if (usable && SidesFit({0, entry.width, entry.height, entry.pixelFormat, entry.imageCount})) ++count;
    }
  }
  return true;
}

}  // namespace oravin
