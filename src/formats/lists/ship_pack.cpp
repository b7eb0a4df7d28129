#include "lists/ship_pack.h"

#include "base/text.h"

#include <algorithm>
#include <utility>

#include "base/delimited_text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "desk/program_end.h"
#include "files/look_up.h"
#include "files/path.h"
#include "files/whole_file.h"
#include "models/class_byte.h"

namespace oravin {

namespace {

constexpr std::uint64_t longestPack = std::uint64_t{16} << 20;
/// No name and no path is longer; a list would take very long to show such a text.
constexpr std::size_t longestItem = 1000;
constexpr std::size_t shownOfItem = 40;

[[noreturn]] void Refuse(const DelimitedText& text, const std::string& item, const std::string& why) {
  std::string shown = item.substr(0, shownOfItem);
  for (char& c : shown) {
    if (const auto code = static_cast<unsigned char>(c); code < 32 || code == 127) c = '?';
  }
  throw FileError("could not read", text.path, "\"" + shown + "\" " + why);
}

std::string Bounded(const DelimitedText& text, std::string item) {
  if (item.size() > longestItem) Refuse(text, item, "is too long to be right");
  return item;
}

/// The path of a model below the pack's folder. Its item is folders and a file name, each plain, behind one character
/// that does not count, whatever it is.
std::string ModelBelow(const DelimitedText& text, const std::string& folder, const std::string& item) {
  std::string model = item.empty() ? item : item.substr(1);
  model.resize(model.find_last_not_of(' ') + 1);  // as at the end of every path
  for (char& c : model) {
    if (c == '/') c = '\\';
  }
  if (model.empty()) Refuse(text, item, "is no file name");
  for (std::size_t begin = 0; begin <= model.size();) {
    const std::size_t end = std::min(model.find('\\', begin), model.size());
    // An empty part makes an absolute path or a server's, a colon a drive, dots lead out of the folder.
    if (!IsPlainFileName(model.substr(begin, end - begin))) {
      Refuse(text, item, "is no model below the pack's own folder");
    }
    begin = end + 1;
  }
  return folder + model;
}

PackShip TakePackShip(DelimitedText& text, const std::string& folder) {
  PackShip ship;
  // Empty lines between the ships stand for nothing, but a ship's own lines may be blank: a switch that is suggested
  // by none is an empty line where every item has a line of its own.
  ship.modelPath = ModelBelow(text, folder, Bounded(text, TakeText(text)));
  ship.shipName = Bounded(text, TakeItem(text));
  ship.suggestedSwitch = Bounded(text, TakeItem(text));
  return ship;
}

std::vector<PackShip> TakePackShips(DelimitedText& text, const std::string& folder) {
  std::vector<PackShip> ships(mostPackShips);
  ships.front().header = TakeItem(text);
  std::size_t count = 0;
  while (!AtEnd(text)) {
    if (count == ships.size()) {
      throw FileError("could not read", text.path, "it lists more than " + std::to_string(mostPackShips) + " ships");
    }
    PackShip ship = TakePackShip(text, folder);
    ship.header = std::move(ships[count].header);
    ships[count] = std::move(ship);
    ++count;
  }
  ships.resize(count + 1);
  return ships;
}

}  // namespace

int GetPAK(Host& host, std::string path, const std::string& folder, std::vector<PackShip>& ships) {
  TrimInPlace(path);
  if (!FileExists(host.files, path)) {
    Show(host, "Error in GetPAK - file not found", Icon::information);
    throw ProgramEnd();
  }
  return Trapped(host, "GetPAK", 0, [&] {
    const std::string all = TextOf(ReadWhole(host.files, path, longestPack));
    DelimitedText text{path, all};
    std::vector<PackShip> read = TakePackShips(text, folder);
    const std::size_t count = read.size() - 1;
    for (std::size_t i = 0; i < count; ++i) {
      PackShip& ship = read[i];
      // A box for each of many missing models would help nobody.
      const bool capital = FileExists(host.files, ship.modelPath) && IsCapitalShip(host.files, ship.modelPath);
      ship.shipClass = capital ? capitalClass : fighterClass;
    }
    ships = std::move(read);
    return static_cast<int>(count);
  });
}

}  // namespace oravin
