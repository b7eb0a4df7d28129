#include "tabs/import_form.h"

#include <algorithm>
#include <set>
#include <utility>

#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/look_up.h"
#include "files/path.h"
#include "lists/ship_list.h"
#include "models/class_byte.h"

namespace oravin {

namespace {

/// Empties the form; what it looks like stays.
void Clear(FighterPack& form) {
  form.caption.clear();
  ClearRows(form.lstPack);
  ClearRows(form.lstTextures);
  ShowNoTexture(form.preview, "");
  form.lblPack.caption = "&Ships:";
  form.cmdImportShips.enabled = false;
  form.cmdFindBitmap.enabled = false;
  form.done = false;
  form.path.clear();
  form.folder.clear();
  form.header.clear();
  form.ships.clear();
  form.given.clear();
  form.ship.reset();
  form.textures.clear();
}

/// The one ship of a single model; none where the model is missing, after its box.
std::vector<PackShip> ShipOfModel(Host& host, const std::string& path) {
  const bool capital = Trapped(host, "IsCapitalShip", false, [&] { return IsCapitalShip(host.files, path); });
  if (!FileExists(host.files, path)) return {};
  const std::string file = FileNameOf(path);
  PackShip ship;
  ship.shipClass = capital ? capitalClass : fighterClass;
  ship.modelPath = path;
  ship.shipName = file.substr(0, file.size() - std::min<std::size_t>(file.size(), 4));
  return {ship};
}

ListRow RowOf(Files& files, const PackShip& ship, std::size_t index) {
  const bool there = FileExists(files, ship.modelPath);
  ListRow row;
  row.item = static_cast<int>(index);
  row.texts = {Trim(ship.shipName), ship.shipClass == capitalClass ? "Capital ship" : "Fighter",
               FileNameOf(ship.modelPath) + (there ? "" : " (not found)"), Trim(ship.suggestedSwitch)};
  row.tooltip = ship.modelPath;
  row.checked = true;
  return row;
}

/// What two names have in common that are one name.
std::string NameKey(const std::string& name) { return UpperCase(Trim(name)); }

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

void ListTextures(FighterPack& form) {
  ClearRows(form.lstTextures);
  for (const ListedTexture& texture : form.textures) {
    ListRow row;
    row.texts = {texture.name, texture.cached ? "yes" : "no", BitmapOf(texture), SizeOf(texture), DepthOf(texture)};
    row.tooltip = texture.bitmapPath;
    AddRow(form.lstTextures, std::move(row));
  }
}

/// Lists the textures of the selected ship with one of them selected.
void ShowShip(Host& host, FighterPack& form, const Installation& installation, std::size_t texture) {
  form.ship = SelectedRow(form.lstPack);
  if (form.ship && *form.ship >= form.ships.size()) form.ship.reset();
  form.textures.clear();
  std::string why = "Select a ship to see its textures.";
  if (form.ship) {
    const std::string& model = form.ships[*form.ship].modelPath;
    // The list says that a model is missing; going through its lines must not bring up a box at each.
    const bool there = FileExists(host.files, model);
    why = there ? "This model's textures cannot be listed." : "The model was not found: " + model;
    if (there && TextureList(host, model, installation.cachePath(), form.given[*form.ship], form.textures)) {
      why = "This model names no textures.";
    }
  }
  ListTextures(form);
  if (form.textures.empty()) {
    form.cmdFindBitmap.enabled = false;
    return ShowNoTexture(form.preview, why);
  }
  SelectOnly(form.lstTextures, texture);
  lstTextures_ItemClick(host, form, installation);
}

void CheckAllShips(FighterPack& form, const Installation& installation, bool checked) {
  for (std::size_t i = 0; i < form.lstPack.rows.size(); ++i) SetChecked(form.lstPack, i, checked);
  lstPack_ItemCheck(form, installation);
}

std::string TellAbout(const FighterPack& form) {
  const auto& rows = form.lstPack.rows;
  if (rows.empty()) return "This pack lists no ships.";
  if (AnyCheckedRed(form)) return "&Ships: those in red have the name of another ship. Rename or uncheck them.";
  const auto checked = std::count_if(rows.begin(), rows.end(), [](const ListRow& row) { return row.checked; });
  return "&Ships: " + std::to_string(checked) + " of " + std::to_string(rows.size()) + " will be imported.";
}

}  // namespace

FighterPack NewFighterPack() {
  // The two buttons bear the same tooltip: that is meant.
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
  const std::string chosen = Trim(path);
  const std::string folder = ParentFolder(chosen);
  std::vector<PackShip> ships;
  if (ExtensionOf(chosen) == "shp") {
    ships = ShipOfModel(host, chosen);
    if (ships.empty()) return false;
  } else {
    GetPAK(host, chosen, folder, ships);
    if (ships.empty()) return false;
    form.header = ships.front().header;
    ships.pop_back();  // the entry behind the last ship
  }
  form.path = chosen;
  form.folder = folder;
  form.caption = "Import: < " + FileNameOf(chosen) + " >";
  form.ships = std::move(ships);
  form.given.resize(form.ships.size());
  for (std::size_t i = 0; i < form.ships.size(); ++i) AddRow(form.lstPack, RowOf(host.files, form.ships[i], i));
  ColourPack(form, installation);
  if (!form.ships.empty()) SelectOnly(form.lstPack, 0);
  // Nobody has chosen that ship: what is wrong with its model is told in the form, and in boxes when it is clicked.
  Host quiet;
  quiet.desk.showBox = [](const Message&) { return Answer::ok; };
  ShowShip(quiet, form, installation, 0);
  return true;
}

void ColourPack(FighterPack& form, const Installation& installation) {
  std::set<std::string> taken;
  for (const ShipRecord& ship : installation.ships) {
    if (!IsInert(ship)) taken.insert(NameKey(ship.ShipName.Trimmed()));
  }
  for (ListRow& row : form.lstPack.rows) {
    const std::string name = NameKey(row.texts.front());
    row.colour = taken.contains(name) ? nameTakenColour : 0;
    if (row.checked) taken.insert(name);
  }
  const auto& rows = form.lstPack.rows;
  form.cmdImportShips.enabled = std::any_of(rows.begin(), rows.end(), [](const ListRow& row) { return row.checked; });
  form.lblPack.caption = TellAbout(form);
  ++form.lstPack.revision;
}

void lstPack_AfterLabelEdit(Host& host, FighterPack& form, const Installation& installation) {
  LabelEdit& edited = form.lstPack.edited;
  edited.refused = true;
  if (edited.row >= form.ships.size()) return;
  const std::string name = Trim(edited.text);
  const std::string why = WhyNoShipName(name);
  if (!why.empty()) return Show(host, why, Icon::exclamation);
  if (FindShip(installation.ships, name) >= 0) {
    return Show(host, "The ship name '" + name + "' has the same name as an existing ship.", Icon::exclamation);
  }
  edited.refused = false;
  edited.text = name;
  form.ships[edited.row].shipName = name;
  SetText(form.lstPack, edited.row, 0, name);
  ColourPack(form, installation);
}

void lstPack_ItemClick(Host& host, FighterPack& form, const Installation& installation) {
  ShowShip(host, form, installation, 0);
}

void lstPack_ItemCheck(FighterPack& form, const Installation& installation) { ColourPack(form, installation); }

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
    form.preview.cmdSmallerImage.enabled = false;  // the form has no way of changing the image
  } else {
    ShowNoTexture(form.preview, texture.name + ": no bitmap was found. Find one before the import.");
  }
}

void cmdFindBitmap_Click(Host& host, FighterPack& form, const Installation& installation) {
  const auto row = SelectedRow(form.lstTextures);
  if (!form.ship || !row || *row >= form.textures.size()) return;
  const ListedTexture& texture = form.textures[*row];
  const std::string folder = texture.given ? ParentFolder(texture.bitmapPath) : form.folder;
  const std::string bitmap = AskForBitmap(host, folder, texture.name);
  if (bitmap.empty()) return;
  BmpInfo info;
  const std::string why = WhyUnusable(host.files, bitmap, info);
  if (!why.empty()) return Show(host, "This bitmap cannot become a texture:\n" + why, Icon::exclamation);
  form.given[*form.ship][BitmapKey(texture.name)] = bitmap;
  // The list of textures is of the ship that was clicked, so that one stays the selected ship.
  SelectOnly(form.lstPack, form.ship);
  ShowShip(host, form, installation, *row);
}

std::string AskForBitmap(Host& host, const std::string& folder, const std::string& texture) {
  const std::string name = Trim(texture) + ".bmp";
  return ChooseFile(host, "Find texture file", folder, IsPlainFileName(name) ? name : "",
                    "Bitmap *.bmp |*.bmp|All files|*.*");
}

void cmdImportCancel_Click(FighterPack& form) { form.shown = false; }

bool AnyCheckedRed(const FighterPack& form) {
  return std::any_of(form.lstPack.rows.begin(), form.lstPack.rows.end(),
                     [](const ListRow& row) { return row.checked && row.colour == nameTakenColour; });
}

std::vector<CheckedShip> CheckedShips(const FighterPack& form) {
  std::vector<CheckedShip> checked;
  for (std::size_t i = 0; i < form.ships.size(); ++i) {
    if (!form.lstPack.rows.at(i).checked) continue;
    checked.push_back({form.ships[i], form.given[i]});
    checked.back().ship.shipName = Trim(form.ships[i].shipName);
  }
  return checked;
}

}  // namespace oravin
