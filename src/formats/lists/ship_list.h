#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "desk/host.h"

/// The ship list `shipsData.txt` that the program is shipped with: values separated by commas or line ends, texts in
/// double quotes. First the number of ships, then for each ship its kind, name, model file, statistics block, and the
/// names of two textures.
namespace oravin {

/// As many ships as a list may hold: an index of a ship is a 16-bit signed number, and loading adds one record.
inline constexpr int mostListedShips = 32765;

struct ListedShip {
  int kind = 0;
  std::string name;
  std::string file;
  int statsIndex = 0;
  std::string texture0;
  std::string texture1;

  bool operator==(const ListedShip&) const = default;
};

/// A stretch of the list's text: its first character and the one behind its last.
struct TextSpan {
  std::size_t begin = 0;
  std::size_t end = 0;
};

/// A ship of the list, and where it stands in the text.
struct ListedLine {
  ListedShip ship;
  TextSpan whole;       ///< its six values, with what separates the last one from what follows
  TextSpan name;        ///< the name's value, with its quotes
  bool joined = false;  ///< a comma ends it instead of a line end
};

/// The list as a text, with the places of what can be changed in it.
struct ShipListText {
  std::string path;
  std::string text;
  TextSpan count;           ///< the value that states how many ships there are
  std::size_t shipsAt = 0;  ///< behind the count and what separates it from the ships
  std::vector<ListedLine> lines;
};

/// Reads the list.
///
/// A missing list gives the box "shipsData.txt not found" with the critical icon. A number of ships that is not
/// positive gives "Error in shipsData.txt file" with the critical icon, and the program ends. A list with missing
/// values, values that are none, a model that is no plain file name, or more ships than it states gives the error
/// trap's box.
///
/// @return the ships; none when the list cannot be used
std::vector<ListedShip> ReadShipList(Host& host, const std::string& path);

/// Takes a list's text apart.
/// @param path named by the errors
/// @param fewest the lowest number of ships that is right; 0 for a list that is being edited
/// @throws FileError for whatever ReadShipList shows the error trap's box
ShipListText ParseShipList(std::string path, std::string text, int fewest);

/// The list's text as it is in the program folder. No ships at all are right here.
/// @throws FileError when it is missing, cannot be read or cannot be used
ShipListText ReadShipListText(Files& files, const std::string& path);

/// Why no ship can bear a name, whether in the list or in the catalogue: it is empty, longer than a record's field, or
/// cannot be listed. A sentence; empty when a ship can. The blanks at its ends do not count.
std::string WhyNoShipName(const std::string& name);

/// True when a text can stand in the list: it holds no double quote and no control character, line breaks included.
bool CanBeListed(const std::string& text);

/// A ship's line in the list, without a line end: its texts in double quotes, a comma between the values.
std::string ShipListLine(const ListedShip& ship);

}  // namespace oravin
