// Fuzzes the reader of ship packs: a pack is read whole within its limits, or refused with one box; no model of it lies
// outside of its folder; and the import form holds what was read.

#include <algorithm>

#include "base/bytes.h"
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
  fuzz::Require(ship.shipClass == fighterClass || ship.shipClass == capitalClass, "a ship has a class");
  for (const std::string* text : {&ship.modelPath, &ship.shipName, &ship.suggestedSwitch}) {
    fuzz::Require(text->find_first_of("\r\n") == std::string::npos, "an item ends with its line");
    fuzz::Require(text->size() <= 1000 + folder.size(), "an item is not endless");
  }
}

void RequireForm(Host& host, const std::vector<PackShip>& ships) {
  FighterPack form = NewFighterPack();
  const bool shown = LoadPack(host, form, {}, fuzz::Folder().windows + packName);
  fuzz::Require(shown == !ships.empty(), "what was read is shown");
  fuzz::Require(form.lstPack.rows.size() == (shown ? ships.size() - 1 : 0), "there is a line for each ship");
  fuzz::Require(CheckedShips(form).size() == form.lstPack.rows.size(), "all ships are checked");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::WriteInput(packName, {data, size});
  fuzz::CountingHost here;
  std::vector<PackShip> ships;
  const int count = GetPAK(here.host, fuzz::Folder().windows + packName, fuzz::Folder().windows, ships);
  fuzz::Require(here.boxes == (ships.empty() ? 1 : 0), "a refused pack has its one box");
  fuzz::Require(count >= 0 && count <= mostPackShips, "a pack has its most ships");
  fuzz::Require(ships.empty() ? count == 0 : ships.size() == static_cast<std::size_t>(count) + 1,
                "there is one entry more than ships");
  fuzz::Require(static_cast<std::size_t>(count) <= size / 4, "every ship takes three items and a model's name");
  for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) RequireShip(ships[i]);
  fuzz::Require(ships.empty() || ships.back().modelPath.empty(), "the last entry is empty");
  RequireForm(here.host, ships);
  fuzz::Require(fuzz::ReadInput(packName) == Bytes(data, data + size), "nothing is written");
  return 0;
}
