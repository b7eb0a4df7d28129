#include "actions/add_on_textures.h"

#include <algorithm>

#include "actions/learn_loadout.h"
#include "actions/loadout_companions.h"
#include "actions/texture_batch.h"
#include "base/file_error.h"
#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "desk/program_end.h"
#include "files/look_up.h"
#include "files/path.h"
#include "models/texture_names.h"
#include "textures/new_texture.h"

namespace oravin {

namespace {

/// The textures to install: each name once, without regard to case.
std::vector<std::string> WantedTextures(const Ships& ships) {
  std::vector<std::string> names;
  for (const ShipRecord& ship : ships) {
    if (IsInert(ship) || !ship.Imported) continue;
    for (const ShipText& texture : ship.Textures) {
      const std::string name = texture.Trimmed();
      const bool known =
          std::any_of(names.begin(), names.end(), [&](const auto& other) { return SameName(other, name); });
      if (!name.empty() && !known) names.push_back(name);
    }
  }
  return names;
}

/// Uses the maps' file only: Enable has already made it, or shown a box that says why it could not.
void UseMapsThatAreThere(Files& files, const Installation& installation, TextureBatch& batch) {
  batch.mapsSought = true;
  try {
    batch.maps = ReadLoadoutMaps(files, installation.loadoutMapsPath());
  } catch (const FileError&) {
    batch.maps.reset();
  }
}

/// Finds the maps that Enable will have, without making their file.
void FindMaps(Files& files, const Installation& installation, TextureBatch& batch) {
  batch.mapsSought = true;
  try {
    batch.maps = FindLoadoutMaps(files, installation);
  } catch (const FileError&) {
    batch.maps.reset();
  }
}

/// The path of a texture's bitmap among the add-ons; empty when there is none.
std::string BitmapAmongAddOns(Files& files, const Installation& installation, const std::string& texture) {
  const std::string name = texture + ".bmp";
  std::string bitmap = installation.addOnBitmapPath(name);
  return IsPlainFileName(name) && FileExists(files, bitmap) ? bitmap : std::string();
}

/// Adds a texture to a batch that only counts; false when the cache has no slot for it.
bool CountTexture(Files& files, TextureBatch& batch, const std::string& name, const std::string& bitmap) {
  if (IsInstalled(batch, name)) return true;
  try {
    AddBitmap(files, batch, name, bitmap, GetBMPInfo(files, bitmap), [&] { return batch.maps.has_value(); });
  } catch (const FileError& error) {
    return error.kind != ErrorKind::tooMany;
  }
  return true;
}

void AddAll(Host& host, const Installation& installation, TextureBatch& batch, const std::vector<std::string>& names,
            std::vector<std::string>& missing) {
  for (std::size_t i = 0; i < names.size(); ++i) {
    ShowProgress(host, "Adding the texture " + names[i], static_cast<int>(i), static_cast<int>(names.size()));
    const std::string bitmap = BitmapAmongAddOns(host.files, installation, names[i]);
    if (!bitmap.empty()) {
      AddTexture(host, installation, batch, names[i], bitmap, AlreadyThere::byName);
    } else if (SlotNamed(batch.cache, names[i]) < 0) {
      missing.push_back(names[i]);
    }
  }
}

void Commit(Host& host, TextureBatch& batch) {
  Trap(host, "InstallAddOnTextures", [&] { CommitTextures(host.files, batch); });
}

}  // namespace

AddOnTextures TexturesOfModel(Files& files, const std::string& model) {
  AddOnTextures textures;
  textures.names = ReadShpTextureNames(files, model);
  textures.tooMany = textures.names.size() > texturesPerShip;
  textures.names.resize(std::min(textures.names.size(), texturesPerShip));
  return textures;
}

void SetTextures(ShipRecord& ship, const std::vector<std::string>& names) {
  ship.Textures.fill({});
  for (std::size_t t = 0; t < std::min(names.size(), texturesPerShip); ++t) ship.Textures.at(t).Set(names[t]);
}

bool AddOnTexturesHaveSlots(Files& files, const Installation& installation, const Ships& ships) {
  if (!FileExists(files, installation.cachePath())) return true;
  TextureBatch batch;
  batch.cachePath = installation.cachePath();
  batch.counting = true;
  try {
    batch.cache = ReadTcache(files, batch.cachePath);
  } catch (const FileError&) {
    return true;
  }
  FindMaps(files, installation, batch);
  // No texture is added to a damaged cache, but LoadoutSetup still looks at its table.
  if (CanBeAddedTo(batch.cache)) {
    for (const std::string& name : WantedTextures(ships)) {
      const std::string bitmap = BitmapAmongAddOns(files, installation, name);
      if (!bitmap.empty() && !CountTexture(files, batch, name, bitmap)) return false;
    }
  }
  return !batch.maps || CompanionsHaveSlots(batch.cache, LackingCompanions(batch.cache, ships));
}

void InstallAddOnTextures(Host& host, const Installation& installation) {
  const std::vector<std::string> names = WantedTextures(installation.ships);
  const std::string cache = installation.cachePath();
  if (names.empty() || !FileExists(host.files, cache)) return;
  TextureBatch batch;
  if (!BeginTextures(host, installation, batch)) return;
  UseMapsThatAreThere(host.files, installation, batch);
  std::vector<std::string> missing;
  try {
    AddAll(host, installation, batch, names, missing);
  } catch (const ProgramEnd&) {
    Commit(host, batch);
    throw;
  }
  Commit(host, batch);
  EndProgress(host);
  if (missing.empty()) return;
  Show(host, "The bitmaps of these textures were not found among the add-ons:" + Listed(missing), Icon::exclamation);
}

}  // namespace oravin
