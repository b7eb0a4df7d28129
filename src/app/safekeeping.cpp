#include "app/safekeeping.h"

#include <algorithm>
#include <charconv>
#include <map>

#include "catalogue/catalogue.h"
#include "desk/error_trap.h"
#include "hog/unpack.h"
#include "ships/shipstats.h"
#include "switcher/add_on_ship.h"
#include "texture/RemoveTexture.h"
#include "texture/RestoreTcacheFile.h"
#include "texture/Texture.h"
#include "util/File_Path.h"
#include "util/folder_names.h"
#include "util/text.h"
#include "util/whole_file.h"

namespace oravin {

namespace {

std::string BackupFolder(const Installation& installation) { return installation.ProgramPath + "backup\\"; }
std::string KeptModels(const Installation& installation) { return BackupFolder(installation) + "ships\\"; }
std::string LooseModels(const Installation& installation) { return installation.GamePath + "ships\\"; }

/// The name of the n-th kept copy of a file, counted from 1.
std::string NumberedName(const std::string& name, int number) {
  return number == 1 ? name : name + "." + std::to_string(number);
}

/// Takes a kept copy's name apart.
std::pair<std::string, int> NameAndNumber(const std::string& name) {
  const std::size_t dot = name.find_last_of('.');
  int number = 0;
  if (dot != std::string::npos) {
    const auto [end, failure] = std::from_chars(name.data() + dot + 1, name.data() + name.size(), number);
    if (failure == std::errc() && end == name.data() + name.size() && number > 1) return {name.substr(0, dot), number};
  }
  return {name, 1};
}

/// Keeps a copy of a file. The latest copy always has the highest number: where an equal copy is there already it
/// serves, and takes the next number if a different one came after it.
void KeepModel(Files& files, const std::string& from, const std::string& folder, const std::string& name) {
  int next = 1;
  int equal = 0;
  for (; FileExists(folder + NumberedName(name, next)); ++next) {
    if (SameContent(files, from, folder + NumberedName(name, next))) equal = next;
  }
  if (equal != 0 && equal == next - 1) return;
  const std::string to = folder + NumberedName(name, next);
  CopyWhole(files, from, to);
}

/// True when a loose file is the work of an earlier run whose catalogue is lost: the same bytes are a stock model of
/// the archive (a swap puts it under other names, too) or an add-on's model, so nothing is lost with it.
bool OwnWork(Files& files, const Installation& installation, const std::string& loose,
             const std::vector<std::string>& models, const HogTable& live, const HogTable& backup) {
  const std::string hog = installation.GamePath + "resource.hog";
  return std::any_of(models.begin(), models.end(), [&](const std::string& model) {
    const auto entry = FindModel(model, live, backup);
    return entry ? SameAsUnpacked(files, hog, loose, entry->Size, entry->Offset)
                 : SameContent(files, loose, installation.ProgramPath + addOnShipsFolder + model);
  });
}

void KeepLooseModels(Files& files, const Installation& installation, const std::vector<std::string>& models,
                     const HogTable& live, const HogTable& backup) {
  const FolderNames there = NamesIn(LooseModels(installation));
  // Names that are disguised although the features are not enabled tell of a catalogue that was lost.
  const bool lost =
      std::any_of(models.begin(), models.end(), [&](const auto& model) { return IsDisguised(model, live); });
  for (const std::string& model : models) {
    for (const std::string& name : {model, ChangeExtension(std::string(model), ".org")}) {
      const FolderNames::Item* item = FindIn(there, name);
      if (item == nullptr) continue;
      const std::string loose = LooseModels(installation) + item->spelling;
      if (lost && OwnWork(files, installation, loose, models, live, backup)) continue;
      KeepModel(files, loose, KeptModels(installation), item->spelling);
    }
  }
}

void KeepTextures(Files& files, const Installation& installation) {
  const std::string cache = installation.GamePath + "tcachehw.dat";
  if (TcacheCount(files, cache) <= factoryTextures) return;
  const std::string kept = BackupFolder(installation) + "tcachehw.dat";
  if (FileExists(std::string(kept))) {
    if (SameContent(files, cache, kept)) return;
    RenameOver(files, kept, FreeOldName(BackupFolder(installation) + "tcachehw"));
  }
  CopyWhole(files, cache, kept);
}

}  // namespace

void KeepDefaults(Host& host, const Installation& installation) {
  const std::string current = installation.GamePath + "shipstats.bin";
  const std::string defaults = installation.GamePath + "shipstats.def";
  const std::string kept = BackupFolder(installation) + "shipstats.def";
  const bool lost = FeaturesEnabled(installation.ProgramPath) && !FileExists(std::string(defaults));
  // Only the current file tells which blocks are the game's: without it BackupShipStats has its box, and the next start
  // tries again.
  if (!lost || !FileExists(std::string(current))) {
    BackupShipStats(host, installation.GamePath);
    return;
  }
  // Where the backup cannot be read, the current file is no substitute: changed statistics would become the defaults.
  const std::string source = FileExists(std::string(kept)) ? kept : current;
  Trap(host, "BackupShipStats", [&] {
    WriteBeside(host.files, defaults, [&](int handle) {
      CopyInto(host.files, source, handle);
      PutAddOnBlocks(host, installation, handle);
    });
  });
}

void MakeFolders(Files& files, const Installation& installation) {
  MakeFolder(files, BackupFolder(installation));
  MakeFolder(files, KeptModels(installation));
  MakeFolder(files, LooseModels(installation));
}

void KeepPlayersFiles(Files& files, const Installation& installation, const std::vector<std::string>& models,
                      const HogTable& live, const HogTable& backup) {
  KeepLooseModels(files, installation, models, live, backup);
  KeepTextures(files, installation);
  const std::string defaults = installation.GamePath + "shipstats.def";
  if (FileExists(std::string(defaults))) CopyWhole(files, defaults, BackupFolder(installation) + "shipstats.def");
}

std::uint64_t PlayersFilesSize(Files& files, const Installation& installation, const std::vector<std::string>& models) {
  const FolderNames there = NamesIn(LooseModels(installation));
  std::uint64_t size = FileLength(installation.GamePath + "shipstats.bin");
  for (const std::string& model : models) {
    size += LengthIn(there, model) + LengthIn(there, ChangeExtension(std::string(model), ".org"));
  }
  const std::string cache = installation.GamePath + "tcachehw.dat";
  return TcacheCount(files, cache) > factoryTextures ? size + FileLength(cache) : size;
}

void PutPlayersModelsBack(Files& files, const Installation& installation) {
  const auto items = platform::ListNative(KeptModels(installation));
  if (!items) return;
  std::map<std::string, int> latest;
  for (const platform::FileFacts& item : *items) {
    if (item.folder) continue;
    const auto [name, number] = NameAndNumber(item.name);
    if (!IsPlainFileName(name)) continue;
    int& highest = latest[name];
    highest = std::max(highest, number);
  }
  for (const auto& [name, number] : latest) {
    CopyWhole(files, KeptModels(installation) + NumberedName(name, number), LooseModels(installation) + name);
  }
  for (const platform::FileFacts& item : *items) {
    if (!item.folder) EraseFile(files, KeptModels(installation) + item.name);
  }
}

std::uint64_t KeptModelsSize(const Installation& installation) {
  std::uint64_t size = 0;
  for (const platform::FileFacts& item :
       platform::ListNative(KeptModels(installation)).value_or(std::vector<platform::FileFacts>())) {
    size += item.length;
  }
  return size;
}

void EraseAllLeftovers(Files& files, const Installation& installation) {
  EraseLeftovers(files, installation.GamePath);
  EraseLeftovers(files, LooseModels(installation));
  EraseLeftovers(files, installation.ProgramPath);
  EraseLeftovers(files, BackupFolder(installation));
  EraseLeftovers(files, KeptModels(installation));
  for (const char* folder : {addOnShipsFolder, addOnTexturesFolder, addOnStatsFolder}) {
    EraseLeftovers(files, installation.ProgramPath + folder);
  }
  EraseUnfinishedRebuild(files, installation.GamePath + tcacheName);
}

}  // namespace oravin
