#pragma once

#include <optional>
#include <string>

#include "archive/archive_table.h"
#include "catalogue/ship_record.h"
#include "desk/host.h"
#include "installation/installation.h"

/// Loads tables of archives, repairing a damaged count.
namespace oravin {

/// The number of entries of the game's archive, which a damaged count of 0 is repaired to.
inline constexpr std::uint32_t repairedHogCount = 967;

struct LoadedTable {
  HogTable table;         ///< empty when the table could not be read
  bool repaired = false;  ///< the count was 0 and has been repaired
};

/// Reads an archive's table.
///
/// A count of 0 is repaired if the file can be written: after a message box, 967 is written over it and used for this
/// read. Intentional: the number is fixed, and it is written little-endian although the count is big-endian, so the
/// next read finds an enormous count and is refused. This is how the editor has always repaired it.
///
/// Message boxes titled "GetHogData": "Error - hog not found" where FileExists says so; the general one when the file
/// or its table cannot be read whole, or its count cannot be repaired.
LoadedTable LoadHogTable(Host& host, const std::string& path);

/// Reads the table's backup in the program folder, as LoadHogTable does; without one, an empty table and no message.
HogTable LoadFatBackup(Host& host, const Installation& installation);

/// Where the archive holds a ship's model now: at the place in its record, or looked up in the table.
/// @return nothing when the archive does not hold the model
/// @throws FileError when the archive or its table cannot be read; for the table, after LoadHogTable's message boxes
std::optional<HogEntry> LiveEntryOf(Host& host, const Installation& installation, const ShipRecord& ship);

}  // namespace oravin
