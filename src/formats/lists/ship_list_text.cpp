#include "lists/ship_list_text.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <unordered_map>

#include "base/ship_fields.h"
#include "base/text.h"
#include "files/look_up.h"
#include "files/path.h"
#include "files/whole_file.h"

namespace oravin {

namespace {

constexpr std::uint64_t largestOldList = std::uint64_t{16} << 20;

/// Why ReadShipList would refuse a ship; empty when it would not.
std::string WhyUnreadable(const ListedShip& ship) {
  if (ship.kind < -32768 || ship.kind > 32767) return "its kind is no 16-bit number";
  if (ship.statsIndex < 0 || ship.statsIndex > 32767) return "its statistics block is not from 0 to 32767";
  for (const std::string* text : {&ship.name, &ship.file, &ship.texture0, &ship.texture1}) {
    if (!CanBeListed(*text)) return "a text of it has a quote or a line end";
  }
  const std::string file = Trim(ship.file);
  return file.empty() || IsPlainFileName(file) ? "" : "\"" + ship.file + "\" is no file name";
}

/// A sentence as part of another one: lower case, without its full stop.
std::string AsClause(const std::string& sentence) {
  return LowerCase(sentence.substr(0, 1)) + sentence.substr(1, sentence.size() - 2);
}

std::string WhyNotText(const std::string& what, const std::string& text) {
  if (Trim(text).size() > shipNameWidth) {
    return what + " is longer than " + std::to_string(shipNameWidth) + " characters";
  }
  return CanBeListed(text) ? "" : what + " has a quote or a line end in it";
}

/// Keeps a copy of a list that is about to be replaced, unless it has these bytes already.
void KeepOldList(Files& files, const std::string& path, const Bytes& fresh) {
  if (!FileExists(files, path)) return;
  if (FileLength(files, path) == fresh.size() && ReadWhole(files, path, largestOldList) == fresh) return;
  CopyWhole(files, path, FreeOldName(files, ChangeExtension(path, "")));
}

ListFault FaultAt(std::span<const ListedShip> ships, std::size_t line, const std::string& why) {
  return {"Line " + std::to_string(line + 1) + ", \"" + ships[line].name + "\": " + why + ".", line};
}

std::optional<ListFault> WhyNotThatMany(std::span<const ListedShip> ships) {
  if (ships.empty()) return ListFault{"There are no ships in the list.", std::nullopt};
  if (ships.size() <= mostListedShips) return std::nullopt;
  return ListFault{"There are more than " + Grouped(mostListedShips) + " ships in the list.", std::nullopt};
}

}  // namespace

std::string WhyNotListed(const ListedShip& ship) {
  if (ship.kind < 1 || ship.kind > importedKind) return "its kind is not 1, 2 or 3";
  if (const std::string why = WhyNoShipName(ship.name); !why.empty()) return AsClause(why);
  if (Trim(ship.file).empty()) return "it has no model";
  for (const auto& [what, text] :
       {std::pair("its model's name", &ship.file), std::pair("its texture's name", &ship.texture0),
        std::pair("its second texture's name", &ship.texture1)}) {
    std::string why = WhyNotText(what, *text);
    if (!why.empty()) return why;
  }
  if (!IsPrintableText(ship.file)) return "\"" + ship.file + "\" is no file name";
  if (ExtensionOf(ship.file) != "shp") return "its model's name does not end in .shp";
  return WhyUnreadable(ship);
}

std::optional<ListFault> WhyNotSaved(std::span<const ListedShip> ships) {
  if (auto fault = WhyNotThatMany(ships)) return fault;
  std::unordered_map<std::string, std::size_t> names;
  std::unordered_map<std::string, std::size_t> models;
  const auto lineOf = [](const auto& found) { return "line " + std::to_string(found->second + 1); };
  for (std::size_t i = 0; i < ships.size(); ++i) {
    if (const std::string why = WhyNotListed(ships[i]); !why.empty()) return FaultAt(ships, i, why);
    const auto [model, newModel] = models.emplace(UpperCase(Trim(ships[i].file)), i);
    if (!newModel) return FaultAt(ships, i, lineOf(model) + " has the same model");
    const auto [name, newName] = names.emplace(UpperCase(Trim(ships[i].name)), i);
    if (!newName && name->second + 1 != i) {
      return FaultAt(
          ships, i, lineOf(name) + " has the same name, which only a ship and its second part directly behind it have");
    }
  }
  return std::nullopt;
}

std::optional<ListFault> WhyUnreadable(std::span<const ListedShip> ships) {
  if (auto fault = WhyNotThatMany(ships)) return fault;
  for (std::size_t i = 0; i < ships.size(); ++i) {
    if (const std::string why = WhyUnreadable(ships[i]); !why.empty()) return FaultAt(ships, i, why);
  }
  return std::nullopt;
}

std::string TextOfShipList(std::span<const ListedShip> ships) {
  std::string text = std::to_string(ships.size()) + "\r\n";
  for (const ListedShip& ship : ships) text += ShipListLine(ship) + "\r\n";
  return text;
}

void ReplaceShipList(Files& files, const std::string& path, std::span<const ListedShip> ships) {
  const Bytes fresh = BytesOf(TextOfShipList(ships));
  KeepOldList(files, path, fresh);
  WriteWhole(files, path, fresh);
}

}  // namespace oravin
