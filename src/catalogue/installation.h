#pragma once

#include <string>

#include "catalogue/ship_record.h"

namespace oravin {

/// Where add-on ships lie, relative to the program folder: their models, their bitmaps, their statistics texts, and
/// what is kept of those that were removed.
inline constexpr const char* addOnShipsFolder = "addons\\ships\\";
inline constexpr const char* addOnTexturesFolder = "addons\\textures\\";
inline constexpr const char* addOnStatsFolder = "addons\\stats\\";
inline constexpr const char* addOnRemovedFolder = "addons\\removed\\";

/// The installed game that the program works on.
struct Installation {
  std::string GamePath;     ///< the game folder, ending in a backslash
  std::string ProgramPath;  ///< the program's own folder, ending in a backslash
  Ships ships;              ///< the catalogue as it is loaded; empty while the features are not enabled
};

/// Where a ship's loose model lies.
inline std::string ModelPath(const Installation& installation, const ShipRecord& ship) {
  return installation.GamePath + "ships\\" + ModelOf(ship);
}

}  // namespace oravin
