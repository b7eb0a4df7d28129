// Fuzzes the loader of the ship catalogue: whatever the file holds, the records can be worked with and written back.

#include "catalogue/catalogue.h"

#include "base/file_error.h"
#include "input_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace oravin;
  fuzz::WriteInput("ships.dat", {data, size});
  Files files;
  Ships ships;
  try {
    ships = ReadCatalogue(files, fuzz::Folder().windows + "ships.dat");
    fuzz::Require(ships.size() == size / shipRecordSize + 1, "there is one record more than in the file");
    fuzz::Require(IsInert(ships.back()), "the sentinel is inert");
  } catch (const FileError& error) {
    fuzz::Require(error.kind == ErrorKind::damaged || error.kind == ErrorKind::tooMany, "the catalogue is refused");
  }
  fuzz::Require(files.open == 0, "no file stays open");
  for (std::size_t i = 0; i < ships.size(); ++i) {
    const ShipRecord& ship = ships[i];
    fuzz::Require(i + static_cast<std::size_t>(PartsOf(ship)) <= ships.size(), "a second part is there");
    fuzz::Require(!IsStock(ship) || !IsInert(ship), "a stock ship has a model");
    fuzz::Require(IsInert(ship) || FindShip(ships, ship.ShipName.Trimmed()) <= static_cast<int>(i),
                  "a ship's name finds it or an earlier one");
    for (const TaggedValue* value :
         {&ship.ShipKind, &ship.HogOffset, &ship.HogSize, &ship.HogFatPos, &ship.StatsIndex, &ship.ChangedToIndex}) {
      WholeNumber(*value);
      Unsigned32(*value);
    }
    const auto slot = SlotOf(ship);
    if (!slot) continue;  // its texts fill the slot, and the index of its second part needs more room than before
    const auto again = RecordFrom(*slot);
    fuzz::Require(slot->size() == shipRecordSize && again.has_value(), "what is written can be read");
    fuzz::Require(SlotOf(*again) == slot, "and is written as before");
  }
  fuzz::Require(fuzz::ReadInput("ships.dat") == Bytes(data, data + size), "nothing is written");
  return 0;
}
