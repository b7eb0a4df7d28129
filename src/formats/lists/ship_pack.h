#pragma once

#include <string>
#include <vector>

#include "desk/host.h"

/// The ship pack (`*.pak`): a text of items separated by commas or line ends, of which quoted ones may hold commas.
/// First a header; then for each ship
///
///     the model below the pack's own folder, behind one character (a separator) that is dropped: "\reaper.shp"
///     the ship's name
///     the name of the stock ship that the pack suggests to switch to it; blank for none
///
/// An empty line is an empty item, but before a model and at the end of the file it stands for nothing.
namespace oravin {

/// The classes of a ship.
inline constexpr int fighterClass = 1;
inline constexpr int capitalClass = 2;

/// One ship of a pack.
struct PackShip {
  int shipClass = 0;            ///< fighterClass or capitalClass ("class" is a word of the language)
  std::string modelPath;        ///< the pack's folder and the model's item without its first character
  std::string shipName;         ///< as it stands in the pack; blanks at its ends do not count
  std::string header;           ///< the pack's header; in the first entry alone
  std::string suggestedSwitch;  ///< the stock ship to switch to this one; blank for none

  bool operator==(const PackShip&) const = default;
};

/// As many ships as one pack can hold.
inline constexpr int mostPackShips = 301;

/// Reads a pack.
///
/// The array gets one entry more than there are ships. The last one is empty, but for the header of a pack without
/// ships: that is meant. A slash in a model's item becomes a backslash. A model that is missing makes its ship a
/// fighter, without a word: the import tells of it.
///
/// A missing pack gives the box "Error in GetPAK - file not found" with the information icon, and the program ends:
/// that is meant. The error trap's box comes for a pack without a header, one that ends within a ship, has a quote that
/// does not close on its line, or more than mostPackShips ships, for an item of enormous length, and for a model that
/// is no file below the pack's own folder (an absolute path, a drive, "..", no plain name). The array is left as it was
/// then.
///
/// @param folder the pack's folder, ending in a backslash
/// @return the number of ships; 0 on any error
int GetPAK(Host& host, std::string path, const std::string& folder, std::vector<PackShip>& ships);

}  // namespace oravin
