#include "tabs/import_run.h"

#include <set>

#include "actions/import_batch.h"
#include "actions/swap_ships.h"
#include "base/text.h"
#include "catalogue/catalogue.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "desk/program_end.h"
#include "desk/write_plan.h"
#include "files/look_up.h"
#include "files/path.h"
#include "platform/start_program.h"
#include "tabs/new_ship.h"

namespace oravin {

namespace {

constexpr const char* runTitle = "cmdImportShips_Click()";

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

/// What is known of the run while it goes on.
struct Run {
  Host& host;
  Installation& installation;
  ImportBatch batch;
  GivenBitmaps given;
  bool warned = false;  ///< of 24-bit images
  std::vector<PackShip> imported;
  std::vector<std::string> failed;   ///< the names of the others, as far as the run has come
  std::vector<std::string> reasons;  ///< why some of them failed, for the result message; each with its path below it
  bool allImported = true;
};

/// Copies a file to the add-ons; one that stays as it is because it is another file becomes a note.
void AddToAddOns(Run& run, const std::string& from, const char* folder, const std::string& name) {
  if (!IsPlainFileName(name)) {
    run.batch.notes.push_back("This file has no name under which it could be kept with the add-ons:\n" + from);
    return;
  }
  const std::string to = run.installation.programFile(folder + name);
  if (AddCopy(run.host.files, run.batch, from, to)) return;
  run.batch.notes.push_back("This add-on is another file and was left as it is:\n" + to);
}

/// True when the ship's bitmaps can be kept with the add-ons. A texture is found by its bitmap's name, so another
/// bitmap of that name can neither be replaced nor be avoided: the next Enable would give the ship that one's picture.
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

/// Writes what a ship needs; false when one of its textures is refused, or a place is another file's after all.
bool WriteShip(Run& run, const CheckedShip& checked, const NewShip& ship) {
  Files& files = run.host.files;
  if (!BitmapsCanBeKept(run, ship)) return false;
  for (const NewShipTexture& texture : ship.textures) {
    const AddedTexture added =
        AddTexture(run.host, run.batch.textures, texture.name, texture.bitmap, AlreadyThere::byPixels);
    if (added == AddedTexture::refused) return false;
  }
  const std::string model = ModelOf(ship.record);
  const std::string loose = run.installation.modelPath(model);
  for (const std::string& place : {loose, ChangeExtension(loose, ".bak")}) {
    if (AddCopy(files, run.batch, checked.ship.modelPath, place)) continue;
    run.reasons.push_back("The ship '" + ship.record.ShipName.Trimmed() + "' needs the place of another file:\n" +
                          place);
    return false;
  }
  AddToAddOns(run, checked.ship.modelPath, addOnShipsFolder, model);
  for (const NewShipTexture& texture : ship.textures) {
    AddToAddOns(run, texture.bitmap, addOnTexturesFolder, texture.name + ".bmp");
  }
  if (!ship.statsText.empty()) {
    AddToAddOns(run, ship.statsText, addOnStatsFolder, ChangeExtension(model, ".txt"));
  }
  run.batch.ships.push_back({ship.record, ship.stats});
  return true;
}

bool ImportShip(Run& run, const CheckedShip& checked) {
  const ImportMark mark = MarkOf(run.batch);
  bool done = false;
  try {
    const auto ship = LookAtShip(run.host, run.installation, checked, run.given, run.batch);
    if (ship && ship->deep && !run.warned) {
      Show(run.host, deepImages, Icon::exclamation);
      run.warned = true;
    }
    done = ship && Trapped(run.host, runTitle, false, [&] { return WriteShip(run, checked, *ship); });
  } catch (const ProgramEnd&) {
    GoBackTo(run.host, run.batch, mark);
    throw;
  }
  if (!done) GoBackTo(run.host, run.batch, mark);
  return done;
}

void ImportAll(Run& run, const std::vector<CheckedShip>& ships) {
  for (std::size_t i = 0; i < ships.size(); ++i) {
    if (StopAsked(run.host)) {
      run.allImported = false;
      run.batch.notes.emplace_back("The import was stopped before its end.");
      return;
    }
    ShowProgress(run.host, "Importing " + ships[i].ship.shipName, static_cast<int>(i), static_cast<int>(ships.size()));
    if (ImportShip(run, ships[i])) {
      run.imported.push_back(ships[i].ship);
    } else {
      run.failed.push_back(ships[i].ship.shipName);
      run.allImported = false;
    }
  }
}

void Commit(Run& run) {
  if (!CommitImport(run.host, run.installation, run.batch)) {
    for (const PackShip& ship : run.imported) run.failed.push_back(ship.shipName);
    run.imported.clear();
    run.batch.notes.clear();  // they are about ships that were imported
    run.allImported = false;
  }
  run.batch.notes.insert(run.batch.notes.begin(), run.reasons.begin(), run.reasons.end());
}

/// Adds the room that the ships' bitmaps take: each once in the add-ons, and in the cache, there perhaps with a
/// companion of the same size.
void NeedRoomForBitmaps(Files& files, WritePlan& plan, const Installation& installation,
                        const std::vector<CheckedShip>& ships) {
  std::set<std::string> counted;
  for (const CheckedShip& ship : ships) {
    for (const std::string& bitmap : BitmapsOf(files, ship.ship.modelPath, ship.given)) {
      if (!counted.insert(UpperCase(bitmap)).second) continue;
      NeedRoom(plan, installation.ProgramPath, FileLength(files, bitmap));
      NeedRoom(plan, installation.GamePath, 2 * FileLength(files, bitmap));
    }
  }
}

WritePlan PlanImport(Files& files, const Installation& installation, const std::vector<CheckedShip>& ships) {
  WritePlan plan;
  plan.folders = {installation.GamePath, installation.modelsFolder(), installation.ProgramPath};
  for (const char* folder : {addOnShipsFolder, addOnTexturesFolder, addOnStatsFolder}) {
    if (FolderExists(files, installation.programFile(folder))) plan.folders.push_back(installation.programFile(folder));
  }
  plan.files = {installation.cachePath(), installation.defaultsPath(), installation.cataloguePath(),
                installation.shipListPath()};
  for (const CheckedShip& ship : ships) {
    NeedRoom(plan, installation.GamePath, 2 * FileLength(files, ship.ship.modelPath));
    NeedRoom(plan, installation.ProgramPath, FileLength(files, ship.ship.modelPath) + shipRecordSize);
  }
  NeedRoomForBitmaps(files, plan, installation, ships);
  return plan;
}

/// The (target, source) names of the switches that the pack suggests for ships that were imported.
std::vector<std::pair<std::string, std::string>> SuggestedSwitches(const Run& run) {
  std::vector<std::pair<std::string, std::string>> pairs;
  for (const PackShip& ship : run.imported) {
    const int target = FindShip(run.installation.ships, ship.suggestedSwitch);
    if (target < 0 || !IsStock(run.installation.ships[static_cast<std::size_t>(target)])) continue;
    pairs.emplace_back(UpperCase(Trim(ship.suggestedSwitch)), UpperCase(ship.shipName));
  }
  return pairs;
}

void OfferSwitches(Run& run, const ImportSteps& steps) {
  const auto pairs = SuggestedSwitches(run);
  if (pairs.empty() || !AskYesNo(run.host, switchQuestion)) return;
  if (UnswapAllShips(run.host, run.installation)) steps.showUnswapped();
  SwapPairs(run.host, run.installation, pairs);
  steps.refill();
}

/// Intentional: the message names the ships that failed after its given text. The boxes about them came one by one
/// during the run, and a player who imports a whole pack must know at its end which ships to look at.
void TellResult(const Run& run) {
  std::string text =
      run.allImported ? "Importing Successfull!" : "Importing Completed - but there where errors on some ships";
  // However many ships a pack has: the window shows a long message in a dialog that can be scrolled.
  if (!run.failed.empty()) text += "\n\nThese ships were not imported:" + AllListed(run.failed);
  if (!run.batch.notes.empty()) text += "\n" + AllListed(run.batch.notes);
  if (run.allImported) {
    ShowSuccess(run.host, text, Icon::information);
  } else {
    Show(run.host, text, Icon::exclamation);
  }
}

void StartShipTool(const Run& run) {
  const std::string tool = run.installation.viewerPath();
  if (run.imported.empty() || !FileExists(run.host.files, tool)) return;
  std::string command = platform::AsWord(tool);
  for (const PackShip& ship : run.imported) command += " " + platform::AsWord(ship.shipName);
  platform::StartProgram(command);
}

bool CanImport(Host& host, const Installation& installation, const FighterPack& form,
               const std::vector<CheckedShip>& ships, const ImportSteps& steps) {
  if (!CanBeImportedInto(host, installation)) return false;
  if (AnyCheckedRed(form)) {
    Show(host, redNames, Icon::exclamation);
    return false;
  }
  if (ships.empty()) {
    Show(host, form.ships.empty() ? "This pack lists no ships." : "Check the ships to import first.",
         Icon::exclamation);
    return false;
  }
  steps.closeOthers();
  return ReadyToWrite(host, PlanImport(host.files, installation, ships));
}

}  // namespace

bool CanBeImportedInto(Host& host, const Installation& installation) {
  if (FeaturesEnabled(host.files, installation.cataloguePath()) && !installation.ships.empty()) return true;
  Show(host, "Press \"Enable\" on the Switcher tab first. Then ships can be imported.", Icon::exclamation);
  return false;
}

void cmdImportShips_Click(Host& host, Installation& installation, FighterPack& form, const ImportSteps& steps) {
  const std::vector<CheckedShip> ships = CheckedShips(form);
  if (!CanImport(host, installation, form, ships, steps)) return;
  Run run{host, installation, {}, {}, false, {}, {}, {}, true};
  if (!BeginImport(host, installation, run.batch)) return;
  try {
    ImportAll(run, ships);
  } catch (const ProgramEnd&) {
    EndProgress(run.host);
    Commit(run);
    throw;
  }
  EndProgress(run.host);
  Commit(run);
  steps.refill();
  OfferSwitches(run, steps);
  form.done = true;
  form.shown = false;
  TellResult(run);
  StartShipTool(run);
}

}  // namespace oravin
