#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "files/file.h"

/// The ships' flight statistics. `shipstats.bin` and its copy `shipstats.def` are blocks of 352 bytes without a header:
///
///      0   64  the ship's name, padded with zeros
///     64   60  15 single-precision floats, little-endian (ShipStats)
///    124  228  unknown; kept as they are
///
/// A block's index counts from 0. Every failure is a FileError: of the kind `missing` where FileExists says no, of the
/// kind `outside` where the block does not end inside the file. Spaces at the ends of a path do not count.
namespace oravin {

inline constexpr std::uint64_t statsBlockSize = 352;

inline constexpr std::uint64_t statsNameWidth = 64;
inline constexpr std::uint64_t statsOffset = 64;
inline constexpr std::size_t statsCount = 15;
inline constexpr std::uint64_t statsSize = statsCount * 4;

/// The statistics in the order of the file.
struct ShipStats {
  std::array<float, statsCount> values{};

  bool operator==(const ShipStats&) const = default;
};

/// One statistic as it is shown. The shown order differs from the file's: Shield Recharge follows Shield Strength, but
/// in the file Afterburner Fuel.
struct StatsRow {
  const char* label;
  std::size_t field;  ///< index into ShipStats::values
};

/// The 15 statistics in the order in which they are shown, and in which a statistics text lists them.
inline constexpr std::array<StatsRow, statsCount> statsRows = {{{"Max Speed", 0},
                                                                {"Inertia", 1},
                                                                {"Yaw Max", 2},
                                                                {"Yaw Inertia", 3},
                                                                {"Pitch Max", 4},
                                                                {"Pitch Inertia", 5},
                                                                {"Roll Max", 6},
                                                                {"Roll Inertia", 7},
                                                                {"Shield Strength", 8},
                                                                {"Shield Recharge", 11},
                                                                {"Armor Strength", 9},
                                                                {"Afterburner Fuel", 10},
                                                                {"Gun Energy", 12},
                                                                {"Gun Recharge", 13},
                                                                {"Ammo", 14}}};

inline constexpr std::size_t gunEnergyField = 12;
inline constexpr std::size_t gunRechargeField = 13;

/// Reads the statistics of one block.
ShipStats ReadShipsStats(Files& files, const std::string& path, int block);

/// Reads the statistics of one block of a file that is open already, for callers that need many blocks.
ShipStats ReadBlock(File& file, int block);

/// Writes the statistics of one block; its name and its tail stay. The file never grows.
void WriteShipsStats(Files& files, const std::string& path, int block, const ShipStats& stats);

/// Reads a statistics text: 15 numbers in the shown order, separated by commas or line ends.
/// @throws FileError also when the text does not hold 15 single-precision numbers
ShipStats ReadImportStats(Files& files, const std::string& path);

/// Appends a whole block at the end of the file, wherever that is. A missing file is made; a file of no length stays
/// empty. Intentional: only a file that has the game's own blocks gets more.
/// @param shipName cut at 64 characters
/// @return the new block's index: the old length divided by 352, rounded to the nearest, halves to the even one. 0 when
///   nothing was appended
int AppendShipBlock(Files& files, const std::string& path, const std::string& shipName, const ShipStats& stats);

/// The block of a ship's name after the first `stockBlocks` ones; -1 when there is none.
/// @param number which of the blocks of that name, counted from 0
int FindAddedBlock(Files& files, const std::string& path, const std::string& shipName, int stockBlocks,
                   std::size_t number = 0);

/// The first block after the first `stockBlocks` ones that is all zeros, as a removed ship leaves it (ClearShipBlock);
/// -1 when there is none.
int FindFreeBlock(Files& files, const std::string& path, int stockBlocks);

/// Writes a whole block anew, in one go: the name, the statistics, and zeros for the rest.
/// @param shipName cut at 64 characters
void PutShipBlock(Files& files, const std::string& path, int block, const std::string& shipName,
                  const ShipStats& stats);

/// The same in a file that is open, which grows by zeros up to the block where it ends before it.
/// @param block 0 or more
void PutShipBlock(File& file, int block, const std::string& shipName, const ShipStats& stats);

/// The ship's name in a block, trimmed; empty when the file is missing or the block does not end inside it.
std::string NameOfBlock(Files& files, const std::string& path, int block);

/// The names of all blocks, trimmed; at most 32,768, since a record's block index is a 16-bit signed number.
std::vector<std::string> BlockNames(Files& files, const std::string& path);

/// Writes the name of a block, padded with zeros; the rest of the block stays.
/// @param shipName cut at 64 characters
void PutBlockName(Files& files, const std::string& path, int block, const std::string& shipName);

/// Fills a whole block with zeros.
void ClearShipBlock(Files& files, const std::string& path, int block);

}  // namespace oravin
