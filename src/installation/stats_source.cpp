#include "installation/stats_source.h"

#include "base/file_error.h"
#include "files/look_up.h"
#include "files/path.h"

namespace oravin {

namespace {

int IndexOf(const ShipRecord& ship) { return IndexIn(ship.StatsIndex); }  // -1 is no block of any file

}  // namespace

StatsSource SourceOf(const Installation& installation, const ShipRecord& ship) {
  const int index = IndexOf(ship);
  const bool defaults = ship.Imported && index != 0;
  return {(defaults ? installation.defaultsPath() : installation.statsPath()), index};
}

std::string StatsTextOf(const Installation& installation, const ShipRecord& ship) {
  return installation.addOnStatsPath(ChangeExtension(ModelOf(ship), ".txt"));
}

ShipStats ReadDefaults(Files& files, const Installation& installation, const ShipRecord& ship) {
  if (!ship.Imported) return ReadShipsStats(files, installation.defaultsPath(), IndexOf(ship));
  const std::string text = StatsTextOf(installation, ship);
  if (IndexOf(ship) == 0) throw FileError("could not use", text, "the ship has no block of its own");
  return ReadImportStats(files, text);
}

std::optional<ShipStats> DefaultsOf(Files& files, const Installation& installation, const ShipRecord& ship) {
  if (ship.Imported && !FileExists(files, StatsTextOf(installation, ship))) return std::nullopt;
  try {
    return ReadDefaults(files, installation, ship);
  } catch (const FileError&) {
    return std::nullopt;
  }
}

const ShipRecord* ShipAt(const Installation& installation, int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= installation.ships.size()) return nullptr;
  const ShipRecord& ship = installation.ships[static_cast<std::size_t>(index)];
  return IsInert(ship) ? nullptr : &ship;
}

}  // namespace oravin
