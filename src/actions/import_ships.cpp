#include "actions/import_ships.h"

#include <set>

#include "actions/import_batch.h"
#include "actions/new_ship.h"
#include "base/text.h"
#include "catalogue/catalogue.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "desk/program_end.h"
#include "desk/write_plan.h"
#include "files/look_up.h"
#include "files/path.h"
#include "platform/start_program.h"

namespace oravin {

namespace {

constexpr const char* redNames =
    "Ships marked in red have the same names as an existing ship in Oravin.\n"
    "You must rename or uncheck these ships before importing.";

constexpr const char* deepImages =
    "Warning - this fighter is using 24-bit images for textures which\n"
    "can cause severe performance issues. 24-bit images should only be used\n"
    "for detailing on capships. For fighters convert textures to 256 indexed color\n"
    "using the slpal.pal file in the Oravin\\3d folder(see readme).";

constexpr const char* switchQuestion =
    "Would you like Oravin to make the ship switches\n"
    "suggested by the ship pack file?\n"
    "(Note that Oravin might have to unswitch some ships, so you may lose\n"
    "some custom stat settings on currently switched ships.)";

/// The state of a run.
struct Run {
  Host& host;
  Installation& installation;
  ImportBatch batch;
  GivenBitmaps given;
  bool warned = false;               ///< about 24-bit images
  std::vector<std::string> reasons;  ///< why the current ship is refused, for the result message
  ImportResult result;
};

/// Copies a file to the add-ons. Another file of that name is not replaced; a note says so.
void AddToAddOns(Run& run, const std::string& from, const char* folder, const std::string& name) {
  if (!IsPlainFileName(name)) {
    run.batch.notes.push_back("This file has no name under which it could be kept with the add-ons:\n" + from);
    return;
  }
  const std::string to = run.installation.programFile(folder + name);
  if (AddCopy(run.host.files, run.batch, from, to)) return;
  run.batch.notes.push_back("This add-on is another file and was left as it is:\n" + to);
}

/// True when the ship's bitmaps can be kept with the add-ons. Enable finds a texture by its bitmap's name: with another
/// bitmap of that name, which must not be replaced, the ship would get that one's picture.
bool BitmapsCanBeKept(Run& run, const NewShip& ship) {
  bool all = true;
  for (const NewShipTexture& texture : ship.textures) {
    const std::string name = texture.name + ".bmp";
    const std::string to = run.installation.addOnBitmapPath(name);
    if (!IsPlainFileName(name) || CanBeCopied(run.host.files, run.batch, texture.bitmap, to)) continue;
    run.reasons.push_back("The ship '" + ship.record.ShipName.Trimmed() +
                          "' needs another bitmap than this add-on, which was left as it is:\n" + to);
    all = false;
  }
  return all;
}

/// Writes what a ship needs; false when one of its textures is refused, or another file has one of its places.
bool WriteShip(Run& run, const OfferedShip& offered, const NewShip& ship) {
  Files& files = run.host.files;
  if (!BitmapsCanBeKept(run, ship)) return false;
  for (const NewShipTexture& texture : ship.textures) {
    const AddedTexture added = AddTexture(run.host, run.installation, run.batch.textures, texture.name, texture.bitmap,
                                          AlreadyThere::byPixels);
    if (added == AddedTexture::refused) return false;
  }
  const std::string model = ModelOf(ship.record);
  const std::string loose = run.installation.modelPath(model);
  for (const std::string& place : {loose, ChangeExtension(loose, ".bak")}) {
    if (AddCopy(files, run.batch, offered.ship.modelPath, place)) continue;
    run.reasons.push_back("The ship '" + ship.record.ShipName.Trimmed() + "' needs the place of another file:\n" +
                          place);
    return false;
  }
  AddToAddOns(run, offered.ship.modelPath, addOnShipsFolder, model);
  for (const NewShipTexture& texture : ship.textures) {
    AddToAddOns(run, texture.bitmap, addOnTexturesFolder, texture.name + ".bmp");
  }
  if (!ship.statsText.empty()) {
    AddToAddOns(run, ship.statsText, addOnStatsFolder, ChangeExtension(model, ".txt"));
  }
  run.batch.ships.push_back({ship.record, ship.stats});
  return true;
}

bool ImportShip(Run& run, const OfferedShip& offered) {
  const ImportMark mark = MarkOf(run.batch);
  bool done = false;
  try {
    const auto ship = LookAtShip(run.host, run.installation, offered, run.given, run.batch);
    if (ship && ship->deep && !run.warned) {
      Show(run.host, deepImages, Icon::exclamation);
      run.warned = true;
    }
    done = ship && Trapped(run.host, importShipsTitle, false, [&] { return WriteShip(run, offered, *ship); });
  } catch (const ProgramEnd&) {
    GoBackTo(run.host, run.batch, mark);
    throw;
  }
  if (!done) GoBackTo(run.host, run.batch, mark);
  return done;
}

void ImportAll(Run& run, const std::vector<OfferedShip>& ships) {
  for (std::size_t i = 0; i < ships.size(); ++i) {
    if (StopAsked(run.host)) {
      run.result.stopped = true;
      run.batch.notes.emplace_back("The import was stopped before its end.");
      return;
    }
    const PackShip& ship = ships[i].ship;
    ShowProgress(run.host, "Importing " + ship.shipName, static_cast<int>(i), static_cast<int>(ships.size()));
    run.reasons.clear();
    if (ImportShip(run, ships[i])) {
      run.result.imported.push_back(ship);
    } else {
      run.result.refused.push_back({ship.shipName, std::move(run.reasons)});
    }
  }
}

void Commit(Run& run) {
  ImportResult& result = run.result;
  EndProgress(run.host);
  if (CommitImport(run.host, run.installation, run.batch)) {
    result.notes = std::move(run.batch.notes);
    return;
  }
  // The notes are about ships that would have been imported.
  for (const PackShip& ship : result.imported) result.refused.push_back({ship.shipName, {}});
  result.imported.clear();
}

/// Adds the room that the ships' bitmaps need: once for the add-ons, and twice for the cache, where each may get a
/// companion of the same size.
void NeedRoomForBitmaps(Files& files, WritePlan& plan, const Installation& installation,
                        const std::vector<OfferedShip>& ships) {
  std::set<std::string> counted;
  for (const OfferedShip& ship : ships) {
    for (const std::string& bitmap : BitmapsOf(files, ship.ship.modelPath, ship.given)) {
      if (!counted.insert(UpperCase(bitmap)).second) continue;
      NeedRoom(plan, installation.ProgramPath, FileLength(files, bitmap));
      NeedRoom(plan, installation.GamePath, 2 * FileLength(files, bitmap));
    }
  }
}

WritePlan PlanImport(Files& files, const Installation& installation, const std::vector<OfferedShip>& ships) {
  WritePlan plan;
  plan.folders = {installation.GamePath, installation.modelsFolder(), installation.ProgramPath};
  for (const char* folder : {addOnShipsFolder, addOnTexturesFolder, addOnStatsFolder}) {
    if (FolderExists(files, installation.programFile(folder))) plan.folders.push_back(installation.programFile(folder));
  }
  plan.files = {installation.cachePath(), installation.defaultsPath(), installation.cataloguePath(),
                installation.shipListPath()};
  for (const OfferedShip& ship : ships) {
    NeedRoom(plan, installation.GamePath, 2 * FileLength(files, ship.ship.modelPath));
    NeedRoom(plan, installation.ProgramPath, FileLength(files, ship.ship.modelPath) + shipRecordSize);
  }
  NeedRoomForBitmaps(files, plan, installation, ships);
  return plan;
}

}  // namespace

bool CanBeImportedInto(Host& host, const Installation& installation) {
  if (FeaturesEnabled(host.files, installation.cataloguePath()) && !installation.ships.empty()) return true;
  Show(host, "Press \"Enable\" on the Switcher tab first. Then ships can be imported.", Icon::exclamation);
  return false;
}

bool CanImport(Host& host, const Installation& installation, const std::vector<OfferedShip>& ships) {
  if (!CanBeImportedInto(host, installation)) return false;
  if (AnyNameTaken(ships)) {
    Show(host, redNames, Icon::exclamation);
    return false;
  }
  if (!CheckedShips(ships).empty()) return true;
  Show(host, ships.empty() ? "This pack lists no ships." : "Check the ships to import first.", Icon::exclamation);
  return false;
}

std::optional<ImportResult> ImportShips(Host& host, Installation& installation,
                                        const std::vector<OfferedShip>& offered) {
  const std::vector<OfferedShip> ships = CheckedShips(offered);
  if (!ReadyToWrite(host, PlanImport(host.files, installation, ships))) return std::nullopt;
  Run run{host, installation, {}, {}, false, {}, {}};
  if (!BeginImport(host, installation, run.batch)) return std::nullopt;
  try {
    ImportAll(run, ships);
  } catch (const ProgramEnd&) {
    Commit(run);
    throw;
  }
  Commit(run);
  return std::move(run.result);
}

std::vector<std::pair<std::string, std::string>> SuggestedSwitches(const Ships& ships, const ImportResult& result) {
  std::vector<std::pair<std::string, std::string>> switches;
  for (const PackShip& ship : result.imported) {
    const int target = FindShip(ships, ship.suggestedSwitch);
    if (target < 0 || !IsStock(ships[static_cast<std::size_t>(target)])) continue;
    switches.emplace_back(UpperCase(Trim(ship.suggestedSwitch)), UpperCase(ship.shipName));
  }
  return switches;
}

bool AskForSwitches(Host& host) { return AskYesNo(host, switchQuestion); }

void ShowImportResult(Host& host, const ImportResult& result) {
  const bool complete = result.refused.empty() && !result.stopped;
  std::string text = complete ? "Importing Successfull!" : "Importing Completed - but there where errors on some ships";
  // Intentional: the ships that were not imported are named again after the given text. Their boxes came one by one
  // during the run, and a player who imports a whole pack must know at its end which ships to look at. A long message
  // can be scrolled.
  std::vector<std::string> names;
  std::vector<std::string> remarks;
  for (const RefusedShip& ship : result.refused) {
    names.push_back(ship.name);
    remarks.insert(remarks.end(), ship.reasons.begin(), ship.reasons.end());
  }
  remarks.insert(remarks.end(), result.notes.begin(), result.notes.end());
  if (!names.empty()) text += "\n\nThese ships were not imported:" + AllListed(names);
  if (!remarks.empty()) text += "\n" + AllListed(remarks);
  if (complete) {
    ShowSuccess(host, text, Icon::information);
  } else {
    Show(host, text, Icon::exclamation);
  }
}

void StartShipTool(Files& files, const Installation& installation, const ImportResult& result) {
  const std::string tool = installation.viewerPath();
  if (result.imported.empty() || !FileExists(files, tool)) return;
  std::string command = platform::AsWord(tool);
  for (const PackShip& ship : result.imported) command += " " + platform::AsWord(ship.shipName);
  platform::StartProgram(command);
}

}  // namespace oravin
