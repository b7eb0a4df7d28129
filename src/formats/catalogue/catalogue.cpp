#include "catalogue/catalogue.h"

#include "base/file_error.h"
#include "base/text.h"
#include "files/file.h"
#include "files/look_up.h"
#include "files/whole_file.h"

namespace oravin {

namespace {

/// Indices of ships are 16-bit signed numbers in the records.
constexpr std::uint64_t mostShips = 32767;

Bytes SlotIn(const std::string& path, const ShipRecord& ship) {
  auto slot = SlotOf(ship);
  if (!slot) throw FileError("could not write", path, "a record is longer than its slot");
  return std::move(*slot);
}

}  // namespace

bool FeaturesEnabled(Files& files, const std::string& path) {
  return FileExists(files, path) && FileLength(files, path) > 0;
}

Ships ReadCatalogue(Files& files, const std::string& path) {
  File file(files, path, OpenFor::reading);
  const std::uint64_t records = file.length / shipRecordSize;
  if (records >= mostShips) {
    throw FileError("could not read", path, "it is too large to be a ship catalogue", ErrorKind::tooMany);
  }
  Ships ships(static_cast<std::size_t>(records) + 1);  // and the sentinel
  Bytes slot(shipRecordSize);
  for (std::size_t i = 0; i < records; ++i) {
    Get(file, i * shipRecordSize, slot);
    const auto ship = RecordFrom(slot);
    if (!ship) {
      throw FileError("could not read", path, "record " + std::to_string(i + 1) + " is damaged", ErrorKind::damaged);
    }
    ships[i] = *ship;
  }
  MarkSecondParts(ships);
  return ships;
}

void MarkSecondParts(Ships& ships) {
  for (std::size_t i = 0; i < ships.size(); ++i) {
    const bool second = i + 1 < ships.size() && !IsInert(ships[i]) && !IsInert(ships[i + 1]) &&
                        SameName(ships[i].ShipName.Trimmed(), ships[i + 1].ShipName.Trimmed());
    ships[i].HasSecondPart = second;
    ships[i].SecondPartIndex = Int16Value(second ? static_cast<int>(i + 1) : 0);
  }
}

void PutShipRecord(Files& files, const std::string& path, const Ships& ships, std::size_t index) {
  const Bytes slot = SlotIn(path, ships.at(index));
  File file(files, path, OpenFor::changing);
  const std::uint64_t at = index * shipRecordSize;
  if (at + shipRecordSize > file.length) {
    throw FileError("could not write", path, "it has no record " + std::to_string(index + 1), ErrorKind::outside);
  }
  Put(file, at, slot);
}

Bytes CatalogueOf(const std::string& path, std::span<const ShipRecord> records) {
  Bytes all;
  all.reserve(records.size() * shipRecordSize);
  for (const ShipRecord& ship : records) {
    const Bytes slot = SlotIn(path, ship);
    all.insert(all.end(), slot.begin(), slot.end());
  }
  return all;
}

void WriteCatalogue(Files& files, const std::string& path, std::span<const ShipRecord> records) {
  WriteWhole(files, path, CatalogueOf(path, records));
}

}  // namespace oravin
