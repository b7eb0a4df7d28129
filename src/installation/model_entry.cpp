#include "installation/model_entry.h"

#include "archive/disguise.h"
#include "base/file_error.h"
#include "files/file.h"
#include "files/file_numbers.h"

namespace oravin {

namespace {

const HogEntry* FirstNamed(const HogTable& table, const std::string& name) {
  const std::vector<int>& found = EntriesNamed(table.names, name);
  return found.empty() ? nullptr : &table.entries[static_cast<std::size_t>(found.front())];
}

const HogEntry* OnlyNamed(const HogTable& table, const std::string& name) {
  return EntriesNamed(table.names, name).size() == 1 ? FirstNamed(table, name) : nullptr;
}

bool RecordHolds(File& file, const ShipRecord& ship) {
  const std::uint32_t fatPos = Unsigned32(ship.HogFatPos);
  return NamesModel(file, fatPos, ModelOf(ship)) && ReadLongBE(file, fatPos) == Unsigned32(ship.HogOffset) &&
         ReadLongBE(file, std::uint64_t{fatPos} + 4) == Unsigned32(ship.HogSize);
}

}  // namespace

HogTable TableOf(std::vector<HogEntry> entries) {
  HogTable table;
  table.names = NamesOf(entries);
  table.entries = std::move(entries);
  return table;
}

std::optional<HogEntry> FindModel(const std::string& model, const HogTable& live, const HogTable& backup) {
  const HogEntry* found = FirstNamed(live, model);
  if (found == nullptr) found = FirstNamed(backup, model);
  if (found == nullptr) found = OnlyNamed(live, Disguised(model));
  return found == nullptr ? std::nullopt : std::optional(*found);
}

bool IsDisguised(const std::string& model, const HogTable& live) {
  return FirstNamed(live, model) == nullptr && FirstNamed(live, Disguised(model)) != nullptr;
}

std::optional<HogEntry> LiveEntryOf(Host& host, const std::string& hogPath, const ShipRecord& ship) {
  const bool known = Unsigned32(ship.HogFatPos) != 0;
  File archive(host.files, hogPath, OpenFor::reading);
  if (known && RecordHolds(archive, ship)) {
    return HogEntry{ModelOf(ship), Unsigned32(ship.HogSize), Unsigned32(ship.HogOffset), Unsigned32(ship.HogFatPos)};
  }
  Close(archive);
  std::string path = hogPath;
  std::vector<HogEntry> entries;
  // An archive whose table cannot be read may well hold the model: that is not the same as one without it.
  if (GetHogData(host, path, entries) == 0) {
    throw FileError("could not look for " + ModelOf(ship) + " in", hogPath, "its table cannot be read");
  }
  const HogTable live = TableOf(std::move(entries));
  if (known) return FindModel(ModelOf(ship), live, {});
  // A model that was in the archive nowhere has no disguised name of its own there.
  const HogEntry* found = FirstNamed(live, ModelOf(ship));
  return found == nullptr ? std::nullopt : std::optional(*found);
}

}  // namespace oravin
