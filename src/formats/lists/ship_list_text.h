#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>

#include "files/files.h"
#include "lists/ship_list.h"

/// Writing a whole ship list; lists/ship_list.h reads it.
namespace oravin {

/// Why a ship should not be in the list, in plain words: it cannot be written there, or the catalogue and the switcher
/// could not use it ("it has no model"). Empty when it can. The textures' names may be empty.
std::string WhyNotListed(const ListedShip& ship);

/// What is wrong with a list.
struct ListFault {
  std::string text;                 ///< in plain words, with the line's number and name
  std::optional<std::size_t> line;  ///< the index of the ship; none for the list as a whole
};

/// The first fault of a list that is to be saved: no ships or too many, a ship that should not be listed
/// (WhyNotListed), two ships with one model, or one name of several ships other than a ship and the second part
/// directly after it.
std::optional<ListFault> WhyNotSaved(std::span<const ListedShip> ships);

/// The first fault because of which ReadShipList could not read a list back; everything else, however odd, can be
/// saved.
std::optional<ListFault> WhyUnreadable(std::span<const ListedShip> ships);

/// The list's text: the number of ships, then a line for each ship with its texts in double quotes. Lines end in CR LF.
/// ReadShipList reads the same ships back unless the list is WhyUnreadable.
std::string TextOfShipList(std::span<const ListedShip> ships);

/// Writes the list to a temporary file and renames it over the old one. An old list with other bytes is kept as the
/// first free of `shipsData.old`, `shipsData.old2`, ...
/// @param path the list's whole path
/// @throws FileError when that fails; then the old list is unchanged
void ReplaceShipList(Files& files, const std::string& path, std::span<const ListedShip> ships);

}  // namespace oravin
