#include "actions/enable.h"

#include "actions/add_on_ship.h"
#include "actions/build_catalogue.h"
#include "actions/import_texture.h"
#include "actions/load_table.h"
#include "actions/restore_stats.h"
#include "actions/safekeeping.h"
#include "actions/set_up_loadouts.h"
#include "actions/ship_list_file.h"
#include "actions/swap_ships.h"
#include "actions/unpack_models.h"
#include "archive/unpack.h"
#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "desk/write_plan.h"
#include "files/file.h"
#include "files/look_up.h"
#include "files/whole_file.h"
#include "installation/kept_models.h"
#include "installation/model_entry.h"
#include "installation/table_backup.h"

namespace oravin {

namespace {

constexpr const char* enableTitle = "cmdEnable_Click()";

/// What is known before the first change.
struct Preparation {
  std::vector<ListedShip> list;
  std::vector<std::string> stockModels;
  std::vector<std::string> models;  ///< of stock and add-on ships
  LoadedTable archive;
  bool wasEnabled = false;
};

void CollectModels(Preparation& preparation) {
  for (const ListedShip& ship : preparation.list) {
    const std::string model = Trim(ship.file);
    if (model.empty()) continue;
    preparation.models.push_back(model);
    if (ship.kind != importedKind) preparation.stockModels.push_back(model);
  }
}

bool ReadArchive(Host& host, const Installation& installation, Preparation& preparation) {
  preparation.archive = LoadHogTable(host, installation.archivePath());
  if (!preparation.archive.table.entries.empty()) return true;
  Show(
      host,
      "Enabling was stopped, because the table of resource.hog cannot be read. If you have a backup of the table, open "
      "the archive on the Hog Editor tab and press \"Restore FAT\".",
      Icon::exclamation);
  return false;
}

/// Adds what the models will take: each is written to a temporary file first.
void PlanModels(Host& host, const Installation& installation, const Preparation& preparation, WritePlan& plan) {
  for (const std::string& path : LooseFiles(host.files, installation, preparation.models)) plan.files.push_back(path);
  File hog(host.files, installation.archivePath(), OpenFor::reading);
  const HogTable backup = LoadFatBackup(host, installation);
  for (const ListedShip& ship : preparation.list) {
    const std::string model = Trim(ship.file);
    if (model.empty()) continue;
    if (ship.kind == importedKind) {
      NeedRoom(plan, installation.GamePath, LengthOrThrow(host.files, installation.addOnModelPath(model)));
    } else if (const auto entry = FindModel(model, preparation.archive.table, backup)) {
      NeedRoom(plan, installation.GamePath, UnpackedSize(hog, entry->Size, entry->Offset));
    }
  }
}

WritePlan PlanEnable(Host& host, const Installation& installation, const Preparation& preparation) {
  Files& files = host.files;
  WritePlan plan;
  plan.folders = {installation.GamePath, installation.ProgramPath};
  for (const std::string& folder :
       {installation.backupFolder(), KeptModelsFolder(installation), installation.modelsFolder()}) {
    if (FolderIsThere(files, folder)) plan.folders.push_back(folder);
  }
  plan.files = {installation.archivePath(),
                installation.statsPath(),
                installation.defaultsPath(),
                installation.cataloguePath(),
                installation.backupPath(fatBackupName),
                installation.backupPath(defaultsName),
                installation.cachePath()};
  PlanModels(host, installation, preparation, plan);
  NeedRoom(plan, installation.GamePath, LengthOrThrow(files, installation.statsPath()));
  NeedRoom(plan, installation.ProgramPath, preparation.list.size() * shipRecordSize);
  NeedRoom(plan, installation.ProgramPath, FatBackupSize(files, installation, preparation.archive.table));
  if (!preparation.wasEnabled) {
    NeedRoom(plan, installation.ProgramPath, PlayersFilesSize(files, installation, preparation.models));
  }
  return plan;
}

/// Everything that can be found out without changing anything.
bool Prepare(Host& host, const Installation& installation, Preparation& preparation) {
  preparation.list = LoadShipList(host, installation);
  if (preparation.list.empty()) return false;
  CollectModels(preparation);
  const bool known =
      Trap(host, enableTitle, [&] { preparation.wasEnabled = FeaturesEnabled(host.files, installation); });
  if (!known || !ReadArchive(host, installation, preparation)) return false;
  // Found out later, it would end the program between the new catalogue and the models that go with it.
  if (!CacheHasSlotsFor(host.files, installation, preparation.list)) EndForFullCache(host);
  return Trapped(host, enableTitle, false,
                 [&] { return ReadyToWrite(host, PlanEnable(host, installation, preparation)); });
}

/// Copies all that is needed to undo what follows.
bool KeepBackups(Host& host, const Installation& installation, const Preparation& preparation) {
  KeepDefaults(host, installation);
  return Trap(host, enableTitle, [&] {
    ShowProgress(host, "Keeping backups", 0, 1);
    KeepFatBackup(host.files, installation, preparation.archive.table, preparation.archive.repaired,
                  preparation.stockModels);
    if (preparation.wasEnabled) return;
    KeepPlayersFiles(host.files, installation, preparation.models, preparation.archive.table,
                     LoadFatBackup(host, installation));
  });
}

}  // namespace

EnableResult EnableFeatures(Host& host, Installation& installation) {
  EnableResult result;
  Preparation preparation;
  if (!Prepare(host, installation, preparation)) return result;
  const bool foldersReady = Trap(host, enableTitle, [&] {
    MakeFolders(host.files, KeptModelsFolder(installation));
    MakeFolders(host.files, installation.modelsFolder());
    EraseAllLeftovers(host.files, installation);
  });
  if (!foldersReady) return result;
  if (preparation.wasEnabled) result.unswapped = UnswapAllShips(host, installation);
  if (!KeepBackups(host, installation, preparation)) return result;
  const bool companions = ReadyLoadoutMaps(host, installation);
  const HogTable backup = LoadFatBackup(host, installation);
  if (!BuildCatalogue(host, installation, preparation.list, preparation.archive.table, backup)) return result;
  Trap(host, enableTitle, [&] { EraseKeptSpellings(host.files, installation, preparation.models); });
  UnpackSetup(host, installation);
  SetUpShipStats(host, installation);
  if (companions) SetUpLoadouts(host, installation);
  EndProgress(host);
  result.enabled = true;
  return result;
}

}  // namespace oravin
