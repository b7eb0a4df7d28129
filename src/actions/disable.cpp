#include "actions/disable.h"

#include "actions/load_table.h"
#include "actions/restore_archive.h"
#include "actions/restore_cache.h"
#include "actions/restore_stats.h"
#include "actions/safekeeping.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "desk/write_plan.h"
#include "files/look_up.h"
#include "files/whole_file.h"
#include "installation/kept_models.h"

namespace oravin {

namespace {

constexpr const char* disableTitle = "cmdDisable_Click()";

WritePlan PlanDisable(Files& files, const Installation& installation) {
  WritePlan plan;
  plan.folders = {installation.GamePath, installation.ProgramPath};
  for (const std::string& folder :
       {installation.modelsFolder(), KeptModelsFolder(installation), OldModelsFolder(installation)}) {
    if (FolderIsThere(files, folder)) plan.folders.push_back(folder);
  }
  plan.files = {installation.archivePath(), installation.statsPath(), installation.defaultsPath(),
                installation.cachePath(), installation.cataloguePath()};
  for (const ShipRecord& ship : installation.ships) {
    if (IsInert(ship)) continue;
    plan.files.push_back(installation.modelPath(ModelOf(ship)));
    plan.files.push_back(installation.modelPath(BackupOf(ship)));
  }
  NeedRoom(plan, installation.GamePath, LengthOrThrow(files, installation.cachePath()));
  NeedRoom(plan, installation.GamePath, KeptModelsSize(files, installation));
  return plan;
}

/// True unless the archive is certainly missing; where the system cannot say, a message box gives its reason.
bool ArchiveMayBeThere(Host& host, const Installation& installation) {
  return Trapped(host, disableTitle, true, [&] { return FileIsThere(host.files, installation.archivePath()); });
}

/// Returns whether the archive and the ships folder are as they were; until then the catalogue is needed.
bool RestoreArchiveAndStats(Host& host, const Installation& installation) {
  const HogTable backup = LoadFatBackup(host, installation);
  if (installation.ships.empty()) {
    const bool restored = RestoreHogByBackup(host, installation, backup);
    RestoreAllBlocks(host, installation);
    return restored;
  }
  bool restored = RestoreHog(host, installation, backup);
  // Only the backup has the names of ships that have left the ship list since they were disguised.
  const bool there =
      Trapped(host, disableTitle, true, [&] { return VisibleFileIsThere(host.files, installation.archivePath()); });
  if (there) restored = RestoreHogByBackup(host, installation, backup) && restored;
  RestoreShipStats(host, installation);
  return restored;
}

/// Deletes the catalogue. While it is there, the player's own models must not come back: the next Disable would delete
/// them as its own.
bool ForgetCatalogue(Host& host, Installation& installation) {
  const bool erased = Trap(host, disableTitle, [&] {
    const std::string catalogue = installation.cataloguePath();
    if (VisibleFileIsThere(host.files, catalogue)) EraseFile(host.files, catalogue);
  });
  if (erased) installation.ships.clear();
  return erased;
}

/// False when it must not begin, after a message box.
bool Prepare(Host& host, const Installation& installation, bool& enabled) {
  return Trapped(host, disableTitle, false, [&] {
    enabled = FeaturesEnabled(host.files, installation);
    return ReadyToWrite(host, PlanDisable(host.files, installation));
  });
}

}  // namespace

DisableResult DisableFeatures(Host& host, Installation& installation) {
  using Outcome = DisableResult::Outcome;
  bool enabled = false;
  if (!Prepare(host, installation, enabled)) return {Outcome::refused};
  Trap(host, disableTitle, [&] { EraseAllLeftovers(host.files, installation); });
  if (enabled) KeepDefaults(host, installation);
  const bool restored = RestoreArchiveAndStats(host, installation);
  // Intentional: the catalogue stays, and with it the features stay enabled, while something could not be restored. The
  // next Disable needs it: nothing else says which loose models came from the add-ons. A missing archive is no reason
  // to stay enabled: there is nothing left in it to restore.
  const bool forgotten = (restored || !ArchiveMayBeThere(host, installation)) && ForgetCatalogue(host, installation);
  RestoreTcacheFile(host, installation.cachePath());
  const bool back = forgotten && Trap(host, disableTitle, [&] { PutKeptModelsBack(host.files, installation); });
  EndProgress(host);
  if (back) return {Outcome::restored};
  return {forgotten ? Outcome::modelsKept : Outcome::catalogueKept};
}

}  // namespace oravin
