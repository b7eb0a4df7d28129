#include "lists/ship_list.h"

#include <algorithm>

#include "base/delimited_text.h"
#include "base/file_error.h"
#include "base/ship_fields.h"
#include "base/text.h"
#include "files/look_up.h"
#include "files/path.h"
#include "files/whole_file.h"

namespace oravin {

namespace {

constexpr std::uint64_t longestList = std::uint64_t{16} << 20;

bool IsSpace(char c) { return c == ' ' || c == '\t'; }

/// The place of the next value. Spaces before it are skipped, and line ends too, except after a comma: there a line end
/// stands for an empty value.
TextSpan NextValue(const DelimitedText& text) {
  const bool afterComma = text.at > 0 && text.all[text.at - 1] == ',';
  const std::size_t begin =
      std::min(text.all.find_first_not_of(afterComma ? " \t" : " \t\r\n", text.at), text.all.size());
  if (begin < text.all.size() && text.all[begin] == '"') {
    return {begin, std::min(text.all.find('"', begin + 1), text.all.size() - 1) + 1};
  }
  std::size_t end = std::min(text.all.find_first_of(",\r\n", begin), text.all.size());
  while (end > begin && IsSpace(text.all[end - 1])) --end;
  return {begin, end};
}

ListedLine TakeLine(DelimitedText& text) {
  ListedLine line;
  const std::size_t before = text.at;
  line.whole.begin = NextValue(text).begin;
  while (line.whole.begin > before && IsSpace(text.all[line.whole.begin - 1])) --line.whole.begin;
  line.ship.kind = TakeWhole(text, -32768, 32767);
  line.name = NextValue(text);
  line.ship.name = TakeText(text);
  line.ship.file = TakeText(text);
  if (!Trim(line.ship.file).empty() && !IsPlainFileName(Trim(line.ship.file))) {
    throw FileError("could not read", text.path, "\"" + line.ship.file.substr(0, 40) + "\" is no file name",
                    ErrorKind::damaged);
  }
  line.ship.statsIndex = TakeWhole(text, 0, 32767);
  line.ship.texture0 = TakeText(text);
  const std::size_t last = text.at;
  line.ship.texture1 = TakeText(text);
  // After a comma that ends the text, text.at is one past the end.
  line.whole.end = std::min(text.at, text.all.size());
  // An empty last value starts after a comma, which does not end the line.
  line.joined = line.whole.end > last && text.all[line.whole.end - 1] == ',';
  return line;
}

}  // namespace

ShipListText ParseShipList(std::string path, std::string all, int fewest) {
  ShipListText list;
  list.path = std::move(path);
  list.text = std::move(all);
  DelimitedText text{list.path, list.text};
  list.count = NextValue(text);
  const int count = TakeWhole(text, fewest, 2147483647);
  list.shipsAt = text.at;
  if (count > mostListedShips) {
    throw FileError("could not read", text.path, "it says that it lists " + std::to_string(count) + " ships",
                    ErrorKind::tooMany);
  }
  // The count reserves nothing: the list may hold far fewer ships than it states.
  for (int i = 0; i < count; ++i) list.lines.push_back(TakeLine(text));
  if (!AtEnd(text)) {
    throw FileError("could not read", text.path,
                    "it says that it lists " + std::to_string(count) + " ships, but more follows", ErrorKind::damaged);
  }
  return list;
}

ShipListText ReadShipListText(Files& files, const std::string& path) {
  return ParseShipList(path, TextOf(ReadWhole(files, path, longestList)), 0);
}

bool CanBeListed(const std::string& text) {
  return std::none_of(text.begin(), text.end(), [](char c) {
    const int code = static_cast<std::uint8_t>(c);
    return code < 32 || code == 127 || c == '"';
  });
}

std::string WhyNoShipName(const std::string& name) {
  const std::string trimmed = Trim(name);
  if (trimmed.empty()) return "A ship must have a name.";
  if (trimmed.size() > shipNameWidth) {
    return "A ship's name can have at most " + std::to_string(shipNameWidth) + " characters.";
  }
  if (CanBeListed(trimmed)) return "";
  return "A ship's name can hold no double quotes, no control characters and no letters outside the code page "
         "Windows-1252.";
}

std::string ShipListLine(const ListedShip& ship) {
  return std::to_string(ship.kind) + ",\"" + ship.name + "\",\"" + ship.file + "\"," + std::to_string(ship.statsIndex) +
         ",\"" + ship.texture0 + "\",\"" + ship.texture1 + "\"";
}

std::vector<ListedShip> ReadShipList(Files& files, const std::string& path) {
  RequireFile(files, path);
  std::string all = TextOf(ReadWhole(files, path, longestList));
  DelimitedText text{path, all};
  if (TakeNumber(text) <= 0) {
    throw FileError("could not read", path, "its number of ships is not positive", ErrorKind::wrongFormat);
  }
  std::vector<ListedShip> ships;
  for (ListedLine& line : ParseShipList(path, std::move(all), 1).lines) ships.push_back(std::move(line.ship));
  return ships;
}

}  // namespace oravin
