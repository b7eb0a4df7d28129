#include "actions/learn_loadout.h"

#include <algorithm>
#include <map>
#include <vector>

#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/file.h"
#include "files/look_up.h"
#include "files/whole_file.h"
#include "textures/cache_table.h"

namespace oravin {

namespace {

constexpr std::uint64_t learnBlock = 65536;

struct Pair {
  TcacheEntry texture;
  TcacheEntry companion;
};

/// How often each index became each other one, level by level.
using Counts = std::vector<std::uint32_t>;

std::size_t CellOf(std::size_t level, std::size_t index) { return level * coloursPerLevel + index; }

bool AreAlike(const TcacheEntry& a, const TcacheEntry& b) {
  return a.pixelFormat == paletteFormat && b.pixelFormat == paletteFormat && a.width == b.width &&
         a.height == b.height && a.imageCount == b.imageCount;
}

std::vector<Pair> PairsIn(const TcacheBytes& cache) {
  std::map<std::string, TcacheEntry> byName;
  std::vector<TcacheEntry> entries;
  for (int slot = 0; slot < std::min(SlotsIn(cache), factoryTextures); ++slot) {
    entries.push_back(EntryOf(cache, slot));
    byName.emplace(UpperCase(Trim(entries.back().name)), entries.back());
  }
  std::vector<Pair> pairs;
  for (const TcacheEntry& texture : entries) {
    const auto companion = byName.find("G" + UpperCase(Trim(texture.name)));
    if (companion == byName.end() || !AreAlike(texture, companion->second)) continue;
    if (!DataLiesIn(texture, cache.length) || !DataLiesIn(companion->second, cache.length)) continue;
    pairs.push_back({texture, companion->second});
  }
  return pairs;
}

void CountPair(File& cache, const Pair& pair, Counts& counts) {
  const std::uint64_t size = DataSizeOf(pair.texture).value_or(0);
  Bytes from;
  Bytes to;
  for (std::uint64_t at = 0; at < size; at += learnBlock) {
    from.resize(static_cast<std::size_t>(std::min(learnBlock, size - at)));
    to.resize(from.size());
    Get(cache, static_cast<std::uint64_t>(pair.texture.dataOffset) + at, from);
    Get(cache, static_cast<std::uint64_t>(pair.companion.dataOffset) + at, to);
    for (std::size_t i = 0; i < from.size(); ++i) {
      const std::size_t level = LevelAt(static_cast<std::size_t>(at) + i);
      ++counts[CellOf(level, from[i]) * coloursPerLevel + to[i]];
    }
  }
}

LearnedCell BestOf(const Counts& counts, std::size_t cell) {
  const auto begin = counts.begin() + static_cast<std::ptrdiff_t>(cell * coloursPerLevel);
  const auto best = std::max_element(begin, begin + coloursPerLevel);
  LearnedCell learned;
  learned.value = static_cast<std::uint8_t>(best - begin);
  learned.agreed = *best;
  for (auto count = begin; count != begin + coloursPerLevel; ++count) learned.seen += *count;
  return learned;
}

/// The value of the nearest level at which the index was seen.
std::uint8_t FilledValue(const LearnedLoadout& learned, std::size_t level, std::size_t index) {
  for (std::size_t distance = 1; distance < loadoutLevels; ++distance) {
    if (level >= distance) {
      const LearnedCell& larger = learned.cells.at(CellOf(level - distance, index));
      if (larger.seen > 0) return larger.value;
    }
    if (level + distance < loadoutLevels) {
      const LearnedCell& smaller = learned.cells.at(CellOf(level + distance, index));
      if (smaller.seen > 0) return smaller.value;
    }
  }
  return static_cast<std::uint8_t>(index);
}

}  // namespace

LearnedLoadout LearnLoadout(Files& files, const std::string& cachePath) {
  File file(files, cachePath, OpenFor::reading);
  const TcacheBytes cache = ReadTcache(file);
  Counts counts(loadoutLevels * coloursPerLevel * coloursPerLevel);
  LearnedLoadout learned;
  for (const Pair& pair : PairsIn(cache)) {
    CountPair(file, pair, counts);
    ++learned.pairs;
  }
  for (std::size_t cell = 0; cell < learned.cells.size(); ++cell) {
    learned.cells.at(cell) = BestOf(counts, cell);
    if (learned.cells.at(cell).seen > 0) ++learned.seenCells;
  }
  for (std::size_t level = 0; level < loadoutLevels; ++level) {
    for (std::size_t index = 0; index < coloursPerLevel; ++index) {
      LearnedCell& cell = learned.cells.at(CellOf(level, index));
      if (cell.seen == 0) cell.value = FilledValue(learned, level, index);
    }
  }
  return learned;
}

LoadoutMaps MapsOf(const LearnedLoadout& learned) {
  LoadoutMaps maps{};
  for (std::size_t cell = 0; cell < maps.size(); ++cell) maps.at(cell) = learned.cells.at(cell).value;
  return maps;
}

std::optional<LoadoutMaps> FindLoadoutMaps(Files& files, const Installation& installation) {
  const std::string mapsPath = installation.loadoutMapsPath();
  if (FileExists(files, mapsPath)) return ReadLoadoutMaps(files, mapsPath);
  const LearnedLoadout learned = LearnLoadout(files, installation.cachePath());
  if (learned.seenCells == 0) return std::nullopt;
  return MapsOf(learned);
}

std::optional<LoadoutMaps> ProvideLoadoutMaps(Host& host, const Installation& installation) {
  const std::string mapsPath = installation.loadoutMapsPath();
  if (FileExists(host.files, mapsPath)) return ReadLoadoutMaps(host.files, mapsPath);
  return Trapped(host, learnTitle, std::optional<LoadoutMaps>(), [&] {
    const std::optional<LoadoutMaps> maps = FindLoadoutMaps(host.files, installation);
    if (maps) {
      WriteWhole(host.files, mapsPath, *maps);
    } else {
      Show(host,
           std::string(loadoutMapsName) +
               " cannot be made: the game's textures in tcachehw.dat hold no 8-bit texture with its companion.",
           Icon::exclamation, learnTitle);
    }
    return maps;
  });
}

}  // namespace oravin
