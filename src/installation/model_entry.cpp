#include "installation/model_entry.h"

#include "archive/disguise.h"
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

std::optional<HogEntry> FindModel(const std::string& model, const HogTable& live, const HogTable& backup) {
  const HogEntry* found = FirstNamed(live, model);
  if (found == nullptr) found = FirstNamed(backup, model);
  if (found == nullptr) found = OnlyNamed(live, Disguised(model));
  return found == nullptr ? std::nullopt : std::optional(*found);
}

bool IsDisguised(const std::string& model, const HogTable& live) {
  return FirstNamed(live, model) == nullptr && FirstNamed(live, Disguised(model)) != nullptr;
}

std::optional<HogEntry> RecordedEntry(Files& files, const Installation& installation, const ShipRecord& ship) {
  File archive(files, installation.archivePath(), OpenFor::reading);
  if (Unsigned32(ship.HogFatPos) == 0 || !RecordHolds(archive, ship)) return std::nullopt;
  return HogEntry{ModelOf(ship), Unsigned32(ship.HogSize), Unsigned32(ship.HogOffset), Unsigned32(ship.HogFatPos)};
}

std::optional<HogEntry> LookUpModel(const ShipRecord& ship, const HogTable& live) {
  if (Unsigned32(ship.HogFatPos) != 0) return FindModel(ModelOf(ship), live, {});
  // A model that was not in the archive has no disguised name there either.
  const HogEntry* found = FirstNamed(live, ModelOf(ship));
  return found == nullptr ? std::nullopt : std::optional(*found);
}

}  // namespace oravin
