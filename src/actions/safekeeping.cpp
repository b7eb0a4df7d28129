#include "actions/safekeeping.h"

#include <algorithm>

#include "actions/add_on_ship.h"
#include "actions/remove_texture.h"
#include "actions/restore_cache.h"
#include "actions/restore_stats.h"
#include "archive/unpack.h"
#include "base/text.h"
#include "desk/error_trap.h"
#include "files/look_up.h"
#include "files/path.h"
#include "files/whole_file.h"
#include "installation/kept_models.h"
#include "stats/ship_stats.h"
#include "textures/texture_cache.h"

namespace oravin {

namespace {

/// True when a loose file is the work of an earlier run whose catalogue is lost: the same bytes are a stock model of
/// the archive (a swap puts it under other names, too) or an add-on's model, so nothing is lost with it.
bool OwnWork(Files& files, const Installation& installation, const std::string& loose,
             const std::vector<std::string>& models, const HogTable& live, const HogTable& backup) {
  const std::string hog = installation.archivePath();
  return std::any_of(models.begin(), models.end(), [&](const std::string& model) {
    const auto entry = FindModel(model, live, backup);
    return entry ? SameAsUnpacked(files, hog, loose, entry->Size, entry->Offset)
                 : SameContent(files, loose, installation.addOnModelPath(model));
  });
}

/// The file names of loose models, and of their ".org".
std::vector<std::string> NamesOfModels(const std::vector<std::string>& models) {
  std::vector<std::string> names;
  for (const std::string& model : models) {
    names.push_back(model);
    names.push_back(ChangeExtension(model, ".org"));
  }
  return names;
}

void KeepLooseModels(Files& files, const Installation& installation, const std::vector<std::string>& models,
                     const HogTable& live, const HogTable& backup) {
  Spellings there = SpellingsIn(files, installation.modelsFolder());
  KeptModels kept = ReadKeptModels(files, installation);
  // Names that are disguised although the features are not enabled: the catalogue was lost.
  const bool lost =
      std::any_of(models.begin(), models.end(), [&](const auto& model) { return IsDisguised(model, live); });
  for (const std::string& name : NamesOfModels(models)) {
    const auto found = there.find(UpperCase(name));
    if (found == there.end()) continue;
    std::vector<std::string>& spellings = found->second;
    std::erase_if(spellings, [&](const std::string& spelling) {
      return lost && OwnWork(files, installation, installation.modelPath(spelling), models, live, backup);
    });
    if (!spellings.empty()) KeepModels(files, installation, kept, spellings);
    there.erase(found);  // two ships may share a model
  }
}

void KeepTextures(Files& files, const Installation& installation) {
  const std::string cache = installation.cachePath();
  if (TcacheCount(files, cache) <= factoryTextures) return;
  const std::string kept = installation.backupPath(tcacheName);
  if (FileIsThere(files, kept)) {
    if (SameContent(files, cache, kept)) return;
    RenameOver(files, kept, FreeOldName(files, installation.backupPath("tcachehw")));
  }
  CopyWhole(files, cache, kept);
}

}  // namespace

void KeepDefaults(Host& host, const Installation& installation) {
  const std::string current = installation.statsPath();
  const std::string defaults = installation.defaultsPath();
  const std::string kept = installation.backupPath(defaultsName);
  Trap(host, "BackupShipStats", [&] {
    const bool there = FileIsThere(host.files, defaults);
    const bool currentThere = VisibleFileIsThere(host.files, current);
    if (there && currentThere) return;
    // Only the current file says how many blocks are the game's: without it BackupShipStats has its message box, and
    // the next start tries again.
    if (there || !currentThere || !FeaturesEnabled(host.files, installation)) {
      BackupShipStats(host, installation);
      return;
    }
    // Where the backup cannot be read, the current file is no substitute: changed statistics would become the defaults.
    const std::string source = FileIsThere(host.files, kept) ? kept : current;
    WriteBeside(host.files, defaults, [&](File& file) {
      CopyInto(file, source);
      PutAddOnBlocks(host, installation, file);
    });
  });
}

void KeepPlayersFiles(Files& files, const Installation& installation, const std::vector<std::string>& models,
                      const HogTable& live, const HogTable& backup) {
  KeepLooseModels(files, installation, models, live, backup);
  KeepTextures(files, installation);
  const std::string defaults = installation.defaultsPath();
  if (FileIsThere(files, defaults)) CopyWhole(files, defaults, installation.backupPath(defaultsName));
}

void EraseKeptSpellings(Files& files, const Installation& installation, const std::vector<std::string>& models) {
  EraseSpareSpellings(files, installation, NamesOfModels(models));
}

std::vector<std::string> LooseFiles(Files& files, const Installation& installation,
                                    const std::vector<std::string>& models) {
  const Spellings there = SpellingsIn(files, installation.modelsFolder());
  std::vector<std::string> paths;
  for (const std::string& name : NamesOfModels(models)) {
    const auto found = there.find(UpperCase(name));
    if (found == there.end()) continue;
    for (const std::string& spelling : found->second) paths.push_back(installation.modelPath(spelling));
  }
  return paths;
}

std::uint64_t PlayersFilesSize(Files& files, const Installation& installation, const std::vector<std::string>& models) {
  std::uint64_t size = LengthOrThrow(files, installation.statsPath());
  for (const std::string& path : LooseFiles(files, installation, models)) size += LengthOrThrow(files, path);
  const std::string cache = installation.cachePath();
  return TcacheCount(files, cache) > factoryTextures ? size + LengthOrThrow(files, cache) : size;
}

void EraseAllLeftovers(Files& files, const Installation& installation) {
  EraseLeftovers(files, installation.GamePath);
  EraseLeftovers(files, installation.modelsFolder());
  EraseLeftovers(files, installation.ProgramPath);
  EraseLeftovers(files, installation.backupFolder());
  EraseLeftovers(files, KeptModelsFolder(installation));
  EraseLeftovers(files, OldModelsFolder(installation));
  for (const std::string& folder : installation.addOnFolders()) EraseLeftovers(files, folder);
  EraseUnfinishedRebuild(files, installation.cachePath());
}

}  // namespace oravin
