#pragma once

#include <optional>

#include "base/file_error.h"
#include "desk/host.h"
#include "installation/installation.h"

/// Default statistics: how they are kept, and how ships get them back. A stock ship's are in its block of
/// `shipstats.def`, an imported ship's in its statistics text.
namespace oravin {

/// A step of copying statistics that failed.
struct StatsFailure {
  const char* procedure;  ///< the step's error trap: "GetShipsStats", "GetImportStats" or "PutShipsStats"
  bool reading;           ///< false when the statistics were read and could not be written
  FileError error;
};

/// Copies the statistics of a block of `shipstats.def` into a block of `shipstats.bin`.
/// @return the step that failed; nothing when they were copied
std::optional<StatsFailure> CopyDefaultBlock(Files& files, const Installation& installation, int from, int to);

/// Writes the default statistics of one record to where its own are (SourceOf). An imported record without a text or
/// without a block of its own (HasNoDefault) is the caller's business.
/// @return the step that failed; nothing when they were written
std::optional<StatsFailure> RestoreDefault(Files& files, const Installation& installation, const ShipRecord& ship);

/// True for an imported record that nothing can be restored for.
bool HasNoDefault(Files& files, const Installation& installation, const ShipRecord& ship);

/// Copies the statistics of one block of `shipstats.bin` from the defaults. Boxes are those of GetShipsStats and
/// PutShipsStats (desk/error_boxes.h).
void RestoreBlock(Host& host, const Installation& installation, int block);

/// Restores the statistics of every stock ship from the defaults and then deletes the defaults, unless a file failed:
/// then they are still needed. Box "Error - Path(s) not found" when either file is missing.
void RestoreShipStats(Host& host, const Installation& installation);

/// The same without a catalogue: restores every block that both files have.
void RestoreAllBlocks(Host& host, const Installation& installation);

/// Sets up the statistics of changed ships when the features are enabled: a changed ship's defaults go into the block
/// of the ship that replaces it. Each pair is handled once, from the ship with the higher index. The defaults are kept.
void SetUpShipStats(Host& host, const Installation& installation);

/// Copies `shipstats.bin` to `shipstats.def` where the latter is missing. Without the former the box "Can't find
/// shipstats.bin".
void BackupShipStats(Host& host, const Installation& installation);

}  // namespace oravin
