// Fuzzes the reader of ship packs: a pack is read whole within its limits, or refused with an error; no model of it
// lies outside of its folder; and the import form holds what was read.

#include <algorithm>
#include <optional>

#include "base/bytes.h"
#include "base/file_error.h"
#include "base/text.h"
#include "files/path.h"
#include "input_file.h"
#include "tabs/import_form.h"

namespace {

using namespace oravin;

constexpr const char* packName = "new.pak";

void RequireShip(const PackShip& ship) {
  const std::string& folder = fuzz::Folder().windows;
  fuzz::Require(ship.modelPath.starts_with(folder), "a model lies below the pack's folder");
  const std::string below = ship.modelPath.substr(folder.size());
  for (std::size_t begin = 0; begin <= below.size();) {
    const std::size_t end = std::min(below.find('\\', begin), below.size());
    fuzz::Require(IsPlainFileName(below.substr(begin, end - begin)), "a model's path has plain names alone");
    begin = end + 1;
  }
  for (const std::string* text : {&ship.modelPath, &ship.shipName, &ship.suggestedSwitch}) {
    fuzz::Require(text->find_first_of("\r\n") == std::string::npos, "an item ends with its line");
    fuzz::Require(text->size() <= 1000 + folder.size(), "an item is not endless");
  }
}

/// The form shows the pack, or gives the one box of a pack that is refused.
void RequireForm(const std::optional<ShipPack>& pack) {
  fuzz::CountingHost here;
  FighterPack form = NewFighterPack();
  const bool shown = LoadPack(here.host, form, {}, fuzz::Folder().windows + packName);
  fuzz::Require(here.boxes == (pack ? 0 : 1), "a refused pack has its one box");
  fuzz::Require(shown == pack.has_value(), "what was read is shown");
  const std::size_t ships = pack ? pack->ships.size() : 0;
  fuzz::Require(form.lstPack.rows.size() == ships, "there is a line for each ship");
  fuzz::Require(CheckedShips(form.source.ships).size() == ships, "all ships are checked");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::WriteInput(packName, {data, size});
  Files files;
  std::optional<ShipPack> pack;
  try {
    pack = ReadShipPack(files, fuzz::Folder().windows + packName, fuzz::Folder().windows);
    fuzz::Require(pack->ships.size() <= mostPackShips, "a pack has its most ships");
    fuzz::Require(pack->ships.size() <= size / 4, "every ship takes three items and a model's name");
    for (const PackShip& ship : pack->ships) RequireShip(ship);
  } catch (const FileError& error) {
    fuzz::Require(error.kind != ErrorKind::missing, "the pack is there");
  }
  fuzz::Require(files.open == 0, "no file stays open");
  RequireForm(pack);
  fuzz::Require(fuzz::ReadInput(packName) == Bytes(data, data + size), "nothing is written");
  return 0;
}
