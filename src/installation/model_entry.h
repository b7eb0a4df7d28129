#pragma once

#include <optional>
#include <string>

#include "archive/archive_table.h"
#include "catalogue/ship_record.h"
#include "installation/installation.h"

/// Which entry of the archive is a ship's stock model.
namespace oravin {

/// The entry of a model for the catalogue: the one of its name in the live table, else in the table's backup; as a last
/// resort the live entry with the model's disguised name, if there is exactly one.
/// @param live,backup the archive's table and its backup
std::optional<HogEntry> FindModel(const std::string& model, const HogTable& live, const HogTable& backup);

/// True when the live table lists the model under its disguised name only.
bool IsDisguised(const std::string& model, const HogTable& live);

/// The entry in a ship's record, if the archive still has it: at HogFatPos, with the ship's name (plain or disguised),
/// offset and size. Else the model must be looked up (LookUpModel).
/// @throws FileError when the archive cannot be read
std::optional<HogEntry> RecordedEntry(Files& files, const Installation& installation, const ShipRecord& ship);

/// The entry of a ship's model in the live table. A record without an entry is looked up by its plain name only: a
/// patch may have added the model.
/// @return nothing when the archive does not hold the model
std::optional<HogEntry> LookUpModel(const ShipRecord& ship, const HogTable& live);

}  // namespace oravin
