#include "stats/ship_stats.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <span>

#include "base/delimited_text.h"
#include "base/file_error.h"
#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/file.h"
#include "files/look_up.h"
#include "files/whole_file.h"

namespace oravin {

namespace {

constexpr std::uint64_t longestStatsText = 65536;

std::array<std::uint8_t, statsSize> BytesOfStats(const ShipStats& stats) {
  std::array<std::uint8_t, statsSize> bytes{};
  for (std::size_t i = 0; i < statsCount; ++i) {
    PutLittleEndian32(&bytes.at(4 * i), std::bit_cast<std::uint32_t>(stats.values.at(i)));
  }
  return bytes;
}

bool BlockInside(std::uint64_t fileLength, int shipIndex) {
  return shipIndex >= 0 && (static_cast<std::uint64_t>(shipIndex) + 1) * statsBlockSize <= fileLength;
}

std::uint64_t StatsAt(int shipIndex) { return static_cast<std::uint64_t>(shipIndex) * statsBlockSize + statsOffset; }

/// A whole block: the name, the statistics, and zeros behind both.
Bytes BlockOf(const std::string& shipName, const ShipStats& stats) {
  Bytes block(statsBlockSize);
  std::copy_n(shipName.begin(), std::min<std::size_t>(shipName.size(), statsNameWidth), block.begin());
  const auto bytes = BytesOfStats(stats);
  std::copy(bytes.begin(), bytes.end(), block.begin() + static_cast<std::ptrdiff_t>(statsOffset));
  return block;
}

std::string NameIn(std::span<const std::uint8_t> block) {
  const std::string text = TextOf(block.first(statsNameWidth));
  return Trim(text.substr(0, text.find('\0')));
}

/// Writes bytes into a block, at its begin and further.
void PutIntoBlock(Files& files, const std::string& path, int shipIndex, std::uint64_t offset,
                  std::span<const std::uint8_t> bytes) {
  File file(files, path, OpenFor::changing);
  if (!BlockInside(file.length, shipIndex)) {
    throw FileError("could not use", path, "it has no block " + std::to_string(shipIndex));
  }
  Put(file, static_cast<std::uint64_t>(shipIndex) * statsBlockSize + offset, bytes);
}

/// The first block behind the first `stockBlocks` ones that is wanted; -1 when there is none.
template <typename Wanted>
int FindBlock(Host& host, const std::string& path, int stockBlocks, Wanted wanted) {
  return Trapped(host, "CopyShipStats", -1, [&] {
    File file(host.files, path, OpenFor::reading);
    const std::uint64_t blocks = file.length / statsBlockSize;
    std::array<std::uint8_t, statsBlockSize> block{};
    for (std::uint64_t i = static_cast<std::uint64_t>(std::max(stockBlocks, 0)); i < blocks; ++i) {
      Get(file, i * statsBlockSize, block);
      if (wanted(block)) return static_cast<int>(i);
    }
    return -1;
  });
}

/// The two checks that reading and writing begin with.
bool BlockThere(Host& host, std::string& path, int shipIndex, const std::string& titleWhenMissing) {
  TrimInPlace(path);
  if (!FileExists(host.files, path)) {
    Show(host, "Error - file not found", Icon::exclamation, titleWhenMissing);
    return false;
  }
  if (BlockInside(FileLength(host.files, path), shipIndex)) return true;
  Show(host, "Error - invalid ship", Icon::exclamation, "PutShipsStats");
  return false;
}

bool BothThere(Host& host, std::string& current, std::string& defaults) {
  TrimInPlace(current);
  TrimInPlace(defaults);
  const bool both = FileExists(host.files, current) && FileExists(host.files, defaults);
  if (!both) Show(host, "Error - Path(s) not found", Icon::exclamation, "RestoreShipStats");
  return both;
}

/// Copies one block's statistics from the defaults. False when a file failed although the block is there: then the
/// defaults are still needed.
bool RestoreBlock(Host& host, std::string& current, std::string& defaults, int index) {
  const bool there =
      BlockInside(FileLength(host.files, current), index) && BlockInside(FileLength(host.files, defaults), index);
  ShipStats stats;
  const bool done = GetShipsStats(host, defaults, index, stats) && PutShipsStats(host, current, index, stats);
  return done || !there;
}

void EraseDefaults(Host& host, std::string& defaults) {
  Trap(host, "RestoreShipStats", [&] {
    if (FileExists(host.files, defaults)) EraseFile(host.files, defaults);
  });
}

}  // namespace

ShipStats ReadBlock(File& file, int shipIndex) {
  if (!BlockInside(file.length, shipIndex)) {
    throw FileError("could not use", file.path, "it has no block " + std::to_string(shipIndex));
  }
  std::array<std::uint8_t, statsSize> bytes{};
  Get(file, StatsAt(shipIndex), bytes);
  ShipStats stats;
  for (std::size_t i = 0; i < statsCount; ++i) {
    stats.values.at(i) = std::bit_cast<float>(LittleEndian32(&bytes.at(4 * i)));
  }
  return stats;
}

ShipStats ReadShipsStats(Files& files, const std::string& path, int shipIndex) {
  File file(files, path, OpenFor::reading);
  return ReadBlock(file, shipIndex);
}

void WriteShipsStats(Files& files, const std::string& path, int shipIndex, const ShipStats& stats) {
  PutIntoBlock(files, path, shipIndex, statsOffset, BytesOfStats(stats));
}

void PutShipBlock(Files& files, const std::string& path, int shipIndex, const std::string& shipName,
                  const ShipStats& stats) {
  PutIntoBlock(files, path, shipIndex, 0, BlockOf(shipName, stats));
}

void PutShipBlock(File& file, int shipIndex, const std::string& shipName, const ShipStats& stats) {
  const std::uint64_t begin = static_cast<std::uint64_t>(shipIndex) * statsBlockSize;
  if (file.length < begin) SetLength(file, begin);
  Put(file, begin, BlockOf(shipName, stats));
}

void PutBlockName(Files& files, const std::string& path, int shipIndex, const std::string& shipName) {
  const Bytes block = BlockOf(shipName, ShipStats());
  PutIntoBlock(files, path, shipIndex, 0, std::span(block).first(statsNameWidth));
}

void ClearShipBlock(Files& files, const std::string& path, int shipIndex) {
  PutIntoBlock(files, path, shipIndex, 0, Bytes(statsBlockSize));
}

std::string NameOfBlock(Files& files, const std::string& path, int shipIndex) {
  if (!FileExists(files, path)) return {};
  File file(files, path, OpenFor::reading);
  if (!BlockInside(file.length, shipIndex)) return {};
  std::array<std::uint8_t, statsNameWidth> name{};
  Get(file, static_cast<std::uint64_t>(shipIndex) * statsBlockSize, name);
  return NameIn(name);
}

bool GetShipsStats(Host& host, std::string& path, int shipIndex, ShipStats& stats) {
  if (!BlockThere(host, path, shipIndex, "GetShipsStats")) return false;
  return Trap(host, "GetShipsStats", [&] { stats = ReadShipsStats(host.files, path, shipIndex); });
}

bool PutShipsStats(Host& host, std::string& path, int shipIndex, const ShipStats& stats) {
  if (!BlockThere(host, path, shipIndex, "PutShipsStats")) return false;
  return Trap(host, "PutShipsStats", [&] { WriteShipsStats(host.files, path, shipIndex, stats); });
}

void RestoreShipStats(Host& host, std::string currentPath, std::string defaultsPath, const Ships& ships) {
  if (!BothThere(host, currentPath, defaultsPath)) return;
  bool kept = false;
  for (const ShipRecord& ship : ships) {
    if (IsStock(ship)) kept = !RestoreBlock(host, currentPath, defaultsPath, IndexIn(ship.StatsIndex)) || kept;
  }
  if (!kept) EraseDefaults(host, defaultsPath);
}

void RestoreAllBlocks(Host& host, std::string currentPath, std::string defaultsPath) {
  if (!BothThere(host, currentPath, defaultsPath)) return;
  const std::uint64_t shorter = std::min(FileLength(host.files, currentPath), FileLength(host.files, defaultsPath));
  const int blocks = static_cast<int>(std::min<std::uint64_t>(shorter / statsBlockSize, highestIndex));
  for (int i = 0; i < blocks; ++i) {
    if (!RestoreBlock(host, currentPath, defaultsPath, i)) return;
  }
  EraseDefaults(host, defaultsPath);
}

void SetUpShipStats(Host& host, std::string currentPath, std::string defaultsPath, const Ships& ships) {
  if (!BothThere(host, currentPath, defaultsPath)) return;
  for (std::size_t i = 0; i < ships.size(); ++i) {
    const std::int64_t partner = WholeNumber(ships[i].ChangedToIndex);
    if (IsInert(ships[i]) || !ships[i].Changed || partner < 0 || static_cast<std::int64_t>(i) <= partner) continue;
    ShipStats stats;
    if (!GetShipsStats(host, defaultsPath, IndexIn(ships[i].StatsIndex), stats)) continue;
    PutShipsStats(host, currentPath, IndexIn(ships[static_cast<std::size_t>(partner)].StatsIndex), stats);
  }
}

ShipStats ReadImportStats(Files& files, const std::string& path) {
  const std::string all = TextOf(ReadWhole(files, path, longestStatsText));
  DelimitedText text{path, all};
  ShipStats stats;
  for (const StatsRow& row : statsRows) {
    const double number = TakeNumber(text);
    if (std::fabs(number) > double{std::numeric_limits<float>::max()}) {
      throw FileError("could not read", path, std::string(row.label) + " is too large");
    }
    stats.values.at(row.field) = static_cast<float>(number);
  }
  return stats;
}

bool GetImportStats(Host& host, std::string& path, ShipStats& stats) {
  TrimInPlace(path);
  return Trap(host, "GetImportStats", [&] {
    RequireFile(host.files, path);
    stats = ReadImportStats(host.files, path);
  });
}

int CopyShipStats(Host& host, std::string& path, const ShipRecord& ship, const ShipStats& stats) {
  TrimInPlace(path);
  return Trapped(host, "CopyShipStats", 0, [&] {
    File file(host.files, path, OpenFor::creating);
    const std::uint64_t length = file.length;
    if (length == 0) return 0;
    // One write, so that the file never ends inside a block that this procedure began.
    Put(file, length, BlockOf(ship.ShipName.Trimmed(), stats));
    return static_cast<int>(std::nearbyint(static_cast<double>(length) / static_cast<double>(statsBlockSize)));
  });
}

int FindAddedBlock(Host& host, const std::string& path, const std::string& shipName, int stockBlocks,
                   std::size_t number) {
  std::size_t found = 0;
  return FindBlock(host, path, stockBlocks,
                   [&](const auto& block) { return SameName(NameIn(block), shipName) && found++ == number; });
}

int FindFreeBlock(Host& host, const std::string& path, int stockBlocks) {
  return FindBlock(host, path, stockBlocks, [](const auto& block) {
    return std::all_of(block.begin(), block.end(), [](std::uint8_t byte) { return byte == 0; });
  });
}

void BackupShipStats(Host& host, const std::string& current, const std::string& defaults) {
  if (!FileExists(host.files, current)) {
    Show(host, "Can't find shipstats.bin", Icon::exclamation);
    return;
  }
  if (FileExists(host.files, defaults)) return;
  Trap(host, "BackupShipStats", [&] { CopyWhole(host.files, current, defaults); });
}

}  // namespace oravin
