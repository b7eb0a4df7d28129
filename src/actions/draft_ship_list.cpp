#include "actions/draft_ship_list.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "actions/load_table.h"
#include "archive/disguise.h"
#include "archive/unpack.h"
#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/file.h"
#include "files/folder_names.h"
#include "files/path.h"
#include "lists/ship_list_text.h"
#include "models/class_byte.h"
#include "models/texture_names.h"
#include "stats/ship_stats.h"

namespace oravin {

namespace {

/// Larger files are not models and are not read into memory.
constexpr std::uint64_t largestModel = std::uint64_t{32} << 20;

constexpr const char* secondPartMark = "T_";

/// A model that is going to be drafted.
struct FoundModel {
  std::string file;  ///< its name in the list
  HogEntry entry;    ///< where the archive has it; not used for an add-on ship
  bool addOn = false;
  std::optional<std::size_t> ship;  ///< of a second part: the index of its ship
};

struct Drafting {
  Host& host;
  const Installation& installation;
  ShipListDraft draft;
  std::vector<FoundModel> models;
  std::unordered_map<std::string, std::size_t> byFile;  ///< indices of models by upper-case name
};

std::string Stem(const std::string& file) { return file.substr(0, file.size() - 4); }

void Comment(DraftedShip& ship, const std::string& comment) {
  if (!ship.comment.empty()) ship.comment += "; ";
  ship.comment += comment;
}

/// Why a model of that name cannot be listed; empty when it can.
std::string WhyNotModel(const std::string& name) {
  if (name.find_first_of("\\/") != std::string::npos) {
    return "it lies in a folder of the archive, where the game's ships do not";
  }
  return WhyNotListed({draftedKind, "x", name, 0, "", ""});
}

void AddModel(Drafting& drafting, FoundModel model) {
  std::string why = WhyNotModel(model.file);
  if (why.empty() && drafting.byFile.contains(UpperCase(model.file))) why = "another one of that name comes before it";
  if (why.empty() && drafting.models.size() == mostListedShips) why = "the list is full";
  if (!why.empty()) {
    drafting.draft.passedOver.push_back({Presentable(model.file), why});
    return;
  }
  drafting.byFile.emplace(UpperCase(model.file), drafting.models.size());
  drafting.models.push_back(std::move(model));
}

/// The plain names of entries whose names are disguised, by their position in the table.
std::unordered_map<std::uint32_t, std::string> BackedUpNames(Host& host, const Installation& installation) {
  std::unordered_map<std::uint32_t, std::string> names;
  for (HogEntry& entry : LoadFatBackup(host, installation).entries) names.emplace(entry.FatPos, std::move(entry.Name));
  return names;
}

/// Finds the archive's models in the order of its table.
/// @return whether the table could be read
bool FindArchiveModels(Drafting& drafting) {
  const std::vector<HogEntry> entries = LoadHogTable(drafting.host, drafting.installation.archivePath()).table.entries;
  if (entries.empty()) return false;
  const auto backup = BackedUpNames(drafting.host, drafting.installation);
  for (const HogEntry& entry : entries) {
    if (ExtensionOf(entry.Name) != "shp") continue;
    std::string name = entry.Name;
    const auto before = backup.find(entry.FatPos);
    if (before != backup.end() && SameName(name, Disguised(before->second))) name = before->second;
    // A name that looks disguised, but is spelled like this in the backup too, is the model's own.
    if (Disguised(name) == name && (before == backup.end() || !SameName(name, before->second))) {
      drafting.draft.passedOver.push_back(
          {Presentable(name), "its name is disguised, and no backup of the archive's table tells it"});
      continue;
    }
    AddModel(drafting, {name, entry, false, std::nullopt});
  }
  return true;
}

void FindAddOnModels(Drafting& drafting) {
  std::vector<std::string> names;
  for (const auto& [name, item] : NamesIn(drafting.host.files, drafting.installation.addOnModelsFolder()).items) {
    if (ExtensionOf(item.spelling) == "shp") names.push_back(item.spelling);
  }
  std::sort(names.begin(), names.end());
  for (const std::string& name : names) AddModel(drafting, {name, {}, true, std::nullopt});
}

/// Moves each second part directly after its ship.
void PairParts(Drafting& drafting) {
  std::vector<std::size_t> secondPart(drafting.models.size(), drafting.models.size());  // of each ship; the size: none
  std::vector<bool> isPart(drafting.models.size());
  for (std::size_t i = 0; i < drafting.models.size(); ++i) {
    const std::string name = UpperCase(drafting.models[i].file);
    if (!name.starts_with(secondPartMark)) continue;
    const auto ship = drafting.byFile.find(name.substr(2));
    // A second part of a second part would be a third record of one name.
    if (ship == drafting.byFile.end() || ship->first.starts_with(secondPartMark)) continue;
    if (drafting.models[ship->second].addOn != drafting.models[i].addOn) continue;
    secondPart[ship->second] = i;
    isPart[i] = true;
  }
  std::vector<FoundModel> ordered;
  ordered.reserve(drafting.models.size());
  for (std::size_t i = 0; i < drafting.models.size(); ++i) {
    if (isPart[i]) continue;
    const std::size_t ship = ordered.size();
    ordered.push_back(std::move(drafting.models[i]));
    if (secondPart[i] == drafting.models.size()) continue;
    ordered.push_back(std::move(drafting.models[secondPart[i]]));
    ordered.back().ship = ship;
  }
  drafting.models = std::move(ordered);
}

/// Reads the model's class and its first two textures.
void ReadModel(ModelReader& reader, DraftedShip& ship) {
  const auto classByte = ClassByteOf(reader);
  if (!classByte) {
    Comment(ship, "damaged model: it is too short");
    return;
  }
  ship.capital = MarksCapitalShip(*classByte);
  std::vector<std::string> names = TextureNamesOf(reader);
  if (names.empty()) Comment(ship, "the model names no textures");
  names.resize(2);
  for (std::string& name : names) {
    if (WhyNotListed({draftedKind, "x", "x.shp", 0, name, ""}).empty()) continue;
    Comment(ship, "a texture's name cannot stand in the list: " + Presentable(name));
    name.clear();
  }
  ship.ship.texture0 = names[0];
  ship.ship.texture1 = names[1];
}

/// Reads all models.
/// @return false when the user stopped it
bool ReadModels(Drafting& drafting) {
  const std::string hogPath = drafting.installation.archivePath();
  File hog(drafting.host.files, hogPath, OpenFor::reading);
  Files& files = drafting.host.files;
  for (std::size_t i = 0; i < drafting.models.size(); ++i) {
    const FoundModel& model = drafting.models[i];
    if (StopAsked(drafting.host)) return false;
    ShowProgress(drafting.host, "Reading " + model.file, static_cast<int>(i), static_cast<int>(drafting.models.size()));
    DraftedShip ship;
    ship.ship.kind = model.addOn ? importedKind : draftedKind;
    ship.ship.file = model.file;
    // One damaged model must not hold up the others.
    try {
      ModelReader reader = model.addOn ? ModelReader(files, drafting.installation.addOnModelPath(model.file))
                                       : ModelReader(model.file, ContentOf(hog, model.entry, largestModel));
      ReadModel(reader, ship);
    } catch (const FileError& error) {
      Comment(ship, "damaged model: " + error.reason);
    }
    drafting.draft.ships.push_back(std::move(ship));
  }
  return true;
}

/// The comment's words about a match.
std::string InWords(const StatsMatch& match, const std::vector<std::string>& blocks, bool secondPart) {
  if (!match.block) return "no statistics block bears its name: block 0 stands in";
  if (match.sureness == MatchSureness::shared) return "shares its ship's statistics";
  const std::string name = "\"" + Presentable(blocks[*match.block]) + "\"";
  switch (match.sureness) {
    case MatchSureness::prefix:
      if (secondPart) return "statistics of " + name + ", which has its ship's name in it";
      return "statistics of " + name + ", which begins alike: please check";
    case MatchSureness::close:
      return "statistics of " + name + ", which is close: please check";
    default:
      return "statistics of " + name;
  }
}

/// Gives the archive's ships their statistics.
/// @return the names of the blocks
std::vector<std::string> FindStats(Drafting& drafting, std::vector<StatsMatch>& matches) {
  const std::string path = drafting.installation.statsPath();
  std::vector<std::string> blocks;
  try {
    blocks = BlockNames(drafting.host.files, path);
  } catch (const FileError& error) {
    drafting.draft.remark = "The statistics were not read: " + error.reason + " (" + path + ").";
  }
  drafting.draft.blocks = static_cast<int>(blocks.size());
  std::vector<NamedModel> named;
  for (const FoundModel& model : drafting.models) {
    // An add-on ship brings its own statistics; without a stem it takes no block from a stock ship.
    named.push_back({model.addOn ? "" : Stem(model.file), model.ship});
  }
  matches = MatchStats(named, blocks);
  std::vector<bool> used(blocks.size());
  for (std::size_t i = 0; i < matches.size(); ++i) {
    DraftedShip& ship = drafting.draft.ships[i];
    const StatsMatch& match = matches[i];
    ship.match = match.sureness;
    if (match.block) {
      ship.ship.statsIndex = static_cast<int>(*match.block);
      used[*match.block] = true;
    }
    const bool secondPart = drafting.models[i].ship.has_value();
    if (secondPart) Comment(ship, "second part of the ship before it");
    Comment(ship, drafting.models[i].addOn ? "add-on ship: it brings its own statistics"
                                           : InWords(match, blocks, secondPart));
  }
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    if (!used[i] && !blocks[i].empty()) {
      drafting.draft.freeBlocks.push_back(std::to_string(i) + " " + Presentable(blocks[i]));
    }
  }
  return blocks;
}

/// The text without the characters that a ship's name cannot have, cut to its width.
std::string AsName(const std::string& text) {
  std::string name;
  for (const char c : text) {
    const auto code = static_cast<std::uint8_t>(c);
    if (c != '"' && code >= 32 && code != 127) name += c;
  }
  return Trim(Trim(name).substr(0, shipNameWidth));
}

/// A name made from the model's: "ural_tanker" becomes "Ural Tanker".
std::string NameFromStem(const std::string& stem) {
  std::string name = LowerCase(stem);
  bool begins = true;
  for (char& c : name) {
    if (c == '_' || c == '-') c = ' ';
    if (begins) c = UpperChar(c);
    begins = c == ' ';
  }
  return AsName(name);
}

/// The name of an imported ship in the catalogue; empty where the catalogue has no ship of that model.
std::string ImportedName(const Installation& installation, const std::string& file) {
  for (const ShipRecord& ship : installation.ships) {
    if (ship.Imported && SameName(ModelOf(ship), file)) return AsName(ship.ShipName.Trimmed());
  }
  return {};
}

struct UsedNames {
  std::unordered_set<std::string> names;         ///< in upper case
  std::unordered_map<std::string, int> numbers;  ///< the last number that was added to each name
};

/// The name, with a number after it where another ship has it already.
std::string UniqueName(UsedNames& used, const std::string& wanted) {
  std::string name = wanted;
  int& number = used.numbers[UpperCase(wanted)];  // continues after the last ship of that name
  if (number == 0) number = 1;
  while (!used.names.insert(UpperCase(name)).second) {
    const std::string tail = " " + std::to_string(++number);
    name = Trim(wanted.substr(0, shipNameWidth - tail.size())) + tail;
  }
  return name;
}

void NameShips(Drafting& drafting, const std::vector<StatsMatch>& matches, const std::vector<std::string>& blocks) {
  UsedNames used;
  for (std::size_t i = 0; i < drafting.models.size(); ++i) {
    const FoundModel& model = drafting.models[i];
    ListedShip& ship = drafting.draft.ships[i].ship;
    if (model.ship) {
      ship.name = drafting.draft.ships[*model.ship].ship.name;
      continue;
    }
    std::string name = model.addOn ? ImportedName(drafting.installation, model.file) : std::string();
    if (name.empty() && matches[i].block) name = AsName(blocks[*matches[i].block]);
    if (name.empty()) name = NameFromStem(Stem(model.file));
    if (name.empty()) name = "Ship";
    ship.name = UniqueName(used, name);
  }
}

}  // namespace

ShipListDraft DraftShipList(Host& host, const Installation& installation) {
  Drafting drafting{host, installation, {}, {}, {}};
  const bool complete = Trapped(host, "DraftShipList", false, [&] {
    if (!FindArchiveModels(drafting)) return false;
    FindAddOnModels(drafting);
    PairParts(drafting);
    if (!ReadModels(drafting)) {
      drafting.draft.stopped = true;
      return false;
    }
    std::vector<StatsMatch> matches;
    const std::vector<std::string> blocks = FindStats(drafting, matches);
    NameShips(drafting, matches, blocks);
    return true;
  });
  EndProgress(host);
  if (!complete) drafting.draft.ships.clear();
  return std::move(drafting.draft);
}

std::vector<ListedShip> ShipsOf(const std::vector<DraftedShip>& drafted) {
  std::vector<ListedShip> ships;
  ships.reserve(drafted.size());
  for (const DraftedShip& ship : drafted) ships.push_back(ship.ship);
  return ships;
}

}  // namespace oravin
