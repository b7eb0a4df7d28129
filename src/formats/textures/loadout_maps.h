#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "desk/host.h"

/// The maps of `gloadconv.dat` in the program folder: 2048 bytes, eight maps of 256. Map k gives, for each palette
/// index v of image k of a fighter's chain, the index in the loadout screen's palette: the byte at 256 * k + v.
namespace oravin {

inline constexpr std::size_t loadoutLevels = 8;
inline constexpr std::size_t coloursPerLevel = 256;

using LoadoutMaps = std::array<std::uint8_t, loadoutLevels * coloursPerLevel>;

/// Where the images of a chain of 256 x 256, 128 x 128, ... 2 x 2 pixels end, one behind the other. Which map a byte
/// goes through follows from its place in such a chain, whatever the size of its own texture. That is meant: the
/// companions of the game are made so.
inline constexpr std::array<std::size_t, loadoutLevels> levelEnds = {65536, 81920, 86016, 87040,
                                                                     87296, 87360, 87376, 87380};

/// The level of a byte by its place in a texture's data; what lies behind the chain counts to its last level.
std::size_t LevelAt(std::size_t position);

/// Reads the maps.
/// @throws FileError when the file cannot be read or is not 2048 bytes long
LoadoutMaps ReadLoadoutMaps(Files& files, const std::string& path);

/// Replaces every pixel byte of a texture's data through its level's map.
void MapPixels(std::span<std::uint8_t> pixels, const LoadoutMaps& maps);

/// Writes a copy of a file of pixel bytes in which every byte is replaced through the maps; an existing file of that
/// name is replaced. When the folder, the source or the maps are missing, the box "Path(s) not found" titled
/// "ConvertTexture".
/// @return whether the copy was written
bool ConvertTexture(Host& host, std::string sourcePath, std::string destinationFolder,
                    const std::string& destinationName, std::string tablePath);

}  // namespace oravin
