#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>

#include "desk/host.h"
#include "lists/ship_list.h"

/// The ship list as it is written (switcher/ship_list.h tells how it is read).
namespace oravin {

/// Tells in plain words why a ship should not stand in the list, because it cannot be written there or the catalogue
/// and the switcher could not work with it: "it has no model". Empty when it can. The textures'
/// names may be empty.
std::string WhyNotListed(const ListedShip& ship);

/// What is wrong with a list.
struct ListFault {
  std::string text;                 ///< in plain words, with the line's number and name
  std::optional<std::size_t> line;  ///< the index of the ship; none where it is the list as a whole
};

/// The same for a list as a whole: no ships at all or too many, the first ship that cannot stand in it, two with one
/// model, and one name borne by others than a ship and its second part directly behind it.
std::optional<ListFault> WhyNotSaved(std::span<const ListedShip> ships);

/// The list's text: the number of ships, then a line a ship with its texts in double quotes. Lines end in CR LF.
/// ReadShipList reads the very same ships back, provided that SaveShipList does not refuse them.
std::string TextOfShipList(std::span<const ListedShip> ships);

/// Writes the list beside the old one and renames it over that.
///
/// Boxes, after which the old list is as it was: one titled "Ship list" for ships that ReadShipList could not read back
/// (whatever else it takes can be saved, odd as it may be), and the error trap's for a disk that fails.
/// @param path the list's whole path
/// @param keepOld an old list with other bytes is kept beside it, under the first free of `shipsData.old`,
///   `shipsData.old2`, ...
/// @return whether it was saved
bool SaveShipList(Host& host, const std::string& path, std::span<const ListedShip> ships, bool keepOld);

}  // namespace oravin
