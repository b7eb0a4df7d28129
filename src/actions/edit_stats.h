#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "desk/host.h"
#include "installation/installation.h"
#include "stats/ship_stats.h"

/// Changes of ships' statistics. A two-part ship is one ship, as in a swap; only an edited value goes into the block of
/// the given record alone. Ships are given by their index in the catalogue, which must not be that of an inert record.
namespace oravin {

/// Reads a ship's own statistics (SourceOf). Boxes are those of GetShipsStats (desk/error_boxes.h).
/// @return nothing after a box
std::optional<ShipStats> GetShipsStats(Host& host, const Installation& installation, const ShipRecord& ship);

/// Writes one statistic into the ship's block.
///
/// An empty text is 0. The four inertia rows take 0 to 1, else the box "Inertia must be a value between 0 and 1."; the
/// others 0 to 10,000,000, else the box "This value must be between 0 and 10,000,000". A text that is no number gets
/// the same box.
/// @param row of statsRows, counted from 0
/// @return the value that was written; nothing where it was refused or could not be written, after a box
std::optional<float> EditStat(Host& host, const Installation& installation, const ShipRecord& ship, std::size_t row,
                              const std::string& text);

/// Writes the present statistics of one ship, those of its first block, into the own block of each part of another, as
/// a swap does.
/// @return whether anything was written
bool PasteStats(Host& host, const Installation& installation, int from, int to);

/// Restores the default statistics of each part of a ship. An imported part without a statistics text has none: the box
/// "Imported Ships have no default", once, after the other part has been restored. Of a file that fails there is one
/// box.
void RestoreDefaults(Host& host, const Installation& installation, int ship);

/// The same for every ship. One box at the end says how many were restored and which could not be, and why.
/// @return false when nothing was tried: no catalogue is loaded, or a box has said what cannot be written
bool RestoreAllDefaults(Host& host, const Installation& installation);

}  // namespace oravin
