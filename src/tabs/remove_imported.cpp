#include "tabs/remove_imported.h"

#include <algorithm>
#include <optional>
#include <set>
#include <vector>

#include "actions/add_on_ship.h"
#include "actions/remove_texture.h"
#include "actions/swap_plan.h"
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
#include "tabs/imported_list.h"
#include "tabs/stats_show.h"
#include "textures/texture_cache.h"

namespace oravin {

namespace {

constexpr const char* removeTitle = "cmdRemoveShips_Click()";

constexpr const char* question = "Are you sure that you want to remove these ships?";
constexpr const char* questionTitle = "Oravin - Manage Switcher";

constexpr const char* textureQuestion =
    "Do you also want to remove the associated textures for this model?\n"
    "It may take up to ten seconds to rebuild TCACHE file.\n"
    "(Won't remove textures shared with ships not being removed)";

/// The add-on files of one ship, and the name of the folder that they are moved to.
struct KeptFiles {
  std::string folder;
  std::vector<std::string> paths;
};

/// What is known before the first change.
struct Removal {
  std::vector<std::size_t> indices;  ///< of the records, in order
  Ships removed;
  Ships remaining;  ///< without the catalogue's surplus element
  bool textures = false;
  std::vector<int> targets;         ///< the stock ships that are put back first
  std::vector<std::string> models;  ///< files in the game's ships folder
  std::vector<KeptFiles> kept;
  std::optional<ShipListText> list;  ///< without their lines; nothing where it stays as it is
};

bool IsRemoved(const Removal& removal, int index) {
  return index >= 0 &&
         std::binary_search(removal.indices.begin(), removal.indices.end(), static_cast<std::size_t>(index));
}

Removal RemovalOf(const ImportTab& tab, const Ships& ships) {
  std::set<std::size_t> indices;
  for (const ListRow& row : tab.lstImported.rows) {
    if (!row.selected) continue;
    for (const std::size_t part : ImportedParts(ships, row.item)) indices.insert(part);
  }
  Removal removal;
  removal.indices.assign(indices.begin(), indices.end());
  for (std::size_t i = 0; i + 1 < ships.size(); ++i) {
    (indices.contains(i) ? removal.removed : removal.remaining).push_back(ships[i]);
  }
  return removal;
}

/// The stock ships that fly as a removed one, by the first record of each. A removed record that is taken for the
/// second part of a stock ship, because it follows it under its name, is put back with that ship.
std::vector<int> TargetsOf(const Removal& removal, const Ships& ships) {
  std::vector<int> targets;
  for (std::size_t i = 0; i < ships.size(); ++i) {
    if (IsInert(ships[i]) || !ships[i].Changed) continue;
    const bool concerned =
        IsRemoved(removal, IndexIn(ships[i].ChangedToIndex)) || IsRemoved(removal, static_cast<int>(i));
    if (!concerned) continue;
    const bool second = i > 0 && ships[i - 1].HasSecondPart && ships[i - 1].Changed;
    const int target = static_cast<int>(second ? i - 1 : i);
    if (targets.empty() || targets.back() != target) targets.push_back(target);
  }
  return targets;
}

/// Names that are compared without regard to case.
using Names = std::set<std::string>;

std::string WithExtension(const ShipRecord& ship, const char* extension) {
  return ChangeExtension(ModelOf(ship), extension);
}

/// The models in the game's ships folder and the originals of their weapons, as far as no ship that stays has a file of
/// that name.
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
      // A name that was met already, with this ship or another one, is not met again.
      if (others.insert(UpperCase(name)).second && FileExists(files, path)) models.push_back(path);
    }
  }
  return models;
}

/// What ships that stay need of the add-on files.
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

/// One ship's add-on files. `seen` holds those of the ships before it: a file is moved once.
KeptFiles KeptFilesOf(Files& files, const ShipRecord& ship, const Removal& removal, const Installation& installation,
                      const Needed& needed, Names& seen) {
  KeptFiles kept{FolderNameFor(ship.ShipName.Trimmed()), {}};
  const auto keep = [&](const char* folder, const std::string& name) {
    const std::string path = installation.programFile(folder + name);
    if (IsPlainFileName(name) && FileExists(files, path) && seen.insert(UpperCase(path)).second) {
      kept.paths.push_back(path);
    }
  };
  const std::string text = WithExtension(ship, ".txt");
  if (!needed.models.contains(UpperCase(ModelOf(ship)))) keep(addOnShipsFolder, ModelOf(ship));
  if (!needed.statistics.contains(UpperCase(text))) keep(addOnStatsFolder, text);
  if (!removal.textures) return kept;
  for (const ShipText& texture : ship.Textures) {
    const std::string name = texture.Trimmed();
    if (!name.empty() && !needed.textures.contains(UpperCase(name))) keep(addOnTexturesFolder, name + ".bmp");
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

/// The list without the ships' lines; where there is no list, there is no line.
/// @throws FileError when there is a list that cannot be used
void FindLines(Files& files, Removal& removal, const Installation& installation) {
  if (!FileExists(files, installation.shipListPath())) return;
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
  if (removal.textures && FileExists(files, cache)) {
    plan.files.push_back(cache);
    plan.folders.push_back(installation.GamePath);
    NeedRoom(plan, installation.GamePath, FileLength(files, cache));
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
  if (!folders.empty()) folders.insert(FolderExists(files, below) ? below : ParentFolder(below));
  plan.folders.insert(plan.folders.end(), folders.begin(), folders.end());
  return plan;
}

/// A folder of that name, or with the next number, in which nothing lies yet.
std::string FreeFolder(Files& files, const std::string& below, const std::string& name) {
  for (int number = 1;; ++number) {
    const std::string path = below + name + (number == 1 ? "" : std::to_string(number));
    const LookUp there = LookFor(files, path);
    if (there.presence == Presence::absent) return path + "\\";
    const Listing inside = there.facts.folder ? ListFolder(files, path + "\\") : Listing();
    if (inside.presence == Presence::visible && inside.items.empty()) return path + "\\";
  }
}

void MoveKeptFiles(Files& files, const Removal& removal, const Installation& installation) {
  if (removal.kept.empty()) return;
  const std::string below = installation.removedAddOnsFolder();
  MakeFolder(files, below);
  for (const KeptFiles& kept : removal.kept) {
    const std::string folder = FreeFolder(files, below, kept.folder);
    MakeFolder(files, folder);
    for (const std::string& path : kept.paths) RenameOver(files, path, folder + SpellingOf(files, path));
  }
}

/// How many removed records stand before an index.
std::size_t RemovedBefore(const Removal& removal, std::size_t index) {
  return static_cast<std::size_t>(std::lower_bound(removal.indices.begin(), removal.indices.end(), index) -
                                  removal.indices.begin());
}

/// The catalogue that is left, as it is loaded: with its surplus element, indices and second parts set anew.
Ships RestOf(const Removal& removal, const Ships& ships) {
  Ships rest;
  rest.reserve(ships.size() - removal.indices.size());
  for (std::size_t i = 0; i < ships.size(); ++i) {
    if (IsRemoved(removal, static_cast<int>(i))) continue;
    rest.push_back(ships[i]);
    const int by = IndexIn(ships[i].ChangedToIndex);
    if (!ships[i].Changed || by < 0) continue;
    const std::size_t moved = RemovedBefore(removal, static_cast<std::size_t>(by));
    if (moved > 0) rest.back().ChangedToIndex = Int16Value(by - static_cast<int>(moved));
  }
  MarkSecondParts(rest);
  return rest;
}

/// Lets the stats tab go on with the ships that it shows and remembers, at their new places.
void MoveStatsTab(StatsTab& tab, const Removal& removal) {
  const auto moved = [&](int index) {
    if (index < 0 || IsRemoved(removal, index)) return -1;
    return index - static_cast<int>(RemovedBefore(removal, static_cast<std::size_t>(index)));
  };
  if (const auto row = SelectedRow(tab.shipEditingList)) {
    ListRow& selected = tab.shipEditingList.rows[*row];
    selected.item = moved(selected.item);
  }
  if (!tab.remembered) return;
  const int index = moved(tab.remembered->index);
  if (index < 0) {
    tab.remembered.reset();
  } else {
    tab.remembered->index = index;
  }
}

bool PutTargetsBack(SwapDesk& desk, const Removal& removal) {
  return std::all_of(removal.targets.begin(), removal.targets.end(),
                     [&](int target) { return UnswapAt(desk, target); });
}

/// False when the removal must not go on: then the ships stay listed, so that their textures can still be removed.
bool RemoveTextures(SwapDesk& desk, const Removal& removal) {
  const std::string cache = desk.installation.cachePath();
  if (!removal.textures) return true;
  const bool there = FileExists(desk.host.files, cache);
  if (RemoveTexture(desk.host, cache, removal.removed, removal.remaining) || !there) return true;
  Show(desk.host,
       "The textures could not be removed, as the message before this one says, so the ships stay listed. Put that "
       "right and remove them again, or keep their textures.",
       Icon::exclamation);
  return false;
}

/// The steps of the removal. The ships are in the catalogue until the last one, so that whatever stops it can be made
/// up for by another removal, and by "Disable / Restore". The textures go first: only the cache may be refused. The
/// line goes before the add-on files: a list never names a ship whose files are away.
bool Remove(SwapDesk& desk, const Removal& removal) {
  Files& files = desk.host.files;
  Installation& installation = desk.installation;
  if (!PutTargetsBack(desk, removal)) return false;
  if (!RemoveTextures(desk, removal)) return false;
  for (const std::string& model : removal.models) EraseFile(files, model);
  if (removal.list) WriteShipList(files, *removal.list);
  MoveKeptFiles(files, removal, installation);
  for (const int block : OwnBlocks(files, installation, removal.indices)) {
    ClearShipBlock(files, installation.defaultsPath(), block);
  }
  // The stock ships that were put back are as the catalogue has them now.
  Ships rest = RestOf(removal, installation.ships);
  WriteCatalogue(files, installation.cataloguePath(), std::span(rest).first(rest.size() - 1));
  installation.ships = std::move(rest);
  MoveStatsTab(desk.statsTab, removal);
  return true;
}

}  // namespace

std::string FolderNameFor(const std::string& shipName) {
  std::string name = Trim(shipName);
  for (char& c : name) {
    // A dot and a blank are no names by themselves, but may stand inside one.
    const bool right = c == '.' || c == ' ' || (IsPlainFileName({&c, 1}) && IsPrintableText({&c, 1}));
    if (!right) c = '_';
  }
  if (!name.empty() && name.back() == '.') name.back() = '_';
  return IsPlainFileName(name) ? name : "_" + name;
}

bool cmdRemoveShips_Click(SwapDesk& desk, ImportTab& tab, const RefillLists& refill) {
  Host& host = desk.host;
  Installation& installation = desk.installation;
  Removal removal = RemovalOf(tab, installation.ships);
  if (removal.indices.empty() || !AskYesNo(host, question, questionTitle)) return false;
  if (!CatalogueThere(host, installation, removeTitle)) return false;
  removal.textures = AskYesNo(host, textureQuestion);
  desk.closeOthers();
  removal.targets = TargetsOf(removal, installation.ships);
  removal.models = ModelsOf(host.files, removal, installation);
  FindKeptFiles(host.files, removal, installation);
  if (!Trap(host, removeTitle, [&] { FindLines(host.files, removal, installation); })) return false;
  if (!ReadyToWrite(host, PlanRemoval(host.files, removal, installation))) return false;
  bool removed = false;
  ShowProgress(host, "Removing ships", 0, 1);
  Trap(host, removeTitle, [&] { removed = Remove(desk, removal); });
  EndProgress(host);
  refill();
  if (!removed) return false;
  ShowSuccess(host, "Removal Complete", Icon::information);
  return true;
}

bool cmdRemoveAll_Click(SwapDesk& desk, ImportTab& tab, const RefillLists& refill) {
  SelectAll(tab.lstImported, true);
  lstImported_ItemClick(tab);
  return cmdRemoveShips_Click(desk, tab, refill);
}

}  // namespace oravin
