#include "actions/build_catalogue.h"

#include <unordered_map>

#include "actions/add_on_ship.h"
#include "actions/add_on_textures.h"
#include "base/text.h"
#include "catalogue/catalogue.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/look_up.h"
#include "files/whole_file.h"

namespace oravin {

namespace {

ShipRecord NewRecord(const ListedShip& line) {
  ShipRecord ship;
  ship.ShipName.Set(line.name);
  ship.ShipFile.Set(line.file);
  ship.ShipKind = Int16Value(line.kind);
  ship.HogOffset = Int32Value(0);
  ship.HogSize = Int32Value(0);
  ship.HogFatPos = Int32Value(0);
  ship.StatsIndex = Int16Value(line.statsIndex);
  ship.Textures[0].Set(line.texture0);
  ship.Textures[1].Set(line.texture1);
  ship.SecondPartIndex = Int16Value(0);
  ship.ChangedToIndex = Int16Value(0);
  return ship;
}

void Locate(ShipRecord& ship, const HogTable& live, const HogTable& backup, std::vector<std::string>& missing) {
  const auto entry = FindModel(ModelOf(ship), live, backup);
  if (!entry) {
    missing.push_back(ModelOf(ship));
    return;
  }
  ship.HogOffset = Int32Value(entry->Offset);
  ship.HogSize = Int32Value(entry->Size);
  ship.HogFatPos = Int32Value(entry->FatPos);
}

/// What the message boxes at the end of the build report.
struct Shortcomings {
  std::vector<std::string> missing;   ///< models that were found nowhere
  std::vector<std::string> cutShort;  ///< models with more textures than a record holds
};

/// How many add-on ships of each name have been prepared, by upper-case trimmed name.
using NameCounts = std::unordered_map<std::string, std::size_t>;

/// Sets the texture names of an add-on ship's record to those of its model.
void TakeTextures(Host& host, const Installation& installation, ShipRecord& ship, Shortcomings& shortcomings) {
  const std::string model = installation.addOnModelPath(ModelOf(ship));
  if (!FileExists(host.files, model)) {
    shortcomings.missing.push_back(ModelOf(ship));
    return;
  }
  const AddOnTextures textures =
      Trapped(host, "GetShpTextureNames", AddOnTextures(), [&] { return TexturesOfModel(host.files, model); });
  SetTextures(ship, textures.names);
  if (textures.tooMany) shortcomings.cutShort.push_back(ModelOf(ship));
}

/// The texture names of an add-on ship's model; none of one that cannot be read.
std::vector<std::string> NamesWithoutBox(Files& files, const std::string& model) {
  try {
    return TexturesOfModel(files, model).names;
  } catch (const FileError&) {
    return {};  // BuildCatalogue shows the box
  }
}

void PrepareAddOn(Host& host, const Installation& installation, ShipRecord& ship, NameCounts& counts,
                  Shortcomings& shortcomings) {
  ship.Imported = true;
  const std::size_t number = counts[UpperCase(ship.ShipName.Trimmed())]++;
  ship.StatsIndex = Int16Value(AddOnStats(host, installation, ship, number));
  TakeTextures(host, installation, ship, shortcomings);
}

Ships RecordsOf(Host& host, const Installation& installation, const std::vector<ListedShip>& list, const HogTable& live,
                const HogTable& backup, Shortcomings& shortcomings) {
  Ships ships;
  NameCounts counts;
  ships.reserve(list.size());
  for (const ListedShip& line : list) {
    ShowProgress(host, "Looking for " + line.file, static_cast<int>(ships.size()), static_cast<int>(list.size()));
    ShipRecord ship = NewRecord(line);
    if (line.kind == importedKind) ship.Imported = true;
    if (IsInert(ship)) {
      // A line without a model: its record only keeps the order of the records.
    } else if (ship.Imported) {
      PrepareAddOn(host, installation, ship, counts, shortcomings);
    } else {
      Locate(ship, live, backup, shortcomings.missing);
    }
    ships.push_back(ship);
  }
  return ships;
}

void InstallAddOns(Host& host, const Installation& installation) {
  for (const ShipRecord& ship : installation.ships) {
    if (IsInert(ship) || !ship.Imported) continue;
    if (!FileExists(host.files, installation.addOnModelPath(ModelOf(ship)))) continue;
    Trap(host, "BuildCatalogue", [&] { InstallAddOnModel(host.files, installation, ship); });
  }
}

void Report(Host& host, const Shortcomings& shortcomings) {
  if (!shortcomings.missing.empty()) {
    Show(host,
         "The models of these ships were found neither in resource.hog nor among the add-ons:" +
             Listed(shortcomings.missing),
         Icon::exclamation);
  }
  if (!shortcomings.cutShort.empty()) {
    Show(host,
         "These models have more than " + std::to_string(texturesPerShip) +
             " textures; only so many can be installed:" + Listed(shortcomings.cutShort),
         Icon::exclamation);
  }
}

}  // namespace

bool CacheHasSlotsFor(Files& files, const Installation& installation, const std::vector<ListedShip>& list) {
  Ships addOns;
  for (const ListedShip& line : list) {
    ShipRecord ship = NewRecord(line);
    ship.Imported = line.kind == importedKind;
    if (IsInert(ship) || !ship.Imported) continue;
    const std::string model = installation.addOnModelPath(ModelOf(ship));
    if (FileExists(files, model)) SetTextures(ship, NamesWithoutBox(files, model));
    addOns.push_back(ship);
  }
  return AddOnTexturesHaveSlots(files, installation, addOns);
}

bool LoadCatalogue(Host& host, Installation& installation) {
  installation.ships.clear();
  return Trap(host, "LoadCatalogue",
              [&] { installation.ships = ReadCatalogue(host.files, installation.cataloguePath()); });
}

bool BuildCatalogue(Host& host, Installation& installation, const std::vector<ListedShip>& list, const HogTable& live,
                    const HogTable& backup) {
  Shortcomings shortcomings;
  const bool written = Trap(host, "BuildCatalogue", [&] {
    WriteCatalogue(host.files, installation.cataloguePath(),
                   RecordsOf(host, installation, list, live, backup, shortcomings));
  });
  EndProgress(host);
  if (!written || !LoadCatalogue(host, installation)) return false;
  InstallAddOns(host, installation);
  Report(host, shortcomings);
  InstallAddOnTextures(host, installation);
  return true;
}

}  // namespace oravin
