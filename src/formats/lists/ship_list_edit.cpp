#include "lists/ship_list_edit.h"

#include <algorithm>
#include <cstdint>

#include "base/file_error.h"
#include "base/ship_fields.h"
#include "base/text.h"
#include "files/whole_file.h"

namespace oravin {

namespace {

/// The text as a catalogue record holds it.
std::string AsRecorded(const std::string& text) { return ShipText(text).Trimmed(); }

/// The line end that the list uses first.
std::string LineEndOf(const ShipListText& list) {
  const std::size_t at = list.text.find_first_of("\r\n");
  if (at == std::string::npos) return "\r\n";
  return list.text.compare(at, 2, "\r\n") == 0 ? "\r\n" : list.text.substr(at, 1);
}

void Refuse(const ShipListText& list, const std::string& text) {
  if (CanBeListed(text)) return;
  throw FileError("could not change", list.path,
                  "\"" + text + "\" holds a double quote or a control character, which it cannot hold");
}

std::vector<ListedShip> ShipsIn(const ShipListText& list) {
  std::vector<ListedShip> ships;
  ships.reserve(list.lines.size());
  for (const ListedLine& line : list.lines) ships.push_back(line.ship);
  return ships;
}

void Replace(std::string& text, const TextSpan& span, const std::string& by) {
  text.replace(span.begin, span.end - span.begin, by);
}

/// Parses the changed text, with its new count.
/// @param ships what it must list
ShipListText Changed(const ShipListText& list, std::string text, const std::vector<ListedShip>& ships) {
  // The count comes before all ships, so its place has not changed.
  if (ships.size() != list.lines.size()) Replace(text, list.count, std::to_string(ships.size()));
  ShipListText changed = ParseShipList(list.path, std::move(text), 0);
  if (ShipsIn(changed) != ships) {
    throw FileError("could not change", list.path, "its lines would not be read as they are meant");
  }
  return changed;
}

}  // namespace

std::optional<std::size_t> FindImportedLine(const ShipListText& list, const std::string& name, const std::string& file,
                                            std::size_t from) {
  for (std::size_t i = from; i < list.lines.size(); ++i) {
    const ListedShip& ship = list.lines[i].ship;
    if (ship.kind == importedKind && SameName(AsRecorded(ship.name), AsRecorded(name)) &&
        SameName(AsRecorded(ship.file), AsRecorded(file))) {
      return i;
    }
  }
  return std::nullopt;
}

ShipListText WithShip(const ShipListText& list, const ListedShip& ship) {
  for (const std::string& text : {ship.name, ship.file, ship.texture0, ship.texture1}) Refuse(list, text);
  const std::string lineEnd = LineEndOf(list);
  const std::size_t at = list.lines.empty() ? list.shipsAt : list.lines.back().whole.end;
  const bool joined = list.lines.empty() ? at > list.count.end && list.text[at - 1] == ',' : list.lines.back().joined;
  const bool lineBegins = at > 0 && (list.text[at - 1] == '\n' || list.text[at - 1] == '\r');
  std::string text = list.text;
  // After a comma a line end would stand for an empty value.
  text.insert(at, (joined || lineBegins ? "" : lineEnd) + ShipListLine(ship) + lineEnd);
  std::vector<ListedShip> ships = ShipsIn(list);
  ships.push_back(ship);
  return Changed(list, std::move(text), ships);
}

ShipListText WithoutShips(const ShipListText& list, const std::set<std::size_t>& lines) {
  std::string text;
  std::vector<ListedShip> ships;
  std::size_t at = 0;
  for (std::size_t i = 0; i < list.lines.size(); ++i) {
    const ListedLine& line = list.lines[i];
    if (!lines.contains(i)) {
      ships.push_back(line.ship);
      continue;
    }
    text.append(list.text, at, line.whole.begin - at);
    at = line.whole.end;
  }
  text.append(list.text, at);
  return Changed(list, std::move(text), ships);
}

ShipListText WithName(const ShipListText& list, std::size_t line, const std::string& name) {
  Refuse(list, name);
  std::string text = list.text;
  Replace(text, list.lines.at(line).name, "\"" + name + "\"");
  std::vector<ListedShip> ships = ShipsIn(list);
  ships[line].name = name;
  return Changed(list, std::move(text), ships);
}

void WriteShipList(Files& files, const ShipListText& list) { WriteWhole(files, list.path, BytesOf(list.text)); }

}  // namespace oravin
