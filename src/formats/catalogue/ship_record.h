#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/bytes.h"
#include "base/ship_fields.h"
#include "base/tagged_value.h"

namespace oravin {

inline constexpr std::size_t texturesPerShip = 21;

/// The slot of one record in `ships.dat`, in bytes. The fields start it; the rest is zero and never read.
inline constexpr std::size_t shipRecordSize = 868;

/// The highest index of a ship or of a block of statistics: a record's index is a signed number of 16 bits.
inline constexpr int highestIndex = 32767;

/// One ship of the catalogue. Field names and order are those of the file.
struct ShipRecord {
  ShipText ShipName;       ///< shown in the lists
  ShipText ShipFile;       ///< the model's file name in the game's ships folder
  TaggedValue ShipKind;    ///< 1 and 2 are kinds of stock ships, 3 an imported one
  TaggedValue HogOffset;   ///< where the stock model's bytes start in the archive; 0 for imported ships
  TaggedValue HogSize;     ///< how many bytes these are, as stored
  TaggedValue HogFatPos;   ///< where the archive's table lists the model; 0 where it does not
  TaggedValue StatsIndex;  ///< the ship's block in the statistics files, from 0
  std::array<ShipText, texturesPerShip> Textures;
  bool HasSecondPart = false;   ///< this record and the next one are one ship; found anew at every load
  TaggedValue SecondPartIndex;  ///< the next record's index where HasSecondPart is set, else 0
  bool Changed = false;         ///< the stock ship is replaced by another one now
  TaggedValue ChangedToIndex;   ///< the replacing ship's index
  bool Imported = false;        ///< the model comes from the add-on ships
  ShipText ChangedToName;       ///< the replacing ship's ShipName
  ShipText ChangedToFile;       ///< the replacing ship's ShipFile

  bool operator==(const ShipRecord&) const = default;
};

using Ships = std::vector<ShipRecord>;

/// The record in its slot of shipRecordSize bytes:
///
///   ShipName 30 | ShipFile 30 | ShipKind | HogOffset | HogSize | HogFatPos | StatsIndex | Textures 21 x 30 |
///   HasSecondPart 2 | SecondPartIndex | Changed 2 | ChangedToIndex | Imported 2 | ChangedToName 30 | ChangedToFile 30
///
/// field by field without gaps; texts padded with spaces, flags FFFF or 0000, the others tagged values.
/// @return nothing when tagged texts make the record longer than its slot
std::optional<Bytes> SlotOf(const ShipRecord& ship);

/// Reads a record from its slot.
/// @return nothing when a tag is unknown or the fields reach past the slot
std::optional<ShipRecord> RecordFrom(std::span<const std::uint8_t> slot);

/// The model's file name without its padding.
std::string ModelOf(const ShipRecord& ship);

/// The model's file name with its extension replaced by ".org": the file name of the stock model while it is replaced.
std::string BackupOf(const ShipRecord& ship);

/// True for a record that every loop skips: its ShipFile is empty (the sentinel that loading adds at the end), or is
/// not a plain file name, which only a damaged catalogue holds.
bool IsInert(const ShipRecord& ship);

/// The index that a record's field holds; -1 when it is out of range, as in a damaged catalogue.
int IndexIn(const TaggedValue& field);

/// True for a ship whose model lies in the game's archive.
bool IsStock(const ShipRecord& ship);

/// How many records a target spans: 2 when it has a second part.
int PartsOf(const ShipRecord& ship);

/// The first ship of that name in array order, compared without spaces at the ends and without regard to case; -1 when
/// there is none. Inert records are skipped.
int FindShip(const Ships& ships, const std::string& name);

}  // namespace oravin
