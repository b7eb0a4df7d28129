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

namespace oravin {

namespace {

/// What is to be installed: every name once, without regard to case.
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

/// The maps of their file alone: Enable has made it where it could, and has reported why where it could not.
void UseMapsThatAreThere(Files& files, TextureBatch& batch) {
  batch.mapsSought = true;
  try {
    if (FileExists(files, batch.mapsPath)) batch.maps = ReadLoadoutMaps(files, batch.mapsPath);
  } catch (const FileError&) {
    batch.maps.reset();
  }
}

/// The maps that Enable will have, without making their file.
void FindMaps(Files& files, TextureBatch& batch) {
  batch.mapsSought = true;
  try {
    batch.maps = FindLoadoutMaps(files, batch.cachePath, batch.mapsPath);
  } catch (const FileError&) {
    batch.maps.reset();
  }
}

void AddAll(Host& host, const Installation& installation, TextureBatch& batch, const std::vector<std::string>& names,
            std::vector<std::string>& missing) {
  for (std::size_t i = 0; i < names.size(); ++i) {
    ShowProgress(host, "Adding the texture " + names[i], static_cast<int>(i), static_cast<int>(names.size()));
    const std::string bitmap = installation.addOnBitmapPath(names[i] + ".bmp");
    if (IsPlainFileName(names[i] + ".bmp") && FileExists(host.files, bitmap)) {
      AddTexture(host, batch, names[i], bitmap, AlreadyThere::byName);
    } else if (SlotNamed(batch.cache, names[i]) < 0) {
      missing.push_back(names[i]);
    }
  }
}

void Commit(Host& host, TextureBatch& batch) {
  Trap(host, "InstallAddOnTextures", [&] { CommitTextures(host.files, batch); });
}

}  // namespace

AddOnTextures TexturesOfModel(Host& host, const std::string& model) {
  AddOnTextures textures;
  Trap(host, "GetShpTextureNames", [&] { textures.names = ReadShpTextureNames(host.files, model); });
  textures.tooMany = textures.names.size() > texturesPerShip;
  textures.names.resize(std::min(textures.names.size(), texturesPerShip));
  return textures;
}

void SetTextures(ShipRecord& ship, const std::vector<std::string>& names) {
  ship.Textures.fill({});
  for (std::size_t t = 0; t < std::min(names.size(), texturesPerShip); ++t) ship.Textures.at(t).Set(names[t]);
}

bool AddOnTexturesHaveSlots(const Installation& installation, const Ships& ships) {
  const std::string cache = installation.cachePath();
  Host quiet;
  quiet.desk.showBox = [](const Message&) { return Answer::ok; };
  if (!FileExists(quiet.files, cache)) return true;
  TextureBatch batch;
  try {
    // Of a cache that nothing can be added to the table is there all the same, and LoadoutSetup looks at it.
    const bool usable = BeginTextures(quiet, cache, installation.ProgramPath, batch);
    batch.counting = true;
    FindMaps(quiet.files, batch);
    std::vector<std::string> missing;
    if (usable) AddAll(quiet, installation, batch, WantedTextures(ships), missing);
  } catch (const ProgramEnd&) {
    return false;
  }
  return !batch.maps || CompanionsHaveSlots(batch.cache, LackingCompanions(batch.cache, ships));
}

void InstallAddOnTextures(Host& host, const Installation& installation) {
  const std::vector<std::string> names = WantedTextures(installation.ships);
  const std::string cache = installation.cachePath();
  if (names.empty() || !FileExists(host.files, cache)) return;
  TextureBatch batch;
  if (!BeginTextures(host, cache, installation.ProgramPath, batch)) return;
  UseMapsThatAreThere(host.files, batch);
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
