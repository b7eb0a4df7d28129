#include "actions/import_source.h"

#include <algorithm>
#include <set>
#include <utility>

#include "base/text.h"
#include "desk/error_trap.h"
#include "files/look_up.h"
#include "files/path.h"
#include "lists/ship_list.h"
#include "models/class_byte.h"

namespace oravin {

namespace {

/// Comparison key of a name: trimmed, upper case.
std::string NameKey(const std::string& name) { return UpperCase(Trim(name)); }

std::optional<OfferedShip> ShipOfModel(Host& host, const std::string& path) {
  OfferedShip offered;
  offered.capital = Trapped(host, "IsCapitalShip", false, [&] { return IsCapitalShip(host.files, path); });
  offered.modelFound = FileExists(host.files, path);
  if (!offered.modelFound) return std::nullopt;
  const std::string file = FileNameOf(path);
  offered.ship.modelPath = path;
  offered.ship.shipName = file.substr(0, file.size() - std::min<std::size_t>(file.size(), 4));
  return offered;
}

std::optional<std::vector<OfferedShip>> ShipsOfPack(Host& host, const std::string& path, const std::string& folder) {
  ShipPack pack;
  if (!Trap(host, "GetPAK", [&] { pack = ReadShipPack(host.files, path, folder); })) return std::nullopt;
  std::vector<OfferedShip> ships;
  for (PackShip& ship : pack.ships) {
    const bool found = FileExists(host.files, ship.modelPath);
    // Only for models that are there: a box for each of many missing models would help nobody.
    const bool capital = found && IsCapitalShip(host.files, ship.modelPath);
    ships.push_back({.ship = std::move(ship), .capital = capital, .modelFound = found, .given = {}});
  }
  return ships;
}

}  // namespace

std::optional<ImportSource> LoadImportSource(Host& host, const std::string& path) {
  const std::string chosen = Trim(path);
  ImportSource source{ParentFolder(chosen), {}};
  if (ExtensionOf(chosen) == "shp") {
    auto ship = ShipOfModel(host, chosen);
    if (!ship) return std::nullopt;
    source.ships.push_back(std::move(*ship));
  } else {
    auto ships = ShipsOfPack(host, chosen, source.folder);
    if (!ships) return std::nullopt;
    source.ships = std::move(*ships);
  }
  return source;
}

void MarkTakenNames(const Ships& catalogue, std::vector<OfferedShip>& ships) {
  std::set<std::string> taken;
  for (const ShipRecord& ship : catalogue) {
    if (!IsInert(ship)) taken.insert(NameKey(ship.ShipName.Trimmed()));
  }
  for (OfferedShip& offered : ships) {
    const std::string name = NameKey(offered.ship.shipName);
    offered.nameTaken = taken.contains(name);
    if (offered.checked) taken.insert(name);
  }
}

bool AnyNameTaken(const std::vector<OfferedShip>& ships) {
  return std::any_of(ships.begin(), ships.end(),
                     [](const OfferedShip& offered) { return offered.checked && offered.nameTaken; });
}

std::vector<OfferedShip> CheckedShips(const std::vector<OfferedShip>& ships) {
  std::vector<OfferedShip> checked;
  for (const OfferedShip& offered : ships) {
    if (!offered.checked) continue;
    checked.push_back(offered);
    checked.back().ship.shipName = Trim(offered.ship.shipName);
  }
  return checked;
}

std::string WhyNameRefused(const Ships& ships, const std::string& name) {
  std::string why = WhyNoShipName(name);
  if (why.empty() && FindShip(ships, name) >= 0) {
    why = "The ship name '" + name + "' has the same name as an existing ship.";
  }
  return why;
}

}  // namespace oravin
