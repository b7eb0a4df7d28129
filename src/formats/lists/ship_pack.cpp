#include "lists/ship_pack.h"

#include <algorithm>
#include <utility>

#include "base/delimited_text.h"
#include "base/file_error.h"
#include "base/text.h"
#include "files/look_up.h"
#include "files/path.h"
#include "files/whole_file.h"

namespace oravin {

namespace {

constexpr std::uint64_t longestPack = std::uint64_t{16} << 20;
/// Longer than any name or path; showing a longer text in a list is very slow.
constexpr std::size_t longestItem = 1000;
constexpr std::size_t shownOfItem = 40;

[[noreturn]] void Refuse(const DelimitedText& text, const std::string& item, const std::string& why) {
  std::string shown = item.substr(0, shownOfItem);
  for (char& c : shown) {
    if (const auto code = static_cast<unsigned char>(c); code < 32 || code == 127) c = '?';
  }
  throw FileError("could not read", text.path, "\"" + shown + "\" " + why, ErrorKind::damaged);
}

std::string Bounded(const DelimitedText& text, std::string item) {
  if (item.size() > longestItem) Refuse(text, item, "is too long to be right");
  return item;
}

/// The path of a model below the pack's folder. Its item is one character of any kind, which is dropped, and then plain
/// names of folders and of the file.
std::string ModelBelow(const DelimitedText& text, const std::string& folder, const std::string& item) {
  std::string model = item.empty() ? item : item.substr(1);
  model.resize(model.find_last_not_of(' ') + 1);  // spaces at the end of a path do not count
  for (char& c : model) {
    if (c == '/') c = '\\';
  }
  if (model.empty()) Refuse(text, item, "is no file name");
  for (std::size_t begin = 0; begin <= model.size();) {
    const std::size_t end = std::min(model.find('\\', begin), model.size());
    // An empty part would make the path absolute or a server's, a colon a drive; dots would leave the folder.
    if (!IsPlainFileName(model.substr(begin, end - begin))) {
      Refuse(text, item, "is no model below the pack's own folder");
    }
    begin = end + 1;
  }
  return folder + model;
}

PackShip TakePackShip(DelimitedText& text, const std::string& folder) {
  PackShip ship;
  // Empty lines between ships are skipped, but a ship's own lines may be empty: where every item has a line of its own,
  // an empty one suggests no switch.
  ship.modelPath = ModelBelow(text, folder, Bounded(text, TakeText(text)));
  ship.shipName = Bounded(text, TakeItem(text));
  ship.suggestedSwitch = Bounded(text, TakeItem(text));
  return ship;
}

}  // namespace

ShipPack ReadShipPack(Files& files, const std::string& path, const std::string& folder) {
  RequireFile(files, path);
  const std::string all = TextOf(ReadWhole(files, path, longestPack));
  DelimitedText text{path, all};
  ShipPack pack;
  pack.header = TakeItem(text);
  while (!AtEnd(text)) {
    if (pack.ships.size() == mostPackShips) {
      throw FileError("could not read", path, "it lists more than " + std::to_string(mostPackShips) + " ships",
                      ErrorKind::tooMany);
    }
    pack.ships.push_back(TakePackShip(text, folder));
  }
  return pack;
}

}  // namespace oravin
