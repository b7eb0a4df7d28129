#include "actions/remove_imported.h"

#include <algorithm>
#include <optional>
#include <set>

#include "actions/add_on_ship.h"
#include "actions/imported_parts.h"
#include "actions/remove_texture.h"
#include "actions/swap_plan.h"
#include "actions/swap_ships.h"
#include "base/text.h"
#include "catalogue/catalogue.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "desk/write_plan.h"
#include "files/look_up.h"
#include "files/path.h"
#include "files/whole_file.h"
#include "installation/imported_lines.h"
#include "lists/ship_list_edit.h"
#include "stats/ship_stats.h"
#include "textures/texture_cache.h"

namespace oravin {

namespace {

/// The add-on files of one ship, and the name of the folder that they are moved to.
struct KeptFiles {
  std::string folder;
  std::vector<std::string> paths;
};

/// What is known before the first change.
struct Removal {
  RemovalResult result;
  Ships removed;
  Ships remaining;  ///< without the catalogue's sentinel
  bool textures = false;
  std::vector<int> targets;         ///< the stock ships that are restored first
  std::vector<std::string> models;  ///< files in the game's ships folder
  std::vector<KeptFiles> kept;
  std::optional<ShipListText> list;  ///< without their lines; nothing where it stays as it is
};

bool IsRemoved(const RemovalResult& removal, int index) {
  return index >= 0 &&
         std::binary_search(removal.records.begin(), removal.records.end(), static_cast<std::size_t>(index));
}

/// How many removed records stand before an index.
int RemovedBefore(const RemovalResult& removal, int index) {
  const auto at = std::lower_bound(removal.records.begin(), removal.records.end(), static_cast<std::size_t>(index));
  return static_cast<int>(at - removal.records.begin());
}

Removal RemovalOf(const Ships& all, const std::vector<int>& ships) {
  std::set<std::size_t> records;
  for (const int ship : ships) {
    for (const std::size_t part : ImportedParts(all, ship)) records.insert(part);
  }
  Removal removal;
  removal.result.records.assign(records.begin(), records.end());
  for (std::size_t i = 0; i + 1 < all.size(); ++i) {
    (records.contains(i) ? removal.removed : removal.remaining).push_back(all[i]);
  }
  return removal;
}

/// The stock ships that are swapped to a removed one, by the first record of each. A removed record that counts as the
/// second part of a stock ship, because it follows that ship and has its name, is restored with it.
std::vector<int> TargetsOf(const Removal& removal, const Ships& ships) {
  std::vector<int> targets;
  for (std::size_t i = 0; i < ships.size(); ++i) {
    if (IsInert(ships[i]) || !ships[i].Changed) continue;
    const bool concerned =
        IsRemoved(removal.result, IndexIn(ships[i].ChangedToIndex)) || IsRemoved(removal.result, static_cast<int>(i));
    if (!concerned) continue;
    const bool second = i > 0 && ships[i - 1].HasSecondPart && ships[i - 1].Changed;
    const int target = static_cast<int>(second ? i - 1 : i);
    if (targets.empty() || targets.back() != target) targets.push_back(target);
  }
  return targets;
}

/// Names in upper case.
using Names = std::set<std::string>;

std::string WithExtension(const ShipRecord& ship, const char* extension) {
  return ChangeExtension(ModelOf(ship), extension);
}

/// Models and weapon backups to delete, unless a remaining ship uses the name.
std::vector<std::string> ModelsOf(Files& files, const Removal& removal, const Installation& installation) {
  Names others;
  for (const ShipRecord& ship : removal.remaining) {
    if (IsInert(ship)) continue;
    others.insert({UpperCase(ModelOf(ship)), UpperCase(WithExtension(ship, ship.Imported ? ".bak" : ".org"))});
  }
  std::vector<std::string> models;
  for (const ShipRecord& ship : removal.removed) {
    for (const std::string& name : {ModelOf(ship), WithExtension(ship, ".bak")}) {
      const std::string path = installation.modelPath(name);
      // Each name once: two of the ships may share it.
      if (others.insert(UpperCase(name)).second && VisibleFileIsThere(files, path)) models.push_back(path);
    }
  }
  return models;
}

/// The add-on files that remaining ships use.
struct Needed {
  Names models;
  Names statistics;
  Names textures;
};

Needed NeededBy(const Ships& remaining) {
  Needed needed;
  for (const ShipRecord& ship : remaining) {
    if (IsInert(ship)) continue;
    if (ship.Imported) {
      needed.models.insert(UpperCase(ModelOf(ship)));
      needed.statistics.insert(UpperCase(WithExtension(ship, ".txt")));
    }
    for (const ShipText& texture : ship.Textures) {
      const std::string name = UpperCase(texture.Trimmed());
      if (name.empty()) continue;
      // As in the cache: a texture stays with its companion, whichever of the two a ship names.
      needed.textures.insert({name, "G" + name});
      if (name.front() == 'G') needed.textures.insert(name.substr(1));
    }
  }
  return needed;
}

/// One ship's add-on files. `seen` has those of the ships before it: a file is moved once.
KeptFiles KeptFilesOf(Files& files, const ShipRecord& ship, const Removal& removal, const Installation& installation,
                      const Needed& needed, Names& seen) {
  KeptFiles kept{FolderNameFor(ship.ShipName.Trimmed()), {}};
  const auto keep = [&](const std::string& name, const std::string& path) {
    if (IsPlainFileName(name) && VisibleFileIsThere(files, path) && seen.insert(UpperCase(path)).second) {
      kept.paths.push_back(path);
    }
  };
  const std::string text = WithExtension(ship, ".txt");
  if (!needed.models.contains(UpperCase(ModelOf(ship))))
    keep(ModelOf(ship), installation.addOnModelPath(ModelOf(ship)));
  if (!needed.statistics.contains(UpperCase(text))) keep(text, installation.addOnStatsPath(text));
  if (!removal.textures) return kept;
  for (const ShipText& texture : ship.Textures) {
    const std::string name = texture.Trimmed();
    if (name.empty() || needed.textures.contains(UpperCase(name))) continue;
    keep(name + ".bmp", installation.addOnBitmapPath(name + ".bmp"));
  }
  return kept;
}

void FindKeptFiles(Files& files, Removal& removal, const Installation& installation) {
  const Needed needed = NeededBy(removal.remaining);
  Names seen;
  for (const ShipRecord& ship : removal.removed) {
    KeptFiles kept = KeptFilesOf(files, ship, removal, installation, needed, seen);
    if (!kept.paths.empty()) removal.kept.push_back(std::move(kept));
  }
}

/// Finds the list without the ships' lines.
/// @throws FileError when there is a list that cannot be used
void FindLines(Files& files, Removal& removal, const Installation& installation) {
  if (!VisibleFileIsThere(files, installation.shipListPath())) return;
  const ShipListText list = ReadShipListText(files, installation.shipListPath());
  std::set<std::size_t> lines;
  for (const auto line : FindImportedLines(list, removal.removed)) {
    if (line) lines.insert(*line);
  }
  if (!lines.empty()) removal.list = WithoutShips(list, lines);
}

void Append(WritePlan& plan, const WritePlan& more) {
  plan.files.insert(plan.files.end(), more.files.begin(), more.files.end());
  plan.folders.insert(plan.folders.end(), more.folders.begin(), more.folders.end());
  for (const auto& [folder, bytes] : more.room) NeedRoom(plan, folder, bytes);
}

WritePlan PlanRemoval(Files& files, const Removal& removal, const Installation& installation) {
  WritePlan plan;
  plan.files = {installation.cataloguePath(), installation.defaultsPath()};
  plan.folders = {installation.ProgramPath};
  NeedRoom(plan, installation.ProgramPath, removal.remaining.size() * shipRecordSize);
  for (const int target : removal.targets) Append(plan, PlanUnswap(files, installation, target));
  plan.files.insert(plan.files.end(), removal.models.begin(), removal.models.end());
  if (!removal.models.empty()) plan.folders.push_back(installation.modelsFolder());
  const std::string cache = installation.cachePath();
  if (removal.textures && VisibleFileIsThere(files, cache)) {
    plan.files.push_back(cache);
    plan.folders.push_back(installation.GamePath);
    NeedRoom(plan, installation.GamePath, LengthOrThrow(files, cache));
  }
  if (removal.list) {
    plan.files.push_back(removal.list->path);
    NeedRoom(plan, installation.ProgramPath, removal.list->text.size());
  }
  std::set<std::string> folders;
  for (const KeptFiles& kept : removal.kept) {
    for (const std::string& path : kept.paths) {
      plan.files.push_back(path);
      folders.insert(ParentFolder(path));
    }
  }
  const std::string below = installation.removedAddOnsFolder();
  if (!folders.empty()) folders.insert(FolderIsThere(files, below) ? below : ParentFolder(below));
  plan.folders.insert(plan.folders.end(), folders.begin(), folders.end());
  return plan;
}

/// The name of a folder in `addons\removed\` that is missing or empty: the given one, or with a number after it.
std::string FreeFolder(Files& files, const Installation& installation, const std::string& name) {
  for (int number = 1;; ++number) {
    std::string folder = name + (number == 1 ? "" : std::to_string(number));
    const std::string path = installation.removedAddOnPath(folder, "");
    const LookUp found = LookOrThrow(files, path.substr(0, path.size() - 1));
    if (found.presence == Presence::absent) return folder;
    if (found.facts.folder && ListOrThrow(files, path).items.empty()) return folder;
  }
}

void MoveKeptFiles(Files& files, const Removal& removal, const Installation& installation) {
  if (removal.kept.empty()) return;
  MakeFolder(files, installation.removedAddOnsFolder());
  for (const KeptFiles& kept : removal.kept) {
    const std::string folder = FreeFolder(files, installation, kept.folder);
    MakeFolder(files, installation.removedAddOnPath(folder, ""));
    for (const std::string& path : kept.paths) {
      RenameOver(files, path, installation.removedAddOnPath(folder, SpellingOf(files, path)));
    }
  }
}

/// The remaining catalogue as LoadCatalogue would load it: with its sentinel, indices and second parts set anew.
Ships RestOf(const RemovalResult& removal, const Ships& ships) {
  Ships rest;
  rest.reserve(ships.size() - removal.records.size());
  for (std::size_t i = 0; i < ships.size(); ++i) {
    if (IsRemoved(removal, static_cast<int>(i))) continue;
    rest.push_back(ships[i]);
    const int by = IndexIn(ships[i].ChangedToIndex);
    if (!ships[i].Changed || by < 0) continue;
    const int moved = by - RemovedBefore(removal, by);
    if (moved != by) rest.back().ChangedToIndex = Int16Value(moved);
  }
  MarkSecondParts(rest);
  return rest;
}

bool RestoreTargets(Host& host, Installation& installation, const Removal& removal) {
  return std::all_of(removal.targets.begin(), removal.targets.end(), [&](int target) {
    return !installation.ships[static_cast<std::size_t>(target)].Changed || UnswapShip(host, installation, target).done;
  });
}

/// False when the removal must not go on: then the ships stay listed, so that their textures can still be removed.
bool RemoveTextures(Host& host, const Installation& installation, const Removal& removal) {
  const std::string cache = installation.cachePath();
  if (!removal.textures) return true;
  const bool there = VisibleFileIsThere(host.files, cache);
  if (RemoveTexture(host, cache, removal.removed, removal.remaining) || !there) return true;
  Show(host,
       "The textures could not be removed, as the message before this one says, so the ships stay listed. Put that "
       "right and remove them again, or keep their textures.",
       Icon::exclamation);
  return false;
}

/// The steps of the removal. The ships are in the catalogue until the last step, so that another removal, or "Disable /
/// Restore", can make up for one that was stopped. The textures go first: only the cache may be refused. The list's
/// lines go before the add-on files: a list must not name a ship whose files are away.
bool Remove(Host& host, Installation& installation, const Removal& removal) {
  Files& files = host.files;
  if (!RestoreTargets(host, installation, removal)) return false;
  if (!RemoveTextures(host, installation, removal)) return false;
  for (const std::string& model : removal.models) EraseFile(files, model);
  if (removal.list) WriteShipList(files, *removal.list);
  MoveKeptFiles(files, removal, installation);
  for (const int block : OwnBlocks(files, installation, removal.result.records)) {
    ClearShipBlock(files, installation.defaultsPath(), block);
  }
  // From the catalogue as it is now: the stock ships were restored in it.
  Ships rest = RestOf(removal.result, installation.ships);
  WriteCatalogue(files, installation.cataloguePath(), std::span(rest).first(rest.size() - 1));
  installation.ships = std::move(rest);
  return true;
}

/// Finds out all that is needed, and makes sure that everything can be written.
bool Prepare(Host& host, const Installation& installation, Removal& removal) {
  return Trapped(host, removeTitle, false, [&] {
    removal.targets = TargetsOf(removal, installation.ships);
    removal.models = ModelsOf(host.files, removal, installation);
    FindKeptFiles(host.files, removal, installation);
    FindLines(host.files, removal, installation);
    return ReadyToWrite(host, PlanRemoval(host.files, removal, installation));
  });
}

}  // namespace

int IndexAfter(const RemovalResult& removal, int index) {
  return index < 0 || IsRemoved(removal, index) ? -1 : index - RemovedBefore(removal, index);
}

RemovalResult RemoveImported(Host& host, Installation& installation, const std::vector<int>& ships, bool textures) {
  Removal removal = RemovalOf(installation.ships, ships);
  removal.textures = textures;
  if (removal.result.records.empty() || !Prepare(host, installation, removal)) return removal.result;
  removal.result.begun = true;
  ShowProgress(host, "Removing ships", 0, 1);
  Trap(host, removeTitle, [&] { removal.result.done = Remove(host, installation, removal); });
  EndProgress(host);
  return removal.result;
}

std::string FolderNameFor(const std::string& shipName) {
  std::string name = Trim(shipName);
  for (char& c : name) {
    // A dot or a space alone is no name, but a name may have them inside.
    const bool right = c == '.' || c == ' ' || (IsPlainFileName({&c, 1}) && IsPrintableText({&c, 1}));
    if (!right) c = '_';
  }
  if (!name.empty() && name.back() == '.') name.back() = '_';
  return IsPlainFileName(name) ? name : "_" + name;
}

}  // namespace oravin
