#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "files/files.h"
#include "lists/ship_list.h"

/// Changes to `shipsData.txt` that keep every other byte of it: a player may have written it by hand.
///
/// The text is changed in memory and parsed again. Only when the result has exactly the intended ships is it written,
/// to a temporary file that is renamed over the list.
namespace oravin {

/// The first line of an imported ship from the line `from` on, found by its name and its model file without regard to
/// case and to spaces at the ends. Names that are longer than a catalogue record's field are compared as cut there.
std::optional<std::size_t> FindImportedLine(const ShipListText& list, const std::string& name, const std::string& file,
                                            std::size_t from = 0);

/// The list with one more ship, in a line of its own after the others and with their line end.
/// @throws FileError when one of its texts cannot be listed (CanBeListed), or the list is full
ShipListText WithShip(const ShipListText& list, const ListedShip& ship);

/// The list without some of its ships.
ShipListText WithoutShips(const ShipListText& list, const std::set<std::size_t>& lines);

/// The list with another name for one ship.
/// @throws FileError when the name cannot be listed
ShipListText WithName(const ShipListText& list, std::size_t line, const std::string& name);

/// Writes the list.
/// @throws FileError when that fails; then the old list is unchanged
void WriteShipList(Files& files, const ShipListText& list);

}  // namespace oravin
