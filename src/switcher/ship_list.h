#pragma once

#include <string>
#include <vector>

#include "desk/host.h"

/// The ship list `shipsData.txt` that the program is shipped with: values separated by commas or line ends, texts in
/// double quotes. First the number of ships, then for each ship its kind, name, model file, statistics block, and the
/// names of two textures.
namespace oravin {

inline constexpr const char* shipListName = "shipsData.txt";

struct ListedShip {
  int kind = 0;
  std::string name;
  std::string file;
  int statsIndex = 0;
  std::string texture0;
  std::string texture1;
};

/// Reads the list.
///
/// A missing list gives the box "shipsData.txt not found" with the critical icon. A number of ships that is not
/// positive gives "Error in shipsData.txt file" with the critical icon, and the program ends. A list with missing
/// values, values that are none, a model that is no plain file name, or more ships than it states gives the error
/// trap's box.
///
/// @return the ships; none when the list cannot be used
std::vector<ListedShip> ReadShipList(Host& host, const std::string& programPath);

}  // namespace oravin
