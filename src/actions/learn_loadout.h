#pragma once

#include <array>
#include <optional>
#include <string>

#include "desk/host.h"
#include "installation/installation.h"
#include "textures/loadout_maps.h"

/// Learning `gloadconv.dat` from the game's own textures: many of its 8-bit textures have companions, which are pixel
/// for pixel the same pictures in another palette.
namespace oravin {

/// One cell of the maps: what an index becomes at one level.
struct LearnedCell {
  std::uint8_t value = 0;    ///< the index in the loadout screen's palette
  std::uint32_t seen = 0;    ///< pixels of that index; 0 for a cell that was filled in
  std::uint32_t agreed = 0;  ///< pixels whose companion has `value`
};

/// The learned cells, in the maps' order.
struct LearnedLoadout {
  std::array<LearnedCell, loadoutLevels * coloursPerLevel> cells;
  int pairs = 0;      ///< textures with a companion of the same size
  int seenCells = 0;  ///< cells with at least one pixel
};

/// Counts, over all pairs among the cache's first 426 textures, what every index becomes at every level, and takes the
/// most frequent result; of equals the lowest. A cell without pixels gets the value of the nearest level at which the
/// index was seen, of two equally near ones the larger level's; an index that was seen at no level maps to itself.
/// @throws FileError when the cache cannot be read
LearnedLoadout LearnLoadout(Files& files, const std::string& cachePath);

/// The maps of what was learned.
LoadoutMaps MapsOf(const LearnedLoadout& learned);

/// The maps of the maps' file or, where that is missing, those learned from the cache. Nothing is written.
/// @return nothing when the file is missing and the game's textures hold no pair
/// @throws FileError when the file is there but cannot be used, or the cache cannot be read
std::optional<LoadoutMaps> FindLoadoutMaps(Files& files, const Installation& installation);

/// The title of the boxes about learning.
inline constexpr const char* learnTitle = "LearnLoadout";

/// The same, and writes the file where it is missing; an existing one is never changed. When the maps cannot be
/// learned, one box says why, and nothing is written.
/// @return nothing when they could not be learned
/// @throws FileError when the file is there but cannot be used
std::optional<LoadoutMaps> ProvideLoadoutMaps(Host& host, const Installation& installation);

}  // namespace oravin
