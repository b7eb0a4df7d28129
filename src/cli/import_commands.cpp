#include <algorithm>

#include "app/handlers.h"
#include "app/import_file.h"
#include "base/file_error.h"
#include "base/text.h"
#include "cli/commands.h"
#include "cli/ship_names.h"
#include "cli/text_table.h"
#include "models/texture_names.h"
#include "platform/native_path.h"

namespace oravin {

namespace {

/// The two sides of "OLD=NEW".
struct Sides {
  std::string left;
  std::string right;
};

/// Splits an option's value at its first "="; says so where one side is missing.
std::optional<Sides> SidesOf(Session& session, const std::string& option, const std::string& value) {
  const std::size_t at = value.find('=');
  if (at != std::string::npos && !Trim(value.substr(0, at)).empty() && !Trim(value.substr(at + 1)).empty()) {
    return Sides{Trim(value.substr(0, at)), Trim(value.substr(at + 1))};
  }
  SayError(session.console, option + " must be given as two parts with = between them, not \"" + value + "\"");
  return std::nullopt;
}

/// The line of the form that shows a ship's name; says so when there is none.
std::optional<std::size_t> LineNamed(Session& session, const std::string& name) {
  const auto row = RowShowing(session.main.importForm.lstPack, name);
  if (!row) SayError(session.console, "there is no ship \"" + name + "\" in this file");
  return row;
}

bool CheckOnly(Session& session, const std::vector<std::string>& names) {
  if (names.empty()) return true;
  Run(session.main, "Fighter_PACK.cmdCheckNone");
  for (const std::string& name : names) {
    const auto row = LineNamed(session, name);
    if (!row) return false;
    SetChecked(session.main.importForm.lstPack, *row, true);
  }
  Run(session.main, "Fighter_PACK.lstPack.ItemCheck");
  return true;
}

bool RenameLines(Session& session, const std::vector<std::string>& pairs) {
  ListView& list = session.main.importForm.lstPack;
  for (const std::string& pair : pairs) {
    const auto names = SidesOf(session, "--rename", pair);
    const auto row = names ? LineNamed(session, names->left) : std::nullopt;
    if (!row) return false;
    list.edited = {*row, names->right};
    Run(session.main, "Fighter_PACK.lstPack.AfterLabelEdit");
    if (list.edited.refused) return false;
  }
  return true;
}

/// True when one of the file's models names a texture; says so when none does.
bool NamesTexture(Session& session, const std::string& texture) {
  for (const OfferedShip& offered : session.main.importForm.source.ships) {
    std::vector<std::string> names;
    try {
      names = ReadShpTextureNames(session.main.host.files, offered.ship.modelPath);
    } catch (const FileError&) {
      continue;  // the import reports a model that cannot be read
    }
    const auto same = [&](const std::string& name) { return BitmapKey(name) == BitmapKey(texture); };
    if (std::any_of(names.begin(), names.end(), same)) return true;
  }
  SayError(session.console, "no ship in this file has a texture \"" + texture + "\"");
  return false;
}

bool GiveBitmaps(Session& session, const std::vector<std::string>& pairs) {
  for (const std::string& pair : pairs) {
    const auto given = SidesOf(session, "--texture", pair);
    if (!given || !NamesTexture(session, given->left)) return false;
    const std::string path = platform::ToWindowsPath(given->right);
    BmpInfo info;
    std::string why = WhyUnusable(session.main.host.files, path, info);
    if (!why.empty()) {
      SayError(session.console, why.insert(0, path + " cannot become a texture: "));
      return false;
    }
    for (OfferedShip& offered : session.main.importForm.source.ships) offered.given[BitmapKey(given->left)] = path;
  }
  return true;
}

/// Reports the checked ships whose names are taken.
void TellTakenNames(Session& session) {
  for (const OfferedShip& offered : session.main.importForm.source.ships) {
    if (!offered.checked || !offered.nameTaken) continue;
    SayError(session.console, "the name \"" + Trim(offered.ship.shipName) +
                                  "\" is taken; give another one with --rename, or leave the ship out with --only");
  }
}

bool WasImported(const Ships& ships, const std::string& name) {
  const int index = FindShip(ships, name);
  return index >= 0 && ships[static_cast<std::size_t>(index)].Imported;
}

/// Which of the checked ships were imported.
Result TellImport(const Session& session, const std::vector<OfferedShip>& ships) {
  Json imported = Json::array();
  Json failed = Json::array();
  for (const OfferedShip& ship : ships) {
    const bool done = WasImported(session.main.installation.ships, ship.ship.shipName);
    (done ? imported : failed).push_back(ToUtf8(ship.ship.shipName));
  }
  std::string text = "Imported: " + std::to_string(imported.size()) + ".\n";
  const auto add = [&](const Json& name) { text.append("  ").append(name.get<std::string>()).append("\n"); };
  for (const auto& name : imported) add(name);
  if (!failed.empty()) text += "Not imported: " + std::to_string(failed.size()) + ".\n";
  for (const auto& name : failed) add(name);
  return {{{"action", "import"}, {"imported", imported}, {"failed", failed}}, text};
}

/// The stock ships that are changed to a ship, by their names.
std::vector<std::string> ChangedTo(const Ships& ships, std::size_t index) {
  std::vector<std::string> names;
  for (const ShipRecord& ship : ships) {
    if (IsInert(ship) || !ship.Changed || WholeNumber(ship.ChangedToIndex) != static_cast<std::int64_t>(index))
      continue;
    const std::string name = ToUtf8(ship.ShipName.Trimmed());
    if (names.empty() || names.back() != name) names.push_back(name);
  }
  return names;
}

std::vector<std::string> TexturesOf(const ShipRecord& ship) {
  std::vector<std::string> names;
  for (const ShipText& texture : ship.Textures) {
    if (!texture.Trimmed().empty()) names.push_back(ToUtf8(texture.Trimmed()));
  }
  return names;
}

std::string Joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : ", ") + word;
  return text;
}

/// The row of an imported ship; says so when there is none of that name.
std::optional<std::size_t> ImportedRow(Session& session, const std::string& name) {
  const auto row = RowShowing(session.main.imports.lstImported, name);
  if (!row) SayError(session.console, "there is no imported ship \"" + name + "\"; \"imported list\" shows them");
  return row;
}

}  // namespace

std::optional<Result> ImportShips(Session& session, const Values& values) {
  Main& main = session.main;
  ImportFile(main, values.at(0));
  if (!main.importForm.shown) return std::nullopt;
  if (!CheckOnly(session, values.EveryOf("--only")) || !RenameLines(session, values.EveryOf("--rename")) ||
      !GiveBitmaps(session, values.EveryOf("--texture"))) {
    return std::nullopt;
  }
  const std::vector<OfferedShip> ships = CheckedShips(main.importForm.source.ships);
  Run(main, "Fighter_PACK.cmdImportShips");
  if (!main.importForm.done) {
    TellTakenNames(session);
    return std::nullopt;
  }
  return TellImport(session, ships);
}

std::optional<Result> ListImported(Session& session, const Values&) {
  const Main& main = session.main;
  Json document = Json::array();
  std::vector<std::vector<std::string>> rows;
  for (const ListRow& row : main.imports.lstImported.rows) {
    const auto index = static_cast<std::size_t>(row.item);
    const ShipRecord& ship = main.installation.ships.at(index);
    const auto textures = TexturesOf(ship);
    const auto used = ChangedTo(main.installation.ships, index);
    const std::string name = ToUtf8(ship.ShipName.Trimmed());
    const char* shipClass = main.imports.capitalShips.contains(static_cast<int>(index)) ? "capital ship" : "fighter";
    document.push_back(Json{{"name", name},
                            {"model", ModelOf(ship)},
                            {"class", shipClass},
                            {"statsIndex", WholeNumber(ship.StatsIndex)},
                            {"textures", textures},
                            {"inPlaceOf", used}});
    rows.push_back({name, ModelOf(ship), shipClass, Joined(textures), Joined(used)});
  }
  if (rows.empty()) return Result{document, "There are no imported ships.\n"};
  return Result{document, TextTable({{"Name"}, {"Model"}, {"Class"}, {"Textures"}, {"Flies in place of"}}, rows)};
}

std::optional<Result> RenameImportedShip(Session& session, const Values& values) {
  ListView& list = session.main.imports.lstImported;
  const auto row = ImportedRow(session, values.at(0));
  if (!row) return std::nullopt;
  list.edited = {*row, values.at(1)};
  Run(session.main, "imports.lstImported.AfterLabelEdit");
  if (list.edited.refused) return std::nullopt;
  const std::string name = ToUtf8(Trim(values.at(1)));
  return Result{{{"action", "imported rename"}, {"name", name}}, "The ship is called " + name + " now.\n"};
}

std::optional<Result> RemoveImportedShips(Session& session, const Values& values) {
  Main& main = session.main;
  const bool all = values.Has("--all");
  if (all != values.several.empty()) {
    SayError(session.console, "name the ships to remove, or give --all");
    return std::nullopt;
  }
  std::vector<std::string> names;
  SelectAll(main.imports.lstImported, false);
  for (const std::string& name : values.several) {
    const auto row = ImportedRow(session, name);
    if (!row) return std::nullopt;
    main.imports.lstImported.rows[*row].selected = true;
  }
  for (const ListRow& row : main.imports.lstImported.rows) {
    if (all || row.selected) names.push_back(row.texts.at(0));
  }
  if (names.empty()) {
    return Result{{{"action", "imported remove"}, {"removed", Json::array()}}, "There are no imported ships.\n"};
  }
  const int failuresBefore = session.console.failures;
  Run(main, "imports.lstImported.ItemClick");
  Run(main, all ? "imports.cmdRemoveAll" : "imports.cmdRemoveShips");
  Json removed = Json::array();
  for (const std::string& name : names) {
    if (!RowShowing(main.imports.lstImported, name)) removed.push_back(ToUtf8(name));
  }
  if (removed.empty() && session.console.failures > failuresBefore) return std::nullopt;
  const std::string text =
      removed.empty() ? "Nothing was done.\n" : "Removed: " + std::to_string(removed.size()) + ".\n";
  return Result{{{"action", "imported remove"}, {"removed", removed}}, text};
}

}  // namespace oravin
