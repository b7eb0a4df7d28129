#pragma once

#include <optional>
#include <string>

#include "files/files.h"
#include "installation/installation.h"
#include "stats/ship_stats.h"

/// Where a ship's statistics stand: a stock ship's in `shipstats.bin`, an imported ship's in `shipstats.def`.
namespace oravin {

struct StatsSource {
  std::string path;
  int index = 0;  ///< the block in it
};

/// Where the ship's own statistics are shown from and written to. An imported ship without a block of its own (index 0)
/// shares the first block of `shipstats.bin`; writing to the defaults there would change another ship's.
StatsSource SourceOf(const Installation& installation, const ShipRecord& ship);

/// The statistics text of an imported ship.
std::string StatsTextOf(const Installation& installation, const ShipRecord& ship);

/// Reads a ship's default statistics: a stock ship's from `shipstats.def`, an imported ship's from its text.
/// @throws FileError when there are none or they cannot be read
ShipStats ReadDefaults(Files& files, const Installation& installation, const ShipRecord& ship);

/// The same; nothing instead of an error.
std::optional<ShipStats> DefaultsOf(Files& files, const Installation& installation, const ShipRecord& ship);

/// The ship of an index; null when the catalogue has none there or it is inert.
const ShipRecord* ShipAt(const Installation& installation, int index);

}  // namespace oravin
