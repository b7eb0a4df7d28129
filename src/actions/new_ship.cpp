#include "actions/new_ship.h"

#include <algorithm>

#include "actions/add_on_textures.h"
#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/look_up.h"
#include "files/path.h"
#include "files/whole_file.h"

namespace oravin {

namespace {

constexpr int deepImage = 3;  // bytes per pixel

void RefuseShip(Host& host, const std::string& text) { Show(host, text, Icon::exclamation); }

bool NameCanBeUsed(Host& host, const Installation& installation, const ImportBatch& batch, const std::string& name) {
  std::string why = WhyNameRefused(installation.ships, name);
  if (why.empty()) why = WhyNameRefused(NewRecords(batch), name);
  if (!why.empty()) RefuseShip(host, why);
  return why.empty();
}

/// The bitmap of one texture; asks for one that is missing. Empty when there is none.
std::string BitmapFor(Host& host, const ListedTexture& texture, const std::string& modelPath, GivenBitmaps& given) {
  if (!texture.bitmapPath.empty()) return texture.bitmapPath;
  const std::string key = BitmapKey(texture.name);
  if (const auto before = given.find(key); before != given.end()) return before->second;
  std::string bitmap = AskForBitmap(host, ParentFolder(modelPath), texture.name);
  if (!bitmap.empty()) given[key] = bitmap;
  return bitmap;
}

bool CollectTextures(Host& host, const Installation& installation, const OfferedShip& offered, GivenBitmaps& given,
                     NewShip& ship) {
  const std::string& model = offered.ship.modelPath;
  std::vector<ListedTexture> listed;
  if (!TextureList(host, model, installation.cachePath(), offered.given, listed)) return false;
  if (listed.size() > texturesPerShip) {
    RefuseShip(host, "The ship '" + offered.ship.shipName + "' has " + std::to_string(listed.size()) +
                         " textures. A ship can have at most " + std::to_string(texturesPerShip) +
                         ", so it cannot be imported.");
    return false;
  }
  std::vector<std::string> names;
  for (const ListedTexture& texture : listed) {
    const std::string bitmap = BitmapFor(host, texture, model, given);
    if (bitmap.empty()) {
      RefuseShip(host, "Texture not found - skipping ship!");
      return false;
    }
    const std::string name = ShipText(texture.name).Trimmed();
    names.push_back(name);
    ship.textures.push_back({name, bitmap});
    BmpInfo info = texture.info;
    if (texture.bitmapPath.empty()) WhyUnusable(host.files, bitmap, info);
    ship.deep = ship.deep || (!offered.capital && info.depth == deepImage);
  }
  SetTextures(ship.record, names);
  return true;
}

/// The statistics text next to a model; empty when there is none.
std::string TextNextTo(Files& files, const std::string& modelPath) {
  std::string text = ChangeExtension(modelPath, ".txt");
  return FileExists(files, text) ? text : std::string();
}

/// The path of the statistics text that the next Enable reads for a model of that file name.
std::string AddOnText(const Installation& installation, const std::string& name) {
  return installation.addOnStatsPath(ChangeExtension(name, ".txt"));
}

/// @param name of the model's file among the add-ons; a text of another name is another ship's
void TakeStats(Host& host, const Installation& installation, const std::string& modelPath, const std::string& name,
               NewShip& ship) {
  ship.statsText = TextNextTo(host.files, modelPath);
  if (ship.statsText.empty() && FileExists(host.files, AddOnText(installation, name))) {
    ship.statsText = AddOnText(installation, name);
  }
  ship.stats = ship.statsText.empty() ? ReadShipsStats(host.files, installation.statsPath(), 0)
                                      : ReadImportStats(host.files, ship.statsText);
}

/// True when two models would share their backup and their statistics text: their names differ at most in the
/// extension.
bool ShareBaseName(const std::string& one, const std::string& other) {
  return SameName(ChangeExtension(one, ".txt"), ChangeExtension(other, ".txt"));
}

/// True when no ship of the catalogue or of the run uses a model's file name. An imported ship uses the whole base
/// name, for its backup and its statistics text; the game's own ships use the file name alone.
bool NoShipHas(const Installation& installation, const ImportBatch& batch, const std::string& name) {
  const auto has = [&](const ShipRecord& ship) {
    if (IsInert(ship)) return false;
    return ship.Imported ? ShareBaseName(ModelOf(ship), name) : SameName(ModelOf(ship), name);
  };
  return std::none_of(installation.ships.begin(), installation.ships.end(), has) &&
         std::none_of(batch.ships.begin(), batch.ships.end(), [&](const ReadyShip& ship) { return has(ship.record); });
}

/// True when the statistics text that the next Enable reads for the name is this model's: the one next to it can be
/// kept there; or it brings none, and the one that is there is not another add-on model's.
bool TextIsFree(Files& files, const Installation& installation, ImportBatch& batch, const std::string& model,
                const std::string& name) {
  const std::string added = AddOnText(installation, name);
  const std::string own = TextNextTo(files, model);
  if (!own.empty()) return CanBeCopied(files, batch, own, added);
  if (!FileExists(files, added)) return true;
  const std::string folder = ParentFolder(installation.addOnModelPath(name));
  const auto& models = FilesIn(files, batch, folder).items;
  return std::all_of(models.begin(), models.end(), [&](const auto& item) {
    const std::string& file = item.second.spelling;
    return !ShareBaseName(file, name) || CanBeCopied(files, batch, model, folder + file);
  });
}

/// True when a model can have a file name: no other ship uses it, and no other file has, or will have after this run,
/// the place of the model, its backup or its statistics text in the game's ships folder and among the add-ons.
bool ModelNameIsFree(Host& host, const Installation& installation, ImportBatch& batch, const std::string& model,
                     const std::string& name) {
  if (!NoShipHas(installation, batch, name)) return false;
  const std::string folder = installation.modelsFolder();
  if (FindIn(FilesIn(host.files, batch, folder), ChangeExtension(name, ".org")) != nullptr) return false;
  const std::string backup = folder + ChangeExtension(name, ".bak");
  for (const std::string& place : {folder + name, backup, installation.addOnModelPath(name)}) {
    if (!CanBeCopied(host.files, batch, model, place)) return false;
  }
  return TextIsFree(host.files, installation, batch, model, name);
}

/// A free name for a model's file, at most as long as a record holds.
std::string FreeModelName(Host& host, const Installation& installation, ImportBatch& batch, const std::string& model) {
  const std::string own = FileNameOf(model);
  const std::string extension =
      ExtensionOf(own).empty() ? ".shp" : own.substr(own.size() - ExtensionOf(own).size() - 1);
  const std::string base = own.substr(0, own.size() - (ExtensionOf(own).empty() ? 0 : extension.size()));
  for (int number = 1;; ++number) {
    const std::string ending = (number == 1 ? "" : std::to_string(number)) + extension;
    std::string name = base.substr(0, shipNameWidth - std::min(shipNameWidth, ending.size()));
    name += ending;
    if (ModelNameIsFree(host, installation, batch, model, name)) return name;
  }
}

std::optional<NewShip> Look(Host& host, const Installation& installation, const OfferedShip& offered,
                            GivenBitmaps& given, ImportBatch& batch) {
  const std::string& model = offered.ship.modelPath;
  if (!FileExists(host.files, model)) {
    RefuseShip(host, "The model of the ship '" + offered.ship.shipName + "' was not found:\n" + model);
    return std::nullopt;
  }
  if (!NameCanBeUsed(host, installation, batch, offered.ship.shipName)) return std::nullopt;
  NewShip ship;
  if (!CollectTextures(host, installation, offered, given, ship)) return std::nullopt;
  const std::string own = FileNameOf(model);
  const std::string name = FreeModelName(host, installation, batch, model);
  if (!IsPlainFileName(name) || !CanBeListed(name)) {
    RefuseShip(host, "The model of the ship '" + offered.ship.shipName + "' needs another file name:\n" + model);
    return std::nullopt;
  }
  TakeStats(host, installation, model, name, ship);
  if (name != own) batch.notes.push_back("The model " + own + " was imported as " + name + ".");
  ship.record.ShipName.Set(offered.ship.shipName);
  ship.record.ShipFile.Set(name);
  ship.record.ShipKind = Int16Value(importedKind);
  ship.record.HogOffset = ship.record.HogSize = ship.record.HogFatPos = Int32Value(0);
  ship.record.StatsIndex = ship.record.SecondPartIndex = ship.record.ChangedToIndex = Int16Value(0);
  ship.record.Imported = true;
  return ship;
}

}  // namespace

std::optional<NewShip> LookAtShip(Host& host, const Installation& installation, const OfferedShip& offered,
                                  GivenBitmaps& given, ImportBatch& batch) {
  return Trapped(host, importShipsTitle, std::optional<NewShip>(),
                 [&] { return Look(host, installation, offered, given, batch); });
}

std::string AskForBitmap(Host& host, const std::string& folder, const std::string& texture) {
  const std::string name = Trim(texture) + ".bmp";
  return ChooseFile(host, "Find texture file", folder, IsPlainFileName(name) ? name : "",
                    "Bitmap *.bmp |*.bmp|All files|*.*");
}

}  // namespace oravin
