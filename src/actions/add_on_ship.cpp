#include "actions/add_on_ship.h"

#include "base/text.h"
#include "desk/error_trap.h"
#include "files/look_up.h"
#include "files/path.h"
#include "files/whole_file.h"
#include "installation/stats_source.h"
#include "stats/ship_stats.h"

namespace oravin {

namespace {

constexpr std::int64_t mostBlocks = 32767;  // a record's index is a 16-bit signed number

/// The number of the game's own blocks: only the defaults get blocks of imported ships.
std::uint64_t StockBlocks(Files& files, const Installation& installation) {
  return FileLength(files, installation.statsPath()) / statsBlockSize;
}

/// The statistics of an add-on ship's text, else those of the first block of `shipstats.bin`.
ShipStats StatsFor(Host& host, const Installation& installation, const ShipRecord& ship) {
  const std::string text = StatsTextOf(installation, ship);
  ShipStats stats;
  const bool read =
      FileExists(host.files, text) && Trap(host, "GetImportStats", [&] { stats = ReadImportStats(host.files, text); });
  if (!read) Trap(host, "GetShipsStats", [&] { stats = ReadShipsStats(host.files, installation.statsPath(), 0); });
  return stats;
}

}  // namespace

std::optional<int> GiveBlock(Host& host, const Installation& installation, const ShipRecord& ship,
                             const ShipStats& stats, std::size_t number) {
  const std::string defaults = installation.defaultsPath();
  const int stockBlocks = static_cast<int>(StockBlocks(host.files, installation));
  const std::string name = ship.ShipName.Trimmed();
  const int known = Trapped(host, "CopyShipStats", -1,
                            [&] { return FindAddedBlock(host.files, defaults, name, stockBlocks, number); });
  // Defaults that are missing must not be started by an imported ship: start-up would never make them from the game's.
  if (known < 0 && !FileExists(host.files, defaults)) return 0;
  if (known >= 0) {
    const bool put = Trap(host, "PutShipsStats", [&] { WriteShipsStats(host.files, defaults, known, stats); });
    return put ? std::optional(known) : std::nullopt;
  }
  const int free = Trapped(host, "CopyShipStats", -1, [&] { return FindFreeBlock(host.files, defaults, stockBlocks); });
  const bool empty = FileLength(host.files, defaults) == 0;  // such a file is never added to
  const std::optional<int> failed = empty ? std::optional(0) : std::nullopt;
  return Trapped(host, "CopyShipStats", failed, [&]() -> std::optional<int> {
    if (free >= 0) {
      PutShipBlock(host.files, defaults, free, name, stats);
      return free;
    }
    const int added = AppendShipBlock(host.files, defaults, name, stats);
    return added > 0 ? added : failed;
  });
}

int AddOnStats(Host& host, const Installation& installation, const ShipRecord& ship, std::size_t number) {
  return GiveBlock(host, installation, ship, StatsFor(host, installation, ship), number).value_or(0);
}

void PutAddOnBlocks(Host& host, const Installation& installation, File& file) {
  const auto stockBlocks = static_cast<std::int64_t>(StockBlocks(host.files, installation));
  for (const ShipRecord& ship : installation.ships) {
    const std::int64_t block = WholeNumber(ship.StatsIndex);
    if (IsInert(ship) || !ship.Imported || block < stockBlocks || block > mostBlocks) continue;
    PutShipBlock(file, static_cast<int>(block), ship.ShipName.Trimmed(), StatsFor(host, installation, ship));
  }
}

std::set<int> OwnBlocks(Files& files, const Installation& installation, const std::vector<std::size_t>& indices) {
  const Ships& ships = installation.ships;
  const std::uint64_t stockBlocks = StockBlocks(files, installation);
  if (stockBlocks == 0) return {};  // then nobody can tell which blocks are the game's
  const std::set<std::size_t> own(indices.begin(), indices.end());
  std::set<std::int64_t> others;
  for (std::size_t i = 0; i < ships.size(); ++i) {
    if (!IsInert(ships[i]) && ships[i].Imported && !own.contains(i)) others.insert(WholeNumber(ships[i].StatsIndex));
  }
  std::set<int> blocks;
  for (const std::size_t i : own) {
    const std::int64_t block = WholeNumber(ships[i].StatsIndex);
    if (block < static_cast<std::int64_t>(stockBlocks) || block > mostBlocks || others.contains(block)) continue;
    const std::string name = NameOfBlock(files, installation.defaultsPath(), static_cast<int>(block));
    if (SameName(name, ships[i].ShipName.Trimmed())) blocks.insert(static_cast<int>(block));
  }
  return blocks;
}

void InstallAddOnModel(Files& files, const Installation& installation, const ShipRecord& ship) {
  const std::string model = ModelOf(ship);
  CopyWhole(files, installation.addOnModelPath(model), installation.modelPath(model));
}

}  // namespace oravin
