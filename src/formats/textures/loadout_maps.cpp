#include "textures/loadout_maps.h"

#include "base/text.h"

#include <algorithm>

#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/file.h"
#include "files/look_up.h"
#include "files/path.h"
#include "files/whole_file.h"

namespace oravin {

namespace {

constexpr std::uint64_t largestSource = 0x7FFFFFFF;  // no texture of a cache is larger

}  // namespace

std::size_t LevelAt(std::size_t position) {
  const auto* const end = std::upper_bound(levelEnds.begin(), levelEnds.end() - 1, position);
  return static_cast<std::size_t>(end - levelEnds.begin());
}

LoadoutMaps ReadLoadoutMaps(Files& files, const std::string& path) {
  LoadoutMaps maps{};
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

bool ConvertTexture(Host& host, std::string sourcePath, std::string destinationFolder,
                    const std::string& destinationName, std::string tablePath) {
  constexpr const char* title = "ConvertTexture";
  TrimInPlace(destinationFolder);
  TrimInPlace(sourcePath);
  TrimInPlace(tablePath);
  if (!FolderExists(host.files, destinationFolder) || !FileExists(host.files, sourcePath) ||
      !FileExists(host.files, tablePath)) {
    Show(host, "Path(s) not found", Icon::exclamation, title);
    return false;
  }
  return Trap(host, title, [&] {
    const LoadoutMaps maps = ReadLoadoutMaps(host.files, tablePath);
    Bytes pixels = ReadWhole(host.files, sourcePath, largestSource);
    MapPixels(pixels, maps);
    WriteWhole(host.files, AddBackslash(destinationFolder) + destinationName, pixels);
  });
}

}  // namespace oravin
