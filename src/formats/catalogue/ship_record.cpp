#include "catalogue/ship_record.h"

#include <algorithm>

#include "files/path.h"

namespace oravin {

namespace {

/// Calls `visit` with each field, in file order: one list for reading and writing.
/// @return false once `visit` has returned false
template <typename Record, typename Visit>
bool EachField(Record& ship, Visit&& visit) {
  const bool head = visit(ship.ShipName) && visit(ship.ShipFile) && visit(ship.ShipKind) && visit(ship.HogOffset) &&
                    visit(ship.HogSize) && visit(ship.HogFatPos) && visit(ship.StatsIndex);
  if (!head) return false;
  for (auto& texture : ship.Textures) {
    if (!visit(texture)) return false;
  }
  return visit(ship.HasSecondPart) && visit(ship.SecondPartIndex) && visit(ship.Changed) &&
         visit(ship.ChangedToIndex) && visit(ship.Imported) && visit(ship.ChangedToName) && visit(ship.ChangedToFile);
}

struct Writer {
  Bytes bytes;

  bool operator()(const ShipText& text) {
    bytes.insert(bytes.end(), text.characters.begin(), text.characters.end());
    return true;
  }
  bool operator()(const TaggedValue& value) {
    AppendTagged(bytes, value);
    return true;
  }
  bool operator()(const bool& flag) {
    bytes.insert(bytes.end(), 2, flag ? std::uint8_t{0xFF} : std::uint8_t{0});
    return true;
  }
};

struct Reader {
  std::span<const std::uint8_t> bytes;
  std::size_t at = 0;

  bool operator()(ShipText& text) {
    if (bytes.size() - at < ShipText::width) return false;
    std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(at), ShipText::width, text.characters.begin());
    at += ShipText::width;
    return true;
  }
  bool operator()(TaggedValue& value) {
    auto taken = TakeTagged(bytes, at);
    if (!taken) return false;
    value = std::move(*taken);
    return true;
  }
  bool operator()(bool& flag) {
    if (bytes.size() - at < 2) return false;
    flag = bytes[at] != 0 || bytes[at + 1] != 0;
    at += 2;
    return true;
  }
};

}  // namespace

std::optional<Bytes> SlotOf(const ShipRecord& ship) {
  Writer writer;
  EachField(ship, writer);
  if (writer.bytes.size() > shipRecordSize) return std::nullopt;
  writer.bytes.resize(shipRecordSize);
  return writer.bytes;
}

std::optional<ShipRecord> RecordFrom(std::span<const std::uint8_t> slot) {
  ShipRecord ship;
  Reader reader{slot.first(std::min(slot.size(), shipRecordSize))};
  if (!EachField(ship, reader)) return std::nullopt;
  return ship;
}

std::string ModelOf(const ShipRecord& ship) { return ship.ShipFile.Trimmed(); }

std::string BackupOf(const ShipRecord& ship) { return ChangeExtension(ModelOf(ship), ".org"); }

bool IsInert(const ShipRecord& ship) { return !IsPlainFileName(ModelOf(ship)); }

int IndexIn(const TaggedValue& field) {
  const std::int64_t index = WholeNumber(field);
  return index < 0 || index > highestIndex ? -1 : static_cast<int>(index);
}

bool IsStock(const ShipRecord& ship) { return !IsInert(ship) && !ship.Imported; }

int PartsOf(const ShipRecord& ship) { return ship.HasSecondPart ? 2 : 1; }

int FindShip(const Ships& ships, const std::string& name) {
  for (std::size_t i = 0; i < ships.size(); ++i) {
    if (!IsInert(ships[i]) && SameName(ships[i].ShipName.Trimmed(), name)) return static_cast<int>(i);
  }
  return -1;
}

}  // namespace oravin
