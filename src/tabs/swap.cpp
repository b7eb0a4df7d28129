#include "tabs/swap.h"

#include <algorithm>

#include "actions/swap_plan.h"
#include "actions/unpack_models.h"
#include "base/text.h"
#include "catalogue/catalogue.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/look_up.h"
#include "files/path.h"
#include "files/whole_file.h"
#include "installation/kept_models.h"
#include "stats/ship_stats.h"
#include "tabs/stats_show.h"

namespace oravin {

namespace {

constexpr const char* swapTitle = "cmdSwap_Click()";
constexpr const char* unswapTitle = "cmdUnSwap_Click()";
constexpr int strongGunKind = 2;  // stock ships of this kind lend better guns to what they replace

std::string BackupPath(const Installation& installation, const ShipRecord& ship) {
  return installation.modelPath(BackupOf(ship));
}

bool Known(const Installation& installation, int index) {
  return index >= 0 && static_cast<std::size_t>(index) < installation.ships.size() &&
         !IsInert(installation.ships[static_cast<std::size_t>(index)]);
}

/// The indices of a target's records.
std::vector<std::size_t> PartIndices(const Installation& installation, int target) {
  std::vector<std::size_t> parts{static_cast<std::size_t>(target)};
  if (PartsOf(installation.ships[parts[0]]) == 2) parts.push_back(parts[0] + 1);
  return parts;
}

/// Writes a changed record; in memory it changes when the catalogue has it.
void PutRecord(SwapDesk& desk, std::size_t index, const ShipRecord& changed) {
  Installation& installation = desk.installation;
  const ShipRecord before = installation.ships[index];
  installation.ships[index] = changed;
  try {
    PutShipRecord(desk.host.files, installation.cataloguePath(), installation.ships, index);
  } catch (const FileError&) {
    installation.ships[index] = before;
    throw;
  }
}

void WriteChange(SwapDesk& desk, int target, int source) {
  const ShipRecord by = desk.installation.ships[static_cast<std::size_t>(source)];
  for (const std::size_t part : PartIndices(desk.installation, target)) {
    ShipRecord ship = desk.installation.ships[part];
    ship.ChangedToFile = by.ShipFile;
    ship.ChangedToName = by.ShipName;
    ship.Changed = true;
    ship.ChangedToIndex = Int16Value(source);  // every part points to the source's first record: meant
    PutRecord(desk, part, ship);
  }
}

void WriteNoChange(SwapDesk& desk, int target) {
  for (const std::size_t part : PartIndices(desk.installation, target)) {
    ShipRecord ship = desk.installation.ships[part];
    ship.ChangedToFile.Set("");
    ship.ChangedToName.Set("");
    ship.Changed = false;
    ship.ChangedToIndex = BooleanValue(false);  // a truth value, not the number 0: meant
    PutRecord(desk, part, ship);
  }
}

/// Unpacks a ship's missing model; then a backup of it is out of date. A model that could not be unpacked leaves its
/// backup alone: it may be the only one.
void UnpackMissing(Host& host, const Installation& installation, const ShipRecord& ship) {
  if (!UnpackShip(host, installation.GamePath, ship, ModelOf(ship))) return;
  const std::string backup = BackupPath(installation, ship);
  if (FileExists(host.files, backup)) EraseFile(host.files, backup);
}

void ProvideSource(Host& host, const Installation& installation, const ShipRecord& source) {
  if (FileExists(host.files, installation.modelPath(ModelOf(source)))) return;
  if (source.Imported) {
    // The swap goes on all the same, and the copy fails: meant.
    Show(host, "Error - imported ship '" + ModelOf(source) + "' not found", Icon::none);
  } else {
    UnpackMissing(host, installation, source);
  }
}

/// Where the model of a source lies: a changed ship's own model is its backup.
std::string SourcePath(Files& files, const std::string& modelPath) {
  const std::string backup = ChangeExtension(modelPath, ".org");
  return FileExists(files, backup) ? backup : modelPath;
}

/// Moves one part's stock model aside, unless a backup has it already, and puts the source's model in its place.
void ReplaceModel(Host& host, const Installation& installation, const ShipRecord& part, const ShipRecord& source) {
  const std::string model = installation.modelPath(ModelOf(part));
  const std::string backup = BackupPath(installation, part);
  if (!FileExists(host.files, model)) UnpackMissing(host, installation, part);
  // A ship whose model is nowhere has nothing to come back to: the renaming fails before another model takes its place.
  if (!FileExists(host.files, backup)) RenameOver(host.files, model, backup);
  const std::string from = SourcePath(host.files, installation.modelPath(ModelOf(source)));
  // Without anything to copy, an earlier swap's model must not stay: the copy fails and says so.
  if (!FileExists(host.files, from) && FileExists(host.files, model)) EraseFile(host.files, model);
  CopyWhole(host.files, from, model);
}

/// The statistics that a source brings along. False when they cannot be read.
bool SourceStats(Host& host, const Installation& installation, const ShipRecord& source, ShipStats& stats) {
  const bool fromDefaults = source.Imported || source.Changed;
  std::string path = fromDefaults ? installation.defaultsPath() : installation.statsPath();
  if (!GetShipsStats(host, path, IndexIn(source.StatsIndex), stats)) return false;
  if (!source.Imported && WholeNumber(source.ShipKind) == strongGunKind) {
    stats.values[gunEnergyField] += 50.0F;
    stats.values[gunRechargeField] = 6.0F;
  }
  return true;
}

void CopyStats(SwapDesk& desk, int target, const ShipRecord& source) {
  ShipStats stats;
  if (!SourceStats(desk.host, desk.installation, source, stats)) return;
  std::string current = desk.installation.statsPath();
  for (const std::size_t part : PartIndices(desk.installation, target)) {
    PutShipsStats(desk.host, current, IndexIn(desk.installation.ships[part].StatsIndex), stats);
  }
}

void RestoreStats(SwapDesk& desk, int target) {
  std::string current = desk.installation.statsPath();
  std::string defaults = desk.installation.defaultsPath();
  for (const std::size_t part : PartIndices(desk.installation, target)) {
    const int index = IndexIn(desk.installation.ships[part].StatsIndex);
    ShipStats stats;
    if (GetShipsStats(desk.host, defaults, index, stats)) PutShipsStats(desk.host, current, index, stats);
  }
}

/// Takes what a swap put under the name of a ship whose own model is nowhere away. It is deleted where it is the
/// source's model once more; else it may be all that there is of it, and is kept.
void TakeAway(Files& files, const Installation& installation, const std::string& model, const std::string& source) {
  if (!FileExists(files, model)) return;
  const std::string name = FileNameOf(source);
  if (IsPlainFileName(name) && SameContent(files, model, SourcePath(files, source))) {
    EraseFile(files, model);
  } else {
    MoveToKept(files, installation, model);
  }
}

/// True when a ship outside of these records has the same model file and flies as itself: then what lies there is its
/// own model.
bool IsAnothersOwn(const Installation& installation, const std::vector<std::size_t>& parts, const std::string& model) {
  for (std::size_t i = 0; i < installation.ships.size(); ++i) {
    const ShipRecord& ship = installation.ships[i];
    const bool other = std::find(parts.begin(), parts.end(), i) == parts.end();
    if (other && !IsInert(ship) && !ship.Changed && SameName(ModelOf(ship), model)) return true;
  }
  return false;
}

/// Puts one part's own model back: from its backup, else from the archive. Without either nothing stays in its place
/// but what is another ship's own.
/// @param parts the records of the ship
/// @param source the model that the part was changed to
void PutModelBack(Host& host, const Installation& installation, const ShipRecord& part,
                  const std::vector<std::size_t>& parts, const std::string& source) {
  const std::string model = installation.modelPath(ModelOf(part));
  const std::string backup = BackupPath(installation, part);
  if (FileExists(host.files, backup)) {
    RenameOver(host.files, backup, model);
    return;
  }
  bool nowhere = false;
  UnpackShip(host, installation.GamePath, part, ModelOf(part), &nowhere);
  if (!nowhere || IsAnothersOwn(installation, parts, ModelOf(part))) return;
  // The source may have a file of the very same name.
  if (!IsSameFile(host.files, model, SourcePath(host.files, source))) {
    TakeAway(host.files, installation, model, source);
  }
}

/// The stats tab's list, and the selected ship's statistics and weapons, which may be others now.
void ShowShips(SwapDesk& desk) {
  DisplayShipEdit(desk.statsTab, desk.installation.ships);
  ShowShipAgain(desk.host, desk.statsTab, desk.installation);
}

/// A swap of two known ships. `listed` is called when the catalogue has been written.
void Swap(SwapDesk& desk, int target, int source, const std::function<void()>& listed) {
  Installation& installation = desk.installation;
  if (!Known(installation, target) || !Known(installation, source)) return;
  const ShipRecord by = installation.ships[static_cast<std::size_t>(source)];
  const ShipRecord& ship = installation.ships[static_cast<std::size_t>(target)];
  if (!IsStock(ship) || ship.ShipName == by.ShipName || ship.ChangedToName == by.ShipName) return;
  if (!CatalogueThere(desk.host, installation, swapTitle)) return;
  desk.closeOthers();
  if (!ReadyToWrite(desk.host, PlanSwap(desk.host.files, installation, target, source))) return;
  Trap(desk.host, swapTitle, [&] {
    WriteChange(desk, target, source);
    listed();
    ProvideSource(desk.host, installation, by);
    for (const std::size_t part : PartIndices(installation, target)) {
      ReplaceModel(desk.host, installation, installation.ships[part], by);
    }
    CopyStats(desk, target, by);
    ShowShips(desk);
  });
}

/// The steps that put a changed ship back: catalogue, models, statistics.
void PutBack(SwapDesk& desk, int target, const std::function<void()>& listed) {
  const ShipRecord& ship = desk.installation.ships[static_cast<std::size_t>(target)];
  const std::string source = desk.installation.modelPath(ship.ChangedToFile.Trimmed());
  WriteNoChange(desk, target);
  listed();
  const std::vector<std::size_t> parts = PartIndices(desk.installation, target);
  std::vector<std::string> done;
  for (const std::size_t index : parts) {
    const ShipRecord& part = desk.installation.ships[index];
    // Two parts may share a file, which is restored once.
    const auto same = [&](const std::string& model) { return SameName(model, ModelOf(part)); };
    if (std::any_of(done.begin(), done.end(), same)) continue;
    done.push_back(ModelOf(part));
    PutModelBack(desk.host, desk.installation, part, parts, source);
  }
  RestoreStats(desk, target);
}

bool Unswap(SwapDesk& desk, int target, const std::function<void()>& listed) {
  Installation& installation = desk.installation;
  if (!Known(installation, target) || !installation.ships[static_cast<std::size_t>(target)].Changed) return true;
  if (!CatalogueThere(desk.host, installation, unswapTitle)) return false;
  desk.closeOthers();
  if (!ReadyToWrite(desk.host, PlanUnswap(desk.host.files, installation, target))) return false;
  return Trap(desk.host, unswapTitle, [&] {
    PutBack(desk, target, listed);
    ShowShips(desk);
  });
}

}  // namespace

bool CatalogueThere(Host& host, const Installation& installation, const char* title) {
  if (FileExists(host.files, installation.cataloguePath())) return true;
  Show(host, "Error - ships.dat not found - Reinstall", Icon::exclamation, title);
  return false;
}

void cmdSwap_Click(SwapDesk& desk, SwitcherTab& tab) {
  const auto row = OnlySelectedRow(tab.swapOrgList);
  const int source = OnlySelectedItem(tab.swapToList);
  if (!row || !Known(desk.installation, source)) return;
  const std::string name = desk.installation.ships[static_cast<std::size_t>(source)].ShipName.Trimmed();
  Swap(desk, OnlySelectedItem(tab.swapOrgList), source, [&] { SetText(tab.swapOrgList, *row, 1, "--->" + name); });
  EnableSwitcherControls(tab, desk.installation);
}

void cmdUnSwap_Click(SwapDesk& desk, SwitcherTab& tab) {
  const auto row = OnlySelectedRow(tab.swapOrgList);
  if (!row) return;
  Unswap(desk, OnlySelectedItem(tab.swapOrgList), [&] { SetText(tab.swapOrgList, *row, 1, ""); });
  EnableSwitcherControls(tab, desk.installation);
}

void cmdUnswapAll_Click(SwapDesk& desk, SwitcherTab& tab) {
  const Installation& installation = desk.installation;
  desk.closeOthers();
  bool ready = true;
  for (std::size_t i = 0; ready && i < installation.ships.size(); ++i) {
    const bool changed = !IsInert(installation.ships[i]) && installation.ships[i].Changed;
    if (changed) ready = ReadyToWrite(desk.host, PlanUnswap(desk.host.files, installation, static_cast<int>(i)));
  }
  if (!ready) return;
  for (std::size_t i = 0; i < installation.ships.size(); ++i) {
    if (!CatalogueThere(desk.host, installation, unswapTitle)) break;
    if (IsInert(installation.ships[i]) || !installation.ships[i].Changed) continue;
    ShowProgress(desk.host, "Putting back " + installation.ships[i].ShipName.Trimmed(), static_cast<int>(i),
                 static_cast<int>(installation.ships.size()));
    Trap(desk.host, unswapTitle, [&] { PutBack(desk, static_cast<int>(i), [] {}); });
  }
  EndProgress(desk.host);
  for (std::size_t row = 0; row < tab.swapOrgList.rows.size(); ++row) SetText(tab.swapOrgList, row, 1, "");
  EnableSwitcherControls(tab, installation);
  ShowShips(desk);
}

void SwapShip(SwapDesk& desk, const std::string& targetName, const std::string& sourceName) {
  const Ships& ships = desk.installation.ships;
  Swap(desk, FindShip(ships, targetName), FindShip(ships, sourceName), [] {});
}

void UnswapShip(SwapDesk& desk, const std::string& targetName) {
  Unswap(desk, FindShip(desk.installation.ships, targetName), [] {});
}

bool UnswapAt(SwapDesk& desk, int target) {
  return Unswap(desk, target, [] {});
}

void SwapPairs(SwapDesk& desk, const std::vector<std::pair<std::string, std::string>>& pairs) {
  for (const auto& [target, source] : pairs) {
    if (Trim(target).empty()) continue;
    UnswapShip(desk, target);
    SwapShip(desk, target, source);
  }
}

}  // namespace oravin
