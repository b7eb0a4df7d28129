#include "actions/swap_ships.h"

#include <algorithm>

#include "actions/restore_stats.h"
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
#include "installation/stats_source.h"
#include "stats/ship_stats.h"

namespace oravin {

namespace {

constexpr const char* swapTitle = "cmdSwap_Click()";
constexpr const char* unswapTitle = "cmdUnSwap_Click()";
constexpr int strongGunKind = 2;  // stock ships of this kind give better guns to what they replace

std::string BackupPath(const Installation& installation, const ShipRecord& ship) {
  return installation.modelPath(BackupOf(ship));
}

/// The indices of a target's records.
std::vector<std::size_t> PartIndices(const Installation& installation, int target) {
  std::vector<std::size_t> parts{static_cast<std::size_t>(target)};
  if (PartsOf(installation.ships[parts[0]]) == 2) parts.push_back(parts[0] + 1);
  return parts;
}

/// Writes a changed record. In memory it changes after the catalogue has it.
void PutRecord(Files& files, Installation& installation, std::size_t index, const ShipRecord& changed) {
  const ShipRecord before = installation.ships[index];
  installation.ships[index] = changed;
  try {
    PutShipRecord(files, installation.cataloguePath(), installation.ships, index);
  } catch (const FileError&) {
    installation.ships[index] = before;
    throw;
  }
}

void WriteChange(Files& files, Installation& installation, int target, int source) {
  const ShipRecord by = installation.ships[static_cast<std::size_t>(source)];
  for (const std::size_t part : PartIndices(installation, target)) {
    ShipRecord ship = installation.ships[part];
    ship.ChangedToFile = by.ShipFile;
    ship.ChangedToName = by.ShipName;
    ship.Changed = true;
    ship.ChangedToIndex = Int16Value(source);  // Intentional: every part points to the source's first record.
    PutRecord(files, installation, part, ship);
  }
}

void WriteNoChange(Files& files, Installation& installation, int target) {
  for (const std::size_t part : PartIndices(installation, target)) {
    ShipRecord ship = installation.ships[part];
    ship.ChangedToFile.Set("");
    ship.ChangedToName.Set("");
    ship.Changed = false;
    ship.ChangedToIndex = BooleanValue(false);  // Intentional: a truth value, not the number 0.
    PutRecord(files, installation, part, ship);
  }
}

/// Unpacks a ship's missing model; then a backup of it is out of date. Where the model could not be unpacked, its
/// backup stays: it may be the only copy.
void UnpackMissing(Host& host, const Installation& installation, const ShipRecord& ship) {
  if (!UnpackShip(host, installation, ship, ModelOf(ship))) return;
  const std::string backup = BackupPath(installation, ship);
  if (FileIsThere(host.files, backup)) EraseFile(host.files, backup);
}

void ProvideSource(Host& host, const Installation& installation, const ShipRecord& source) {
  if (FileIsThere(host.files, installation.modelPath(ModelOf(source)))) return;
  if (source.Imported) {
    // Intentional: the swap goes on all the same, and the copy fails.
    Show(host, "Error - imported ship '" + ModelOf(source) + "' not found", Icon::none);
  } else {
    UnpackMissing(host, installation, source);
  }
}

/// The path of a source's own model: that of a swapped ship is its backup.
std::string SourcePath(Files& files, const std::string& modelPath) {
  const std::string backup = ChangeExtension(modelPath, ".org");
  return FileIsThere(files, backup) ? backup : modelPath;
}

/// Renames one part's stock model to its backup, unless there is one already, and copies the source's model in its
/// place.
void ReplaceModel(Host& host, const Installation& installation, const ShipRecord& part, const ShipRecord& source) {
  const std::string model = installation.modelPath(ModelOf(part));
  const std::string backup = BackupPath(installation, part);
  if (!FileIsThere(host.files, model)) UnpackMissing(host, installation, part);
  // Where the stock model is nowhere, an unswap could restore nothing: the rename fails before another model takes the
  // place.
  if (!FileIsThere(host.files, backup)) RenameOver(host.files, model, backup);
  const std::string from = SourcePath(host.files, installation.modelPath(ModelOf(source)));
  // Where there is nothing to copy, the model of an earlier swap must not stay: the copy fails and says so.
  if (!FileIsThere(host.files, from) && FileIsThere(host.files, model)) EraseFile(host.files, model);
  CopyWhole(host.files, from, model);
}

/// The statistics that a source brings along; nothing when they cannot be read, after a box.
std::optional<ShipStats> SourceStats(Host& host, const Installation& installation, const ShipRecord& source) {
  const bool fromDefaults = source.Imported || source.Changed;
  const std::string path = fromDefaults ? installation.defaultsPath() : installation.statsPath();
  std::optional<ShipStats> stats;
  Trap(host, "GetShipsStats", [&] { stats = ReadShipsStats(host.files, path, IndexIn(source.StatsIndex)); });
  if (stats && !source.Imported && WholeNumber(source.ShipKind) == strongGunKind) {
    stats->values[gunEnergyField] += 50.0F;
    stats->values[gunRechargeField] = 6.0F;
  }
  return stats;
}

void CopyStats(Host& host, const Installation& installation, int target, const ShipRecord& source) {
  const auto stats = SourceStats(host, installation, source);
  if (!stats) return;
  for (const std::size_t part : PartIndices(installation, target)) {
    const int block = IndexIn(installation.ships[part].StatsIndex);
    Trap(host, "PutShipsStats", [&] { WriteShipsStats(host.files, installation.statsPath(), block, *stats); });
  }
}

void RestoreStats(Host& host, const Installation& installation, int target) {
  for (const std::size_t part : PartIndices(installation, target)) {
    RestoreBlock(host, installation, IndexIn(installation.ships[part].StatsIndex));
  }
}

/// Removes the model that a swap left under the name of a ship whose own model is nowhere. Where it is still the
/// source's model, it is deleted; otherwise it may be the only copy, and is kept.
void RemoveSwapped(Files& files, const Installation& installation, const std::string& model,
                   const std::string& source) {
  if (!FileIsThere(files, model)) return;
  const std::string name = FileNameOf(source);
  if (IsPlainFileName(name) && SameContent(files, model, SourcePath(files, source))) {
    EraseFile(files, model);
  } else {
    MoveToKept(files, installation, model);
  }
}

/// As IsSameFile.
/// @throws FileError where the system cannot say
bool AreOneFile(Files& files, const std::string& a, const std::string& b) {
  for (const std::string& path : {a, b}) {
    if (LookOrThrow(files, path).presence == Presence::absent) return false;
  }
  return IsSameFile(files, a, b);
}

/// True when a ship outside of these records has the same model file and is not swapped: then the file there is its
/// own model.
bool IsAnothersOwn(const Installation& installation, const std::vector<std::size_t>& parts, const std::string& model) {
  for (std::size_t i = 0; i < installation.ships.size(); ++i) {
    const ShipRecord& ship = installation.ships[i];
    const bool other = std::find(parts.begin(), parts.end(), i) == parts.end();
    if (other && !IsInert(ship) && !ship.Changed && SameName(ModelOf(ship), model)) return true;
  }
  return false;
}

/// Restores one part's own model: from its backup, else from the archive. Without either, only another ship's own model
/// stays under its name.
/// @param parts the records of the ship
/// @param source path of the model that the part was swapped to
void RestoreModel(Host& host, const Installation& installation, const ShipRecord& part,
                  const std::vector<std::size_t>& parts, const std::string& source) {
  const std::string model = installation.modelPath(ModelOf(part));
  const std::string backup = BackupPath(installation, part);
  if (FileIsThere(host.files, backup)) {
    RenameOver(host.files, backup, model);
    return;
  }
  bool nowhere = false;
  UnpackShip(host, installation, part, ModelOf(part), &nowhere);
  if (!nowhere || IsAnothersOwn(installation, parts, ModelOf(part))) return;
  // The source may have the very same file.
  if (AreOneFile(host.files, model, SourcePath(host.files, source))) return;
  RemoveSwapped(host.files, installation, model, source);
}

/// Restores a swapped ship: catalogue, models, statistics.
/// @param result its `listed` is set after the catalogue was written
void Restore(Host& host, Installation& installation, int target, SwapResult& result) {
  const ShipRecord& ship = installation.ships[static_cast<std::size_t>(target)];
  const std::string source = installation.modelPath(ship.ChangedToFile.Trimmed());
  WriteNoChange(host.files, installation, target);
  result.listed = true;
  const std::vector<std::size_t> parts = PartIndices(installation, target);
  std::vector<std::string> done;
  for (const std::size_t index : parts) {
    const ShipRecord& part = installation.ships[index];
    // Two parts may share a file, which is restored once.
    const auto same = [&](const std::string& model) { return SameName(model, ModelOf(part)); };
    if (std::any_of(done.begin(), done.end(), same)) continue;
    done.push_back(ModelOf(part));
    RestoreModel(host, installation, part, parts, source);
  }
  RestoreStats(host, installation, target);
}

bool IsSwapped(const Installation& installation, int target) {
  const ShipRecord* ship = ShipAt(installation, target);
  return ship != nullptr && ship->Changed;
}

bool ReadyToUnswap(Host& host, const Installation& installation, int target) {
  return Trapped(host, unswapTitle, false,
                 [&] { return ReadyToWrite(host, PlanUnswap(host.files, installation, target)); });
}

}  // namespace

bool CatalogueThere(Host& host, const Installation& installation, const char* title) {
  return Trapped(host, title, false, [&] {
    if (VisibleFileIsThere(host.files, installation.cataloguePath())) return true;
    Show(host, "Error - ships.dat not found - Reinstall", Icon::exclamation, title);
    return false;
  });
}

bool CanSwap(Host& host, const Installation& installation, int target, int source) {
  const ShipRecord* ship = ShipAt(installation, target);
  const ShipRecord* by = ShipAt(installation, source);
  if (ship == nullptr || by == nullptr || !IsStock(*ship)) return false;
  if (ship->ShipName == by->ShipName || ship->ChangedToName == by->ShipName) return false;
  return CatalogueThere(host, installation, swapTitle);
}

SwapResult SwapShip(Host& host, Installation& installation, int target, int source) {
  SwapResult result{target};
  if (!CanSwap(host, installation, target, source)) return result;
  const bool ready = Trapped(host, swapTitle, false,
                             [&] { return ReadyToWrite(host, PlanSwap(host.files, installation, target, source)); });
  if (!ready) return result;
  const ShipRecord by = installation.ships[static_cast<std::size_t>(source)];
  result.done = Trap(host, swapTitle, [&] {
    WriteChange(host.files, installation, target, source);
    result.listed = true;
    ProvideSource(host, installation, by);
    for (const std::size_t part : PartIndices(installation, target)) {
      ReplaceModel(host, installation, installation.ships[part], by);
    }
    CopyStats(host, installation, target, by);
  });
  return result;
}

bool CanUnswap(Host& host, const Installation& installation, int target) {
  return IsSwapped(installation, target) && CatalogueThere(host, installation, unswapTitle);
}

SwapResult UnswapShip(Host& host, Installation& installation, int target) {
  SwapResult result{target};
  if (!CanUnswap(host, installation, target) || !ReadyToUnswap(host, installation, target)) return result;
  result.done = Trap(host, unswapTitle, [&] { Restore(host, installation, target, result); });
  return result;
}

bool UnswapAllShips(Host& host, Installation& installation) {
  const int count = static_cast<int>(installation.ships.size());
  for (int target = 0; target < count; ++target) {
    if (IsSwapped(installation, target) && !ReadyToUnswap(host, installation, target)) return false;
  }
  for (int target = 0; target < count; ++target) {
    if (!CatalogueThere(host, installation, unswapTitle)) break;
    if (!IsSwapped(installation, target)) continue;
    const std::string name = installation.ships[static_cast<std::size_t>(target)].ShipName.Trimmed();
    ShowProgress(host, "Putting back " + name, target, count);
    SwapResult result;
    Trap(host, unswapTitle, [&] { Restore(host, installation, target, result); });
  }
  EndProgress(host);
  return true;
}

void SwapPairs(Host& host, Installation& installation, const std::vector<std::pair<std::string, std::string>>& pairs) {
  for (const auto& [targetName, sourceName] : pairs) {
    if (Trim(targetName).empty()) continue;
    const int target = FindShip(installation.ships, targetName);
    UnswapShip(host, installation, target);
    SwapShip(host, installation, target, FindShip(installation.ships, sourceName));
  }
}

}  // namespace oravin
