// Fuzzes the reader of the ship list: a list is read whole within its limits, or refused with one box.

#include "lists/ship_list.h"

#include "base/bytes.h"
#include "base/text.h"
#include "desk/program_end.h"
#include "files/path.h"
#include "input_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace oravin;
  constexpr const char* name = "shipsData.txt";
  fuzz::WriteInput(name, {data, size});
  fuzz::CountingHost here;
  std::vector<ListedShip> ships;
  bool ended = false;
  try {
    ships = ReadShipList(here.host, fuzz::Folder().windows + name);
  } catch (const ProgramEnd&) {
    ended = true;
  }
  fuzz::Require(here.boxes == (ships.empty() ? 1 : 0), "a refused list has its one box");
  fuzz::Require(!ended || ships.empty(), "the program ends without a list");
  fuzz::Require(ships.size() <= size / 6, "every ship takes six values");
  fuzz::Require(ships.size() < 32767, "an index tells every ship apart");
  for (const ListedShip& ship : ships) {
    const std::string model = Trim(ship.file);
    fuzz::Require(model.empty() || IsPlainFileName(model), "a model is a plain file name");
    fuzz::Require(ship.statsIndex >= 0 && ship.statsIndex <= 32767, "a block's index is in its range");
    fuzz::Require(ship.kind >= -32768 && ship.kind <= 32767, "a kind is in its range");
    for (const std::string* text : {&ship.name, &ship.file, &ship.texture0, &ship.texture1}) {
      fuzz::Require(text->find_first_of("\r\n") == std::string::npos, "a text ends with its line");
    }
  }
  fuzz::Require(fuzz::ReadInput(name) == Bytes(data, data + size), "nothing is written");
  return 0;
}
