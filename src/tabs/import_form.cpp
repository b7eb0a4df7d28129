#include "tabs/import_form.h"

#include <algorithm>
#include <utility>

#include "actions/new_ship.h"
#include "base/file_error.h"
#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/look_up.h"
#include "files/path.h"

namespace oravin {

namespace {

/// The colour of a ship whose name is taken: pure red.
constexpr std::uint32_t nameTakenColour = 255;

/// Empties the form; columns, captions and tooltips stay.
void Clear(FighterPack& form) {
  form.caption.clear();
  ClearRows(form.lstPack);
  ClearRows(form.lstTextures);
  ShowNoTexture(form.preview, "");
  form.lblPack.caption = "&Ships:";
  form.cmdImportShips.enabled = false;
  form.cmdFindBitmap.enabled = false;
  form.done = false;
  form.source = {};
  form.ship.reset();
  form.textures.clear();
}

ListRow RowOf(const OfferedShip& offered, std::size_t index) {
  const PackShip& ship = offered.ship;
  ListRow row;
  row.item = static_cast<int>(index);
  row.texts = {Trim(ship.shipName), offered.capital ? "Capital ship" : "Fighter",
               FileNameOf(ship.modelPath) + (offered.modelFound ? "" : " (not found)"), Trim(ship.suggestedSwitch)};
  row.tooltip = ship.modelPath;
  row.checked = true;
  return row;
}

std::string SizeOf(const ListedTexture& texture) {
  if (texture.bitmapPath.empty()) return "";
  return std::to_string(texture.info.width) + " x " + std::to_string(texture.info.height);
}

std::string DepthOf(const ListedTexture& texture) {
  const std::int32_t depth = texture.info.depth;
  return texture.bitmapPath.empty() || depth < 1 || depth > 3 ? "" : std::to_string(8 * depth) + " bit";
}

std::string BitmapOf(const ListedTexture& texture) {
  if (texture.bitmapPath.empty()) return "not found";
  if (!texture.unusable.empty()) return "not usable: " + texture.unusable;
  return texture.given ? "given: " + texture.bitmapPath : "found";
}

void FillTextures(FighterPack& form) {
  ClearRows(form.lstTextures);
  for (const ListedTexture& texture : form.textures) {
    ListRow row;
    row.texts = {texture.name, texture.cached ? "yes" : "no", BitmapOf(texture), SizeOf(texture), DepthOf(texture)};
    row.tooltip = texture.bitmapPath;
    AddRow(form.lstTextures, std::move(row));
  }
}

/// Whether problems with a model are shown in message boxes, or in the form alone.
enum class Problems { inBoxes, inForm };

std::optional<std::vector<ListedTexture>> TexturesOf(Host& host, const OfferedShip& ship,
                                                     const Installation& installation, Problems problems) {
  const std::string& model = ship.ship.modelPath;
  std::vector<ListedTexture> textures;
  if (problems == Problems::inBoxes) {
    const bool listed = TextureList(host, model, installation.cachePath(), ship.given, textures);
    return listed ? std::optional(std::move(textures)) : std::nullopt;
  }
  try {
    return ListTextures(host.files, model, installation.cachePath(), ship.given).textures;
  } catch (const FileError&) {
    return std::nullopt;
  }
}

/// Lists the textures of the selected ship and selects one of them.
void ShowShip(Host& host, FighterPack& form, const Installation& installation, std::size_t texture, Problems problems) {
  form.ship = SelectedRow(form.lstPack);
  if (form.ship && *form.ship >= form.source.ships.size()) form.ship.reset();
  form.textures.clear();
  std::string why = "Select a ship to see its textures.";
  if (form.ship) {
    const OfferedShip& ship = form.source.ships[*form.ship];
    why = "The model was not found: " + ship.ship.modelPath;
    // No box for a missing model: the list shows it, and moving through the lines must not show a box at each.
    if (FileExists(host.files, ship.ship.modelPath)) {
      auto textures = TexturesOf(host, ship, installation, problems);
      why = textures ? "This model names no textures." : "This model's textures cannot be listed.";
      if (textures) form.textures = std::move(*textures);
    }
  }
  FillTextures(form);
  if (form.textures.empty()) {
    form.cmdFindBitmap.enabled = false;
    return ShowNoTexture(form.preview, why);
  }
  SelectOnly(form.lstTextures, texture);
  lstTextures_ItemClick(host, form, installation);
}

std::string LabelOf(const FighterPack& form) {
  const auto& ships = form.source.ships;
  if (ships.empty()) return "This pack lists no ships.";
  if (AnyNameTaken(ships)) return "&Ships: those in red have the name of another ship. Rename or uncheck them.";
  return "&Ships: " + std::to_string(CheckedShips(ships).size()) + " of " + std::to_string(ships.size()) +
         " will be imported.";
}

/// Marks the names that are taken, and shows which lines they are and whether anything can be imported.
void ShowNames(FighterPack& form, const Installation& installation) {
  MarkTakenNames(installation.ships, form.source.ships);
  for (std::size_t i = 0; i < form.source.ships.size(); ++i) {
    form.lstPack.rows[i].colour = form.source.ships[i].nameTaken ? nameTakenColour : 0;
  }
  form.cmdImportShips.enabled = !CheckedShips(form.source.ships).empty();
  form.lblPack.caption = LabelOf(form);
  ++form.lstPack.revision;
}

void CheckAllShips(FighterPack& form, const Installation& installation, bool checked) {
  for (std::size_t i = 0; i < form.lstPack.rows.size(); ++i) SetChecked(form.lstPack, i, checked);
  lstPack_ItemCheck(form, installation);
}

}  // namespace

FighterPack NewFighterPack() {
  // Intentional: the two buttons have the same tooltip.
  constexpr const char* tooltip = "Adds fighter to the switcher and settings screen";
  FighterPack form;
  form.lstPack.columns = {{"Ship"}, {"Class"}, {"Model"}, {"Suggested switch"}};
  form.lstPack.checkBoxes = true;
  form.lstPack.labelsEditable = true;
  form.lblTextures.caption = "&Textures of the selected ship:";
  form.lstTextures.columns = {{"Texture"}, {"In the cache"}, {"Bitmap"}, {"Size"}, {"Depth"}};
  form.preview = NewTexturePreview();
  form.cmdFindBitmap = {"&Find Bitmap...", "Gives the selected texture a bitmap to be imported from", false};
  form.cmdCheckAll = {"Check &All", "Checks all ships"};
  form.cmdCheckNone = {"Check &None", "Unchecks all ships"};
  form.cmdImportShips = {"&Import Ships", tooltip, false};
  form.cmdImportCancel = {"&Cancel", tooltip};
  Clear(form);
  return form;
}

bool LoadPack(Host& host, FighterPack& form, const Installation& installation, const std::string& path) {
  Clear(form);
  auto source = LoadImportSource(host, path);
  if (!source) return false;
  form.source = std::move(*source);
  form.caption = "Import: < " + FileNameOf(path) + " >";
  for (const OfferedShip& ship : form.source.ships) AddRow(form.lstPack, RowOf(ship, form.lstPack.rows.size()));
  ShowNames(form, installation);
  if (!form.source.ships.empty()) SelectOnly(form.lstPack, 0);
  // The user has not chosen this ship, so problems with its model are shown in the form. Boxes come when it is clicked.
  ShowShip(host, form, installation, 0, Problems::inForm);
  return true;
}

void lstPack_AfterLabelEdit(Host& host, FighterPack& form, const Installation& installation) {
  LabelEdit& edited = form.lstPack.edited;
  edited.refused = true;
  if (edited.row >= form.source.ships.size()) return;
  const std::string name = Trim(edited.text);
  const std::string why = WhyNameRefused(installation.ships, name);
  if (!why.empty()) return Show(host, why, Icon::exclamation);
  edited.refused = false;
  edited.text = name;
  form.source.ships[edited.row].ship.shipName = name;
  SetText(form.lstPack, edited.row, 0, name);
  ShowNames(form, installation);
}

void lstPack_ItemClick(Host& host, FighterPack& form, const Installation& installation) {
  ShowShip(host, form, installation, 0, Problems::inBoxes);
}

void lstPack_ItemCheck(FighterPack& form, const Installation& installation) {
  for (std::size_t i = 0; i < form.source.ships.size(); ++i) {
    form.source.ships[i].checked = form.lstPack.rows[i].checked;
  }
  ShowNames(form, installation);
}

void cmdCheckAll_Click(FighterPack& form, const Installation& installation) { CheckAllShips(form, installation, true); }

void cmdCheckNone_Click(FighterPack& form, const Installation& installation) {
  CheckAllShips(form, installation, false);
}

void lstTextures_ItemClick(Host& host, FighterPack& form, const Installation& installation) {
  const auto row = SelectedRow(form.lstTextures);
  form.cmdFindBitmap.enabled = row && *row < form.textures.size();
  if (!form.cmdFindBitmap.enabled) return ShowNoTexture(form.preview, "");
  const ListedTexture& texture = form.textures[*row];
  if (!texture.unusable.empty()) {
    ShowNoTexture(form.preview, texture.name + ": " + texture.unusable);
  } else if (!texture.bitmapPath.empty()) {
    ShowBitmap(host, form.preview, texture.bitmapPath, texture.info);
  } else if (texture.cached) {
    ShowTexture(host, form.preview, installation.cachePath(), *texture.cached,
                installation.programFile(texture.cachedPalette), 0);
    form.preview.cmdSmallerImage.enabled = false;  // the form shows the first image alone
  } else {
    ShowNoTexture(form.preview, texture.name + ": no bitmap was found. Find one before the import.");
  }
}

void cmdFindBitmap_Click(Host& host, FighterPack& form, const Installation& installation) {
  const auto row = SelectedRow(form.lstTextures);
  if (!form.ship || !row || *row >= form.textures.size()) return;
  const ListedTexture& texture = form.textures[*row];
  const std::string folder = texture.given ? ParentFolder(texture.bitmapPath) : form.source.folder;
  const std::string bitmap = AskForBitmap(host, folder, texture.name);
  if (bitmap.empty()) return;
  BmpInfo info;
  const std::string why = WhyUnusable(host.files, bitmap, info);
  if (!why.empty()) return Show(host, "This bitmap cannot become a texture:\n" + why, Icon::exclamation);
  form.source.ships[*form.ship].given[BitmapKey(texture.name)] = bitmap;
  // The listed textures belong to the ship that was clicked, so keep it selected.
  SelectOnly(form.lstPack, form.ship);
  ShowShip(host, form, installation, *row, Problems::inBoxes);
}

void cmdImportCancel_Click(FighterPack& form) { form.shown = false; }

}  // namespace oravin
