#pragma once

#include <optional>
#include <string>
#include <vector>

#include "archive/archive_table.h"
#include "catalogue/ship_record.h"

/// Which entry of the archive is a ship's stock model.
namespace oravin {

/// A table with its names at hand.
struct HogTable {
  std::vector<HogEntry> entries;
  HogNames names;
};

HogTable TableOf(std::vector<HogEntry> entries);

/// The entry of a model for the catalogue: the one of its name in the live table, else in the backup of the table; as
/// the last resort the one live entry that bears the model's disguised name, if there is exactly one.
std::optional<HogEntry> FindModel(const std::string& model, const HogTable& live, const HogTable& backup);

/// True when the live table lists the model under its disguised name alone.
bool IsDisguised(const std::string& model, const HogTable& live);

/// The live entry of a ship whose record says where it was: the record's own, as long as the entry at its HogFatPos is
/// still this ship's (plain or disguised) with the same offset and size; otherwise the model is looked up anew.
/// @param hogPath the live archive
/// A record without an entry is looked up by its plain name: a patch may have brought the model.
/// @return nothing when the archive does not hold the model
/// @throws FileError when the archive or its table cannot be read
std::optional<HogEntry> LiveEntryOf(Host& host, const std::string& hogPath, const ShipRecord& ship);

}  // namespace oravin
