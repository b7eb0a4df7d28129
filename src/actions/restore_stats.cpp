#include "actions/restore_stats.h"

#include <algorithm>
#include <functional>

#include "desk/error_trap.h"
#include "files/look_up.h"
#include "files/whole_file.h"
#include "installation/stats_source.h"
#include "stats/ship_stats.h"

namespace oravin {

namespace {

/// Reads statistics and writes them, each step under its own procedure's name.
std::optional<StatsFailure> Copy(const char* reader, const std::function<ShipStats()>& read,
                                 const std::function<void(const ShipStats&)>& write) {
  bool reading = true;
  try {
    const ShipStats stats = read();
    reading = false;
    write(stats);
    return std::nullopt;
  } catch (const FileError& error) {
    return StatsFailure{reading ? reader : "PutShipsStats", reading, error};
  }
}

bool BothThere(Host& host, const Installation& installation) {
  return Trap(host, "RestoreShipStats", [&] {
    RequireFile(host.files, installation.statsPath());
    RequireFile(host.files, installation.defaultsPath());
  });
}

/// Copies one block from the defaults; shows a failure.
/// @return false when a file failed although both have the block: then the defaults are still needed
bool Restored(Host& host, const Installation& installation, int block) {
  const auto failure = CopyDefaultBlock(host.files, installation, block, block);
  if (!failure) return true;
  ShowTrapped(host, failure->procedure, failure->error);
  return failure->error.kind == ErrorKind::outside;
}

void EraseDefaults(Host& host, const Installation& installation) {
  Trap(host, "RestoreShipStats", [&] {
    const std::string defaults = installation.defaultsPath();
    if (FileExists(host.files, defaults)) EraseFile(host.files, defaults);
  });
}

}  // namespace

std::optional<StatsFailure> CopyDefaultBlock(Files& files, const Installation& installation, int from, int to) {
  return Copy(
      "GetShipsStats", [&] { return ReadShipsStats(files, installation.defaultsPath(), from); },
      [&](const ShipStats& stats) { WriteShipsStats(files, installation.statsPath(), to, stats); });
}

std::optional<StatsFailure> RestoreDefault(Files& files, const Installation& installation, const ShipRecord& ship) {
  const StatsSource source = SourceOf(installation, ship);
  return Copy(
      ship.Imported ? "GetImportStats" : "GetShipsStats", [&] { return ReadDefaults(files, installation, ship); },
      [&](const ShipStats& stats) { WriteShipsStats(files, source.path, source.index, stats); });
}

bool HasNoDefault(Files& files, const Installation& installation, const ShipRecord& ship) {
  return ship.Imported && (WholeNumber(ship.StatsIndex) == 0 || !FileExists(files, StatsTextOf(installation, ship)));
}

void RestoreBlock(Host& host, const Installation& installation, int block) { Restored(host, installation, block); }

void RestoreShipStats(Host& host, const Installation& installation) {
  if (!BothThere(host, installation)) return;
  bool needed = false;
  for (const ShipRecord& ship : installation.ships) {
    if (IsStock(ship)) needed = !Restored(host, installation, IndexIn(ship.StatsIndex)) || needed;
  }
  if (!needed) EraseDefaults(host, installation);
}

void RestoreAllBlocks(Host& host, const Installation& installation) {
  if (!BothThere(host, installation)) return;
  const std::uint64_t shorter =
      std::min(FileLength(host.files, installation.statsPath()), FileLength(host.files, installation.defaultsPath()));
  const int blocks = static_cast<int>(std::min<std::uint64_t>(shorter / statsBlockSize, highestIndex));
  for (int i = 0; i < blocks; ++i) {
    if (!Restored(host, installation, i)) return;
  }
  EraseDefaults(host, installation);
}

void SetUpShipStats(Host& host, const Installation& installation) {
  if (!BothThere(host, installation)) return;
  const Ships& ships = installation.ships;
  for (std::size_t i = 0; i < ships.size(); ++i) {
    const std::int64_t partner = WholeNumber(ships[i].ChangedToIndex);
    if (IsInert(ships[i]) || !ships[i].Changed || partner < 0 || static_cast<std::int64_t>(i) <= partner) continue;
    const int to = IndexIn(ships[static_cast<std::size_t>(partner)].StatsIndex);
    const auto failure = CopyDefaultBlock(host.files, installation, IndexIn(ships[i].StatsIndex), to);
    if (failure) ShowTrapped(host, failure->procedure, failure->error);
  }
}

void BackupShipStats(Host& host, const Installation& installation) {
  const std::string defaults = installation.defaultsPath();
  Trap(host, "BackupShipStats", [&] {
    RequireFile(host.files, installation.statsPath());
    if (!FileExists(host.files, defaults)) CopyWhole(host.files, installation.statsPath(), defaults);
  });
}

}  // namespace oravin
