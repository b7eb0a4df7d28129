#include "app/disable.h"

#include "actions/load_table.h"
#include "actions/restore_archive.h"
#include "actions/restore_cache.h"
#include "actions/restore_stats.h"
#include "actions/safekeeping.h"
#include "catalogue/catalogue.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "desk/write_plan.h"
#include "files/look_up.h"
#include "files/whole_file.h"
#include "installation/kept_models.h"

namespace oravin {

namespace {

constexpr const char* disableQuestion =
    "This will restore all files back to their previous state.\n"
    "This will also remove all StarLancer fighters from the\n"
    "StarLancer\\Ships\\ folder.\n"
    "If you want to keep any of these files make copies of them.\n"
    "Are you sure you want to continue?";

WritePlan PlanDisable(Files& files, const Installation& installation) {
  const std::string shipsFolder = installation.modelsFolder();
  WritePlan plan;
  plan.folders = {installation.GamePath, installation.ProgramPath};
  for (const std::string& folder : {shipsFolder, KeptModelsFolder(installation), OldModelsFolder(installation)}) {
    if (FolderExists(files, folder)) plan.folders.push_back(folder);
  }
  plan.files = {installation.archivePath(), installation.statsPath(), installation.defaultsPath(),
                installation.cachePath(), installation.cataloguePath()};
  for (const ShipRecord& ship : installation.ships) {
    if (IsInert(ship)) continue;
    plan.files.push_back(shipsFolder + ModelOf(ship));
    plan.files.push_back(shipsFolder + BackupOf(ship));
  }
  NeedRoom(plan, installation.GamePath, FileLength(files, installation.cachePath()));
  NeedRoom(plan, installation.GamePath, KeptModelsSize(files, installation));
  return plan;
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
  // Names of ships that have left the ship list since they were disguised are known to the backup alone.
  if (FileExists(host.files, installation.archivePath()))
    restored = RestoreHogByBackup(host, installation, backup) && restored;
  RestoreShipStats(host, installation);
  return restored;
}

/// Deletes the catalogue and empties the lists. While the catalogue is there the player's own models must not come
/// back: the next Disable would take them for its own.
bool ForgetCatalogue(Main& main) {
  Installation& installation = main.installation;
  const bool erased = Trap(main.host, "cmdDisable_Click()", [&] {
    const std::string catalogue = installation.cataloguePath();
    if (FileExists(main.host.files, catalogue)) EraseFile(main.host.files, catalogue);
  });
  if (!erased) return false;
  installation.ships.clear();
  EmptyLists(main);
  return true;
}

}  // namespace

void cmdDisable_Click(Main& main) {
  Installation& installation = main.installation;
  if (!AskYesNo(main.host, disableQuestion)) return;
  CloseOpenFiles(main);
  if (!ReadyToWrite(main.host, PlanDisable(main.host.files, installation))) return;

  Trap(main.host, "cmdDisable_Click()", [&] { EraseAllLeftovers(main.host.files, installation); });
  if (FeaturesEnabled(main.host.files, installation.cataloguePath())) KeepDefaults(main.host, installation);
  const bool restored = RestoreArchiveAndStats(main.host, installation);
  // Intentional: the catalogue stays, and with it the features stay enabled, while something could not be restored.
  // The next Disable goes by it, and nothing else tells which loose models came from the add-ons. A missing archive is
  // no reason to stay enabled: there is nothing left in it to restore.
  const bool forget = (restored || !FileExists(main.host.files, installation.archivePath())) && ForgetCatalogue(main);
  RestoreTcacheFile(main.host, installation.cachePath());
  main.stats.lblWeapons.caption = "Weapons:";
  const bool back =
      forget && Trap(main.host, "cmdDisable_Click()", [&] { PutKeptModelsBack(main.host.files, installation); });
  EndProgress(main.host);
  if (back) {
    ShowSuccess(main.host, "Restoration complete", Icon::information);
  } else if (forget) {
    Show(main.host,
         "The game's files are restored, but not all of your own models could be restored, as the message before this "
         "one says. They are kept in\n" +
             KeptModelsFolder(installation) + "\nPut that right and use \"Disable / Restore\" again.",
         Icon::exclamation);
  } else {
    Show(main.host,
         "Not everything could be restored, as the messages before this one say. Put that right and use \"Disable / "
         "Restore\" again: the ship catalogue has been kept for it.",
         Icon::exclamation);
  }
}

}  // namespace oravin
