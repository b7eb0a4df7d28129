#include "textures/loadout_maps.h"

#include <algorithm>

#include "base/file_error.h"
#include "files/file.h"
#include "files/look_up.h"

namespace oravin {

std::size_t LevelAt(std::size_t position) {
  const auto* const end = std::upper_bound(levelEnds.begin(), levelEnds.end() - 1, position);
  return static_cast<std::size_t>(end - levelEnds.begin());
}

LoadoutMaps ReadLoadoutMaps(Files& files, const std::string& path) {
  LoadoutMaps maps{};
  RequireFile(files, path);
  File file(files, path, OpenFor::reading);
  if (file.length != maps.size()) {
    throw FileError("could not use", path, "it must be 2048 bytes long");
  }
  Get(file, 0, maps);
  return maps;
}

void MapPixels(std::span<std::uint8_t> pixels, const LoadoutMaps& maps) {
  std::size_t at = 0;
  for (std::size_t level = 0; level < loadoutLevels && at < pixels.size(); ++level) {
    const std::size_t end = level + 1 == loadoutLevels ? pixels.size() : std::min(pixels.size(), levelEnds.at(level));
    const std::uint8_t* const map = &maps.at(level * coloursPerLevel);
    for (; at < end; ++at) pixels[at] = map[pixels[at]];
  }
}

}  // namespace oravin
