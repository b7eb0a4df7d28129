#include "app/enable.h"

#include "actions/add_on_ship.h"
#include "actions/build_catalogue.h"
#include "actions/import_texture.h"
#include "actions/load_table.h"
#include "actions/restore_stats.h"
#include "actions/safekeeping.h"
#include "actions/ship_list_file.h"
#include "actions/unpack_models.h"
#include "app/loadout.h"
#include "archive/unpack.h"
#include "base/text.h"
#include "catalogue/catalogue.h"
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

constexpr const char* enableQuestion =
    "Enabling these features will require about 6 MB of storage space\n"
    "and will make reversable modifications to key StarLancer files.\n"
    "StarLancer must not be open and it may take up to 20 seconds\n"
    "to make all the Necessary changes. \n"
    "You should read the readme.txt before enabling these options.\n"
    "Are you sure you want to continue?";

constexpr const char* enabledMessage =
    "Options Enabled. If you haven't read the readme.txt file, do so and \n"
    "use the ''Disable / Restore'' button BEFORE uninstalling.\n"
    "If you have any suggestions or bug reports, please send the to me.";

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

bool ReadArchive(Main& main, Preparation& preparation) {
  preparation.archive = LoadHogTable(main.host, main.installation.archivePath());
  if (!preparation.archive.table.entries.empty()) return true;
  Show(
      main.host,
      "Enabling was stopped, because the table of resource.hog cannot be read. If you have a backup of the table, open "
      "the archive on the Hog Editor tab and press \"Restore FAT\".",
      Icon::exclamation);
  return false;
}

/// Adds what the models will take: each is written beside the one that it replaces.
void PlanModels(Main& main, const Preparation& preparation, WritePlan& plan) {
  const Installation& installation = main.installation;
  for (const std::string& path : LooseFiles(main.host.files, installation, preparation.models))
    plan.files.push_back(path);
  File hog(main.host.files, installation.archivePath(), OpenFor::reading);
  const HogTable backup = LoadFatBackup(main.host, installation);
  for (const ListedShip& ship : preparation.list) {
    const std::string model = Trim(ship.file);
    if (model.empty()) continue;
    if (ship.kind == importedKind) {
      NeedRoom(plan, installation.GamePath, FileLength(main.host.files, installation.addOnModelPath(model)));
    } else if (const auto entry = FindModel(model, preparation.archive.table, backup)) {
      NeedRoom(plan, installation.GamePath, UnpackedSize(hog, entry->Size, entry->Offset));
    }
  }
}

WritePlan PlanEnable(Main& main, const Preparation& preparation) {
  const Installation& installation = main.installation;
  WritePlan plan;
  plan.folders = {installation.GamePath, installation.ProgramPath};
  for (const char* folder : {"backup\\", "backup\\ships\\"}) {
    if (FolderExists(main.host.files, installation.programFile(folder)))
      plan.folders.push_back(installation.programFile(folder));
  }
  if (FolderExists(main.host.files, installation.modelsFolder())) plan.folders.push_back(installation.modelsFolder());
  plan.files = {installation.archivePath(),
                installation.statsPath(),
                installation.defaultsPath(),
                installation.cataloguePath(),
                installation.backupPath(fatBackupName),
                installation.backupPath(defaultsName),
                installation.cachePath()};
  PlanModels(main, preparation, plan);
  NeedRoom(plan, installation.GamePath, FileLength(main.host.files, installation.statsPath()));
  NeedRoom(plan, installation.ProgramPath, preparation.list.size() * shipRecordSize);
  NeedRoom(plan, installation.ProgramPath, FatBackupSize(main.host.files, installation, preparation.archive.table));
  if (!preparation.wasEnabled) {
    NeedRoom(plan, installation.ProgramPath, PlayersFilesSize(main.host.files, installation, preparation.models));
  }
  return plan;
}

/// Everything that can be found out without changing anything.
bool Prepare(Main& main, Preparation& preparation) {
  preparation.list = LoadShipList(main.host, main.installation);
  if (preparation.list.empty()) return false;
  CollectModels(preparation);
  preparation.wasEnabled = FeaturesEnabled(main.host.files, main.installation.cataloguePath());
  if (!ReadArchive(main, preparation)) return false;
  // Found out later, it would end the program between the new catalogue and the models that go with it.
  if (!CacheHasSlotsFor(main.host.files, main.installation, preparation.list)) EndForFullCache(main.host);
  return Trapped(main.host, "cmdEnable_Click()", false,
                 [&] { return ReadyToWrite(main.host, PlanEnable(main, preparation)); });
}

/// Copies all that is needed to undo what follows.
bool KeepBackups(Main& main, const Preparation& preparation) {
  const Installation& installation = main.installation;
  KeepDefaults(main.host, installation);
  return Trap(main.host, "cmdEnable_Click()", [&] {
    ShowProgress(main.host, "Keeping backups", 0, 1);
    KeepFatBackup(main.host.files, installation, preparation.archive.table, preparation.archive.repaired,
                  preparation.stockModels);
    if (preparation.wasEnabled) return;
    KeepPlayersFiles(main.host.files, installation, preparation.models, preparation.archive.table,
                     LoadFatBackup(main.host, installation));
  });
}

}  // namespace

void cmdEnable_Click(Main& main) {
  if (!AskYesNo(main.host, enableQuestion)) return;
  CloseOpenFiles(main);
  Preparation preparation;
  if (!Prepare(main, preparation)) return;
  Installation& installation = main.installation;
  const bool foldersReady = Trap(main.host, "cmdEnable_Click()", [&] {
    MakeFolders(main.host.files, KeptModelsFolder(installation));
    MakeFolders(main.host.files, installation.modelsFolder());
    EraseAllLeftovers(main.host.files, installation);
  });
  if (!foldersReady) return;
  if (preparation.wasEnabled) {
    SwapDesk desk = SwapDeskOf(main);
    cmdUnswapAll_Click(desk, main.switcher);
  }
  if (!KeepBackups(main, preparation)) return;
  const bool companions = ReadyLoadoutMaps(main);
  const HogTable backup = LoadFatBackup(main.host, installation);
  if (!BuildCatalogue(main.host, installation, preparation.list, preparation.archive.table, backup)) return;
  Trap(main.host, "cmdEnable_Click()", [&] { EraseKeptSpellings(main.host.files, installation, preparation.models); });
  UnpackSetup(main.host, installation);
  SetUpShipStats(main.host, installation);
  if (companions) SetUpLoadouts(main);
  EndProgress(main.host);
  FillLists(main);
  ShowSuccess(main.host, enabledMessage, Icon::none);
}

}  // namespace oravin
