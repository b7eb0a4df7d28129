#pragma once

#include <string>
#include <vector>

#include "files/files.h"

/// The ship pack (`*.pak`): a text of items separated by commas or line ends; quoted items may hold commas. First comes
/// a header, then for each ship
///
///     the model below the pack's own folder, after one character (a separator) that is dropped: "\reaper.shp"
///     the ship's name
///     the name of the stock ship that the pack suggests to switch to it; empty for none
///
/// An empty line is an empty item, except before a model and at the end of the file, where it is skipped.
namespace oravin {

/// One ship of a pack.
struct PackShip {
  std::string modelPath;        ///< the pack's folder and the model's item without its first character
  std::string shipName;         ///< as the pack has it; spaces at its ends do not count
  std::string suggestedSwitch;  ///< the stock ship to switch to this one; empty for none

  bool operator==(const PackShip&) const = default;
};

struct ShipPack {
  std::string header;
  std::vector<PackShip> ships;

  bool operator==(const ShipPack&) const = default;
};

/// The most ships in one pack.
inline constexpr int mostPackShips = 301;

/// Reads a pack. Slashes in a model's item become backslashes; whether the models exist does not matter.
/// @param folder the pack's folder, ending in a backslash
/// @throws FileError of the kind `missing` without a pack; of another kind for a pack without a header, one that ends
///   within a ship, has a quote that is not closed on its line, has more than mostPackShips ships or an enormous item,
///   and for a model that is not below the pack's own folder (an absolute path, a drive, "..", no plain name)
ShipPack ReadShipPack(Files& files, const std::string& path, const std::string& folder);

}  // namespace oravin
