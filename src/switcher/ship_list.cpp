#include "switcher/ship_list.h"

#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "desk/program_end.h"
#include "util/File_Path.h"
#include "util/delimited_text.h"
#include "util/text.h"
#include "util/whole_file.h"

namespace oravin {

namespace {

constexpr std::uint64_t longestList = std::uint64_t{16} << 20;
constexpr int mostShips = 32765;  // an index of a ship is a 16-bit signed number, and loading adds one record

ListedShip TakeShip(DelimitedText& text) {
  ListedShip ship;
  ship.kind = TakeWhole(text, -32768, 32767);
  ship.name = TakeText(text);
  ship.file = TakeText(text);
  if (!Trim(ship.file).empty() && !IsPlainFileName(Trim(ship.file))) {
    throw RunTimeError("could not read", text.path, "\"" + ship.file.substr(0, 40) + "\" is no file name");
  }
  ship.statsIndex = TakeWhole(text, 0, 32767);
  ship.texture0 = TakeText(text);
  ship.texture1 = TakeText(text);
  return ship;
}

std::vector<ListedShip> TakeShips(DelimitedText& text, int count) {
  if (count > mostShips) {
    throw RunTimeError("could not read", text.path, "it says that it lists " + std::to_string(count) + " ships");
  }
  std::vector<ListedShip> ships;
  // Nothing is sized by the count: the list may hold far fewer ships than it states.
  for (int i = 0; i < count; ++i) ships.push_back(TakeShip(text));  // NOLINT(performance-inefficient-vector-operation)
  if (!AtEnd(text)) {
    throw RunTimeError("could not read", text.path,
                       "it says that it lists " + std::to_string(count) + " ships, but more follows");
  }
  return ships;
}

}  // namespace

std::vector<ListedShip> ReadShipList(Host& host, const std::string& programPath) {
  const std::string path = programPath + shipListName;
  if (!FileExists(std::string(path))) {
    Show(host, "shipsData.txt not found", Icon::critical);
    return {};
  }
  return Trapped(host, "ReadShipList", std::vector<ListedShip>(), [&]() -> std::vector<ListedShip> {
    const std::string all = TextOf(ReadWhole(host.files, path, longestList));
    DelimitedText text{path, all};
    const double count = TakeNumber(text);
    if (count <= 0) {
      Show(host, "Error in shipsData.txt file", Icon::critical);
      throw ProgramEnd();
    }
    text.at = 0;
    return TakeShips(text, TakeWhole(text, 1, 2147483647));
  });
}

}  // namespace oravin
