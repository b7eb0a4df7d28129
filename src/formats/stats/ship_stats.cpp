#include "stats/ship_stats.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <span>

#include "base/delimited_text.h"
#include "base/file_error.h"
#include "base/text.h"
#include "files/look_up.h"
#include "files/whole_file.h"

namespace oravin {

namespace {

constexpr std::uint64_t longestStatsText = 65536;
constexpr std::uint64_t mostNames = 32768;

std::array<std::uint8_t, statsSize> BytesOfStats(const ShipStats& stats) {
  std::array<std::uint8_t, statsSize> bytes{};
  for (std::size_t i = 0; i < statsCount; ++i) {
    PutLittleEndian32(&bytes.at(4 * i), std::bit_cast<std::uint32_t>(stats.values.at(i)));
  }
  return bytes;
}

std::uint64_t StartOf(int block) { return static_cast<std::uint64_t>(block) * statsBlockSize; }

bool HasBlock(const File& file, int block) { return block >= 0 && StartOf(block) + statsBlockSize <= file.length; }

void RequireBlock(const File& file, int block) {
  if (HasBlock(file, block)) return;
  throw FileError("could not use", file.path, "it has no block " + std::to_string(block), ErrorKind::outside);
}

File OpenStats(Files& files, const std::string& path, OpenFor purpose) {
  const std::string place = Trim(path);
  RequireFile(files, place);
  return {files, place, purpose};
}

/// A whole block: the name, the statistics, and zeros for the rest.
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

/// @param at the file's offset of a block
std::string NameAt(File& file, std::uint64_t at) {
  std::array<std::uint8_t, statsNameWidth> name{};
  Get(file, at, name);
  return NameIn(name);
}

/// @param offset in the block
void PutIntoBlock(Files& files, const std::string& path, int block, std::uint64_t offset,
                  std::span<const std::uint8_t> bytes) {
  File file = OpenStats(files, path, OpenFor::changing);
  RequireBlock(file, block);
  Put(file, StartOf(block) + offset, bytes);
}

/// The first block after the first `stockBlocks` ones that is wanted; -1 when there is none.
template <typename Wanted>
int FindBlock(Files& files, const std::string& path, int stockBlocks, Wanted wanted) {
  File file = OpenStats(files, path, OpenFor::reading);
  const std::uint64_t blocks = file.length / statsBlockSize;
  std::array<std::uint8_t, statsBlockSize> block{};
  for (std::uint64_t i = static_cast<std::uint64_t>(std::max(stockBlocks, 0)); i < blocks; ++i) {
    Get(file, i * statsBlockSize, block);
    if (wanted(block)) return static_cast<int>(i);
  }
  return -1;
}

}  // namespace

ShipStats ReadBlock(File& file, int block) {
  RequireBlock(file, block);
  std::array<std::uint8_t, statsSize> bytes{};
  Get(file, StartOf(block) + statsOffset, bytes);
  ShipStats stats;
  for (std::size_t i = 0; i < statsCount; ++i) {
    stats.values.at(i) = std::bit_cast<float>(LittleEndian32(&bytes.at(4 * i)));
  }
  return stats;
}

ShipStats ReadShipsStats(Files& files, const std::string& path, int block) {
  File file = OpenStats(files, path, OpenFor::reading);
  return ReadBlock(file, block);
}

void WriteShipsStats(Files& files, const std::string& path, int block, const ShipStats& stats) {
  PutIntoBlock(files, path, block, statsOffset, BytesOfStats(stats));
}

ShipStats ReadImportStats(Files& files, const std::string& path) {
  const std::string place = Trim(path);
  RequireFile(files, place);
  const std::string all = TextOf(ReadWhole(files, place, longestStatsText));
  DelimitedText text{place, all};
  ShipStats stats;
  for (const StatsRow& row : statsRows) {
    const double number = TakeNumber(text);
    if (std::fabs(number) > double{std::numeric_limits<float>::max()}) {
      throw FileError("could not read", place, std::string(row.label) + " is too large");
    }
    stats.values.at(row.field) = static_cast<float>(number);
  }
  return stats;
}

int AppendShipBlock(Files& files, const std::string& path, const std::string& shipName, const ShipStats& stats) {
  File file(files, Trim(path), OpenFor::creating);
  const std::uint64_t length = file.length;
  if (length == 0) return 0;
  Put(file, length, BlockOf(shipName, stats));  // one write, so that the file never ends inside this block
  return static_cast<int>(std::nearbyint(static_cast<double>(length) / static_cast<double>(statsBlockSize)));
}

int FindAddedBlock(Files& files, const std::string& path, const std::string& shipName, int stockBlocks,
                   std::size_t number) {
  std::size_t found = 0;
  return FindBlock(files, path, stockBlocks,
                   [&](const auto& block) { return SameName(NameIn(block), shipName) && found++ == number; });
}

int FindFreeBlock(Files& files, const std::string& path, int stockBlocks) {
  return FindBlock(files, path, stockBlocks, [](const auto& block) {
    return std::all_of(block.begin(), block.end(), [](std::uint8_t byte) { return byte == 0; });
  });
}

void PutShipBlock(Files& files, const std::string& path, int block, const std::string& shipName,
                  const ShipStats& stats) {
  PutIntoBlock(files, path, block, 0, BlockOf(shipName, stats));
}

void PutShipBlock(File& file, int block, const std::string& shipName, const ShipStats& stats) {
  const std::uint64_t start = StartOf(block);
  if (file.length < start) SetLength(file, start);
  Put(file, start, BlockOf(shipName, stats));
}

std::string NameOfBlock(Files& files, const std::string& path, int block) {
  if (!FileExists(files, path)) return {};
  File file = OpenStats(files, path, OpenFor::reading);
  return HasBlock(file, block) ? NameAt(file, StartOf(block)) : std::string();
}

std::vector<std::string> BlockNames(Files& files, const std::string& path) {
  File file = OpenStats(files, path, OpenFor::reading);
  const std::uint64_t blocks = std::min(file.length / statsBlockSize, mostNames);
  std::vector<std::string> names(static_cast<std::size_t>(blocks));
  for (std::size_t i = 0; i < names.size(); ++i) names[i] = NameAt(file, i * statsBlockSize);
  return names;
}

void PutBlockName(Files& files, const std::string& path, int block, const std::string& shipName) {
  const Bytes whole = BlockOf(shipName, ShipStats());
  PutIntoBlock(files, path, block, 0, std::span(whole).first(statsNameWidth));
}

void ClearShipBlock(Files& files, const std::string& path, int block) {
  PutIntoBlock(files, path, block, 0, Bytes(statsBlockSize));
}

}  // namespace oravin
