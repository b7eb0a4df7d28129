#pragma once

#include <span>
#include <string>

#include "catalogue/ship_record.h"
#include "files/files.h"

/// The ship catalogue `ships.dat` in the program folder: records of shipRecordSize bytes, one after the other, without
/// a header. It alone knows which ships are changed.
namespace oravin {

/// The editing features are enabled exactly while the catalogue exists and is not empty.
bool FeaturesEnabled(Files& files, const std::string& path);

/// Reads the catalogue. The array gets one element more than the file holds records: an empty sentinel, which is inert
/// (IsInert). Then every ship's second part is marked (MarkSecondParts).
/// @param path the path of the catalogue's file
/// @throws FileError when the file cannot be read, is too large or holds a damaged record
Ships ReadCatalogue(Files& files, const std::string& path);

/// Marks the first of two consecutive records with one name: they are the two parts of one ship.
void MarkSecondParts(Ships& ships);

/// Writes one record back to its slot in the catalogue.
/// @throws FileError when the file is missing, ends before the slot or cannot be written
void PutShipRecord(Files& files, const std::string& path, const Ships& ships, std::size_t index);

/// The bytes of a catalogue's file.
/// @throws FileError when a record does not fit its slot
Bytes CatalogueOf(const std::string& path, std::span<const ShipRecord> records);

/// Writes the whole catalogue.
/// @param records without the sentinel that loading adds
/// @throws FileError when that fails; then the old catalogue is unchanged
void WriteCatalogue(Files& files, const std::string& path, std::span<const ShipRecord> records);

}  // namespace oravin
