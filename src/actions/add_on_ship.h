#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <vector>

#include "desk/host.h"
#include "installation/installation.h"
#include "stats/ship_stats.h"

/// Add-on ships: models in `addons\ships\` of the program folder, statistics texts in `addons\stats\`.
namespace oravin {

/// Gives an add-on ship its block of statistics after the stock ones of `shipstats.def`. Add-on records of one name, as
/// the parts of a ship are, have the blocks of that name in their order, so that none writes over another's. The
/// record's block is written anew in place where it is there; else the first block that a removed ship has left empty
/// becomes this ship's, else one is appended.
/// @param number which of the add-on records of its name the record is, in the catalogue's order from 0
/// @return the block's index; 0 where `shipstats.def` is missing or empty, which then stays so; nothing when it could
///   not be written, after a box
std::optional<int> GiveBlock(Host& host, const Installation& installation, const ShipRecord& ship,
                             const ShipStats& stats, std::size_t number);

/// The same with the statistics of its text among the add-ons, else with those of the first block of `shipstats.bin`.
/// @return the block's index; 0 when it has none
int AddOnStats(Host& host, const Installation& installation, const ShipRecord& ship, std::size_t number);

/// Writes the blocks of the imported ships into defaults that were lost and are being made anew, each at its record's
/// StatsIndex, so that the catalogue stays valid. The statistics are those of AddOnStats. A record that names one of
/// the game's own blocks has none of its own.
/// @param file the new file with the stock blocks in it
/// @throws FileError when it cannot be written
void PutAddOnBlocks(Host& host, const Installation& installation, File& file);

/// The blocks of `shipstats.def` that belong to some imported ships and to no other ones: they follow the stock blocks
/// and have the name of the ship whose record leads to them.
/// @param indices of the ships in the catalogue
/// @throws FileError when the file cannot be read
std::set<int> OwnBlocks(Files& files, const Installation& installation, const std::vector<std::size_t>& indices);

/// Copies an add-on ship's model into the game's ships folder.
/// @throws FileError when a file fails
void InstallAddOnModel(Files& files, const Installation& installation, const ShipRecord& ship);

}  // namespace oravin
