// Fuzzes the reader of the ship list: a list is read whole within its limits, or refused with an error.

#include "lists/ship_list.h"

#include "base/bytes.h"
#include "base/file_error.h"
#include "base/text.h"
#include "files/path.h"
#include "input_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace oravin;
  constexpr const char* name = "shipsData.txt";
  fuzz::WriteInput(name, {data, size});
  Files files;
  std::vector<ListedShip> ships;
  try {
    ships = ReadShipList(files, fuzz::Folder().windows + name);
    fuzz::Require(!ships.empty(), "a list has a ship");
  } catch (const FileError& error) {
    fuzz::Require(error.kind != ErrorKind::missing, "the list is there");
  }
  fuzz::Require(files.open == 0, "no file stays open");
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
