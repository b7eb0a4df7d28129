#include "actions/loadout_companions.h"

#include <algorithm>
#include <set>

#include "actions/import_texture.h"
#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/look_up.h"
#include "files/path.h"
#include "files/whole_file.h"
#include "files/work_files.h"
#include "installation/installation.h"
#include "textures/cache_table.h"
#include "textures/extract_texture.h"
#include "textures/loadout_maps.h"
#include "textures/new_texture.h"

namespace oravin {

namespace {

constexpr const char* loadoutTitle = "LoadoutSetup";

/// A name for a work file that no file of the folder bears.
std::string FreeWorkName(Files& files, const std::string& folder, std::string name) {
  while (FileExists(files, folder + name)) name += "_";
  return name;
}

/// Of a ship's further textures only those that an editor added lack a companion, since that is what an import gives to
/// each; capital ships use many of the game's own that have none.
bool LacksCompanion(const TcacheBytes& cache, const std::string& name, std::size_t texture) {
  const int slot = name.empty() ? -1 : SlotNamed(cache, name);
  if (slot < 0 || EntryOf(cache, slot).pixelFormat != paletteFormat || SlotNamed(cache, "g" + name) >= 0) return false;
  return texture < loadoutTextures || slot >= factoryTextures;
}

/// Makes one companion; false when the whole run must end.
bool MakeCompanion(Host& host, const std::string& cachePath, const std::string& folder, const std::string& name) {
  TcacheEntry entry;
  ReadTcacheEntry(host, cachePath, name, entry);
  if (entry.pixelFormat == 0) {
    Show(host, "Error - Texture not found", Icon::exclamation, loadoutTitle);
    return false;
  }
  if (entry.dataOffset == 0) {
    Show(host, "Error in TCACHE. Can't find " + name + "!", Icon::critical);
    return false;
  }
  if (entry.pixelFormat != paletteFormat) return true;
  const std::string raw = FreeWorkName(host.files, folder, SafeFileName(name));
  const std::string mapped = FreeWorkName(host.files, folder, SafeFileName("g" + name));
  const WorkFiles work(host.files, {folder + raw, folder + mapped});
  if (!ExtractRaw(host, cachePath, name, folder + raw)) return false;
  if (!ConvertTexture(host, folder + raw, folder, mapped, folder + loadoutMapsName)) return false;
  const BmpInfo info{0, entry.width, entry.height, entry.pixelFormat, entry.imageCount};
  ImportTexture(host, cachePath, folder + mapped, "g" + name, info);
  return true;
}

}  // namespace

bool LoadoutSetup(Host& host, std::string cachePath, std::string folder, const Ships& ships, std::size_t count) {
  folder = AddBackslash(folder);
  TrimInPlace(cachePath);
  if (!FolderExists(host.files, folder) || !FileExists(host.files, cachePath)) {
    Show(host, "Error - Path(s) not found", Icon::critical, loadoutTitle);
    return false;
  }
  return Trapped(host, loadoutTitle, false, [&] {
    for (std::size_t i = 0; i < count && i < ships.size(); ++i) {
      if (!ships[i].Imported) continue;
      for (std::size_t t = 0; t < loadoutTextures; ++t) {
        const std::string name = ships[i].Textures.at(t).Trimmed();
        if (!name.empty() && !MakeCompanion(host, cachePath, folder, name)) return false;
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

void ReadTcacheEntry(Host& host, const std::string& cachePath, const std::string& name, TcacheEntry& entry) {
  entry = {};
  const std::uint32_t offset = FindStructOffset(host, cachePath, name);
  if (offset == 0) return;
  const TcacheBytes cache = ReadTcache(host.files, cachePath);
  const int slot = static_cast<int>((offset - tcacheHeaderSize) / tcacheEntrySize);
  if (slot < SlotsIn(cache)) entry = EntryOf(cache, slot);
}

bool ExtractRaw(Host& host, std::string cachePath, const std::string& name, const std::string& outputPath) {
  TcacheEntry entry;
  TrimInPlace(cachePath);
  if (FileExists(host.files, cachePath)) ReadTcacheEntry(host, cachePath, name, entry);
  if (entry.entryOffset == 0 || !FolderExists(host.files, ParentFolder(outputPath))) {
    Show(host, "Error in extracting textures. Path(s) don't exist", Icon::exclamation);
    return false;
  }
  WriteWhole(host.files, outputPath, ReadTextureData(host.files, cachePath, entry));
  return true;
}

}  // namespace oravin
