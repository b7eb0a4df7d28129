#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "files/files.h"

/// The ship list `shipsData.txt` that the program is shipped with: values separated by commas or line ends, texts in
/// double quotes. First the number of ships, then for each ship its kind, name, model file, statistics block, and the
/// names of two textures.
namespace oravin {

/// The most ships in a list: a ship's index is a 16-bit signed number, and loading the catalogue adds a sentinel.
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

/// A range of the list's text: its first character and the one after its last.
struct TextSpan {
  std::size_t begin = 0;
  std::size_t end = 0;
};

/// A ship of the list, and its place in the text.
struct ListedLine {
  ListedShip ship;
  TextSpan whole;       ///< its six values with the separator after the last one
  TextSpan name;        ///< the name's value, with its quotes
  bool joined = false;  ///< a comma ends it instead of a line end
};

/// The list as a text, with the places of the values that can be changed.
struct ShipListText {
  std::string path;
  std::string text;
  TextSpan count;           ///< the value that holds the number of ships
  std::size_t shipsAt = 0;  ///< after the count and its separator
  std::vector<ListedLine> lines;
};

/// Reads the list.
/// @throws FileError of the kind `missing` without a list, `wrongFormat` when the number of ships is not positive; of
///   another kind when the list cannot be read: values are missing or are not what they must be, a model is not a plain
///   file name, or there are more ships than the list states
std::vector<ListedShip> ReadShipList(Files& files, const std::string& path);

/// Parses a list's text.
/// @param path named by the errors
/// @param fewest the lowest number of ships that is accepted; 0 for a list that is being edited
/// @throws FileError as ReadShipList
ShipListText ParseShipList(std::string path, std::string text, int fewest);

/// The list's text as it is on disk. A list without ships is accepted.
/// @throws FileError when it is missing, cannot be read or cannot be used
ShipListText ReadShipListText(Files& files, const std::string& path);

/// Why a name cannot be a ship's, in the list or in the catalogue: it is empty, longer than a record's field, or cannot
/// be listed. A sentence; empty when it can. Spaces at the ends do not count.
std::string WhyNoShipName(const std::string& name);

/// True when the list can hold a text: it has no double quote and no control character, line breaks included.
bool CanBeListed(const std::string& text);

/// A ship's line in the list, without a line end: its texts in double quotes, a comma between the values.
std::string ShipListLine(const ListedShip& ship);

}  // namespace oravin
