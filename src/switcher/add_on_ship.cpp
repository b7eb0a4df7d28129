#include "switcher/add_on_ship.h"

#include "desk/error_trap.h"
#include "ships/shipstats.h"
#include "util/File_Path.h"
#include "util/whole_file.h"

namespace oravin {

std::optional<int> GiveBlock(Host& host, const Installation& installation, const ShipRecord& ship,
                             const ShipStats& stats) {
  std::string defaults = installation.GamePath + "shipstats.def";
  // Only the defaults get blocks of imported ships, so whatever lies behind the current file's length is one.
  const int stockBlocks = static_cast<int>(FileLength(installation.GamePath + "shipstats.bin") / statsBlockSize);
  const std::string name = ship.ShipName.Trimmed();
  const int known = FindAddedBlock(host, defaults, name, stockBlocks);
  // Defaults that are missing must not be begun by an imported ship: start-up would never make them from the game's.
  if (known < 0 && !FileExists(std::string(defaults))) return 0;
  if (known >= 0) return PutShipsStats(host, defaults, known, stats) ? std::optional(known) : std::nullopt;
  const int free = FindFreeBlock(host, defaults, stockBlocks);
  if (free < 0) {
    const bool empty = FileLength(defaults) == 0;  // such a file is never added to
    const int added = CopyShipStats(host, defaults, ship, stats);
    return added > 0 || empty ? std::optional(added) : std::nullopt;
  }
  const bool put = Trap(host, "CopyShipStats", [&] { PutShipBlock(host.files, defaults, free, name, stats); });
  return put ? std::optional(free) : std::nullopt;
}

int AddOnStats(Host& host, const Installation& installation, const ShipRecord& ship) {
  std::string text = installation.ProgramPath + addOnStatsFolder + ChangeExtension(ModelOf(ship), ".txt");
  std::string current = installation.GamePath + "shipstats.bin";
  ShipStats stats;
  if (!FileExists(text) || !GetImportStats(host, text, stats)) GetShipsStats(host, current, 0, stats);
  return GiveBlock(host, installation, ship, stats).value_or(0);
}

void InstallAddOnModel(Files& files, const Installation& installation, const ShipRecord& ship) {
  const std::string model = ModelOf(ship);
  CopyWhole(files, installation.ProgramPath + addOnShipsFolder + model, installation.GamePath + "ships\\" + model);
}

}  // namespace oravin
