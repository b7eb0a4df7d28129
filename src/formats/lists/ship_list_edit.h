#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "catalogue/ship_record.h"
#include "files/files.h"
#include "lists/ship_list.h"

/// Changes to `shipsData.txt` that keep every other byte of it: a player may have written it by hand.
///
/// The changes are made to the text in memory, which is then read again: what comes out must be exactly the ships that
/// were meant. Only then it is written beside the old list and renamed over it.
namespace oravin {

/// The first line of an imported ship, found by its name and its model file without regard to case and to blanks at the
/// ends. Names that are longer than a catalogue record's field are compared as they are cut there.
std::optional<std::size_t> FindImportedLine(const ShipListText& list, const std::string& name, const std::string& file);

/// The lines of some imported ships, in their order. Ships that are alike in name and model file get a line each, as
/// far as there are so many.
std::vector<std::optional<std::size_t>> FindImportedLines(const ShipListText& list, const Ships& ships);

/// The list with one ship more, in a line of its own behind the others, its line end that of the others.
/// @throws FileError when one of its texts cannot be listed (CanBeListed), or the list is full
ShipListText WithShip(const ShipListText& list, const ListedShip& ship);

/// The list without some of its ships.
ShipListText WithoutShips(const ShipListText& list, const std::set<std::size_t>& lines);

/// The list with another name for one ship.
/// @throws FileError when the name cannot be listed
ShipListText WithName(const ShipListText& list, std::size_t line, const std::string& name);

/// Writes the list.
/// @throws FileError when that fails; then the old list is as it was
void WriteShipList(Files& files, const ShipListText& list);

}  // namespace oravin
