#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "files/files.h"

/// The maps of `gloadconv.dat` in the program folder: 2048 bytes, eight maps of 256. Map k gives, for each palette
/// index v of level k of a fighter's mipmap chain, the index in the loadout screen's palette: the byte at 256 * k + v.
namespace oravin {

inline constexpr std::size_t loadoutLevels = 8;
inline constexpr std::size_t coloursPerLevel = 256;

using LoadoutMaps = std::array<std::uint8_t, loadoutLevels * coloursPerLevel>;

/// The ends of the levels in a mipmap chain of 256 x 256, 128 x 128, ... 2 x 2 pixels of one byte. Intentional: a
/// byte's position in such a chain selects its map, whatever the size of its own texture. The game's companions are
/// made so.
inline constexpr std::array<std::size_t, loadoutLevels> levelEnds = {65536, 81920, 86016, 87040,
                                                                     87296, 87360, 87376, 87380};

/// The level of a byte by its position in a texture's data; positions after the chain belong to its last level.
std::size_t LevelAt(std::size_t position);

/// Reads the maps.
/// @throws FileError of the kind `missing`; when the file is not 2048 bytes long, or cannot be read
LoadoutMaps ReadLoadoutMaps(Files& files, const std::string& path);

/// Replaces every pixel byte of a texture's data through its level's map.
void MapPixels(std::span<std::uint8_t> pixels, const LoadoutMaps& maps);

}  // namespace oravin
