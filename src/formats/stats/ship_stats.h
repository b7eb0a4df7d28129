#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "catalogue/ship_record.h"
#include "desk/host.h"
#include "files/file.h"

/// The ships' flight statistics. `shipstats.bin` and its copy `shipstats.def` are blocks of 352 bytes without a header:
///
///      0   64  the ship's name, zeros behind it
///     64   60  15 single-precision floats, little-endian (ShipStats)
///    124  228  unknown; kept as they are
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

/// One statistic as it is shown. The shown order differs from the file's: Shield Recharge stands behind Shield
/// Strength, but in the file behind Afterburner Fuel.
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
///
/// A missing file gives the box "Error - file not found" titled "GetShipsStats"; a block that does not end inside the
/// file gives "Error - invalid ship" titled "PutShipsStats", which is meant. Then `stats` stays as it was.
/// @param path trimmed in place
/// @return whether they were read
bool GetShipsStats(Host& host, std::string& path, int shipIndex, ShipStats& stats);

/// Writes the statistics of one block; its name and its tail stay. The file never grows. The two boxes of
/// GetShipsStats, both titled "PutShipsStats".
bool PutShipsStats(Host& host, std::string& path, int shipIndex, const ShipStats& stats);

/// The same as GetShipsStats and PutShipsStats, without boxes.
/// @throws FileError when the file is missing, the block does not end inside it, or it cannot be read or written
ShipStats ReadShipsStats(Files& files, const std::string& path, int shipIndex);
void WriteShipsStats(Files& files, const std::string& path, int shipIndex, const ShipStats& stats);

/// Reads the statistics of one block of a file that is open already, for those who need many blocks.
/// @throws FileError as ReadShipsStats
ShipStats ReadBlock(File& file, int shipIndex);

/// Puts the statistics of every stock ship back from the defaults and then deletes the defaults.
/// Box "Error - Path(s) not found" when either file is missing.
void RestoreShipStats(Host& host, std::string currentPath, std::string defaultsPath, const Ships& ships);

/// The same without a catalogue: puts back every block that both files have.
void RestoreAllBlocks(Host& host, std::string currentPath, std::string defaultsPath);

/// Sets up the statistics of changed ships when the features are enabled: a changed ship's defaults go into the block
/// of the ship that replaces it. Each pair is handled once, from the ship with the higher index. The defaults are kept.
void SetUpShipStats(Host& host, std::string currentPath, std::string defaultsPath, const Ships& ships);

/// Reads a statistics text: 15 numbers in the shown order, separated by commas or line ends. A missing file gives the
/// box "File not found!" titled "GetImportStats" with the critical icon, and `stats` stays as it was.
bool GetImportStats(Host& host, std::string& path, ShipStats& stats);

/// The same without boxes.
/// @throws FileError when the text is missing, cannot be read or does not hold 15 single-precision numbers
ShipStats ReadImportStats(Files& files, const std::string& path);

/// Appends a block with the ship's name and the statistics at the end of the file, wherever that is. A file of no
/// length is left as it is; that is meant.
/// @return the new block's index: the old length divided by 352, rounded to the nearest, halves to the even one. 0 when
///   nothing was appended
int CopyShipStats(Host& host, std::string& path, const ShipRecord& ship, const ShipStats& stats);

/// The block of a ship's name after the first `stockBlocks` ones; -1 when there is none.
/// @param number which of the blocks of that name, counted from 0
int FindAddedBlock(Host& host, const std::string& path, const std::string& shipName, int stockBlocks,
                   std::size_t number = 0);

/// The first block behind the first `stockBlocks` ones that is zero from its begin to its end, as a removed ship leaves
/// it (ClearShipBlock); -1 when there is none.
int FindFreeBlock(Host& host, const std::string& path, int stockBlocks);

/// Writes a whole block anew, in one go: the name, the statistics, and zeros behind both.
/// @param shipName cut at 64 characters
/// @throws FileError as WriteShipsStats
void PutShipBlock(Files& files, const std::string& path, int shipIndex, const std::string& shipName,
                  const ShipStats& stats);

/// The same in a file that is open, which grows by zeros up to the block where it ends before it.
/// @param shipIndex 0 or more
/// @throws FileError when the file cannot be written
void PutShipBlock(File& file, int shipIndex, const std::string& shipName, const ShipStats& stats);

/// The ship's name that a block bears, without blanks at its ends; empty when the file is missing or the block does not
/// end inside it.
/// @throws FileError when the file cannot be read
std::string NameOfBlock(Files& files, const std::string& path, int shipIndex);

/// Writes the name of a block, zeros behind it; the rest of the block stays.
/// @param shipName cut at 64 characters
/// @throws FileError as WriteShipsStats
void PutBlockName(Files& files, const std::string& path, int shipIndex, const std::string& shipName);

/// Fills a whole block with zeros.
/// @throws FileError as WriteShipsStats
void ClearShipBlock(Files& files, const std::string& path, int shipIndex);

/// Copies `shipstats.bin` to `shipstats.def` where the latter is missing. Without the former the box "Can't find
/// shipstats.bin".
void BackupShipStats(Host& host, const std::string& current, const std::string& defaults);

}  // namespace oravin
