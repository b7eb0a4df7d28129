#pragma once

#include <span>
#include <string>

#include "catalogue/ship_record.h"
#include "desk/host.h"

/// The ship catalogue `ships.dat` in the program folder: records of shipRecordSize bytes, one after the other, without
/// a header. Whether a ship is changed is known from here alone.
namespace oravin {

/// The editing features are enabled exactly while the catalogue exists and is not empty.
bool FeaturesEnabled(Files& files, const std::string& path);

/// Loads the catalogue. The array gets one element more than the file holds records; that last one is empty. This is
/// meant: nothing shows it, and every loop passes it over (IsInert). Then every ship's second part is found anew
/// (MarkSecondParts).
///
/// @param path the path of the catalogue's file
/// @return the number of elements. A file that cannot be read or holds a damaged record gives a box titled
///   "LoadCatalogue", 0, and an empty array
int LoadCatalogue(Host& host, const std::string& path, Ships& ships);

/// Two consecutive records with one name are the two parts of one ship; the first of them is marked with it.
void MarkSecondParts(Ships& ships);

/// Writes one record back to its slot in the catalogue.
/// @throws FileError when the file is missing, ends before the slot or cannot be written
void PutShipRecord(Files& files, const std::string& path, const Ships& ships, std::size_t index);

/// The bytes of a catalogue's file.
/// @throws FileError when a record does not fit its slot
Bytes CatalogueOf(const std::string& path, std::span<const ShipRecord> records);

/// Writes the catalogue whole.
/// @param records as many as the file is to hold, from the first one on: the surplus element that loading adds is not
///   one of them
/// @throws FileError when that fails; then the old catalogue is as it was
void WriteCatalogue(Files& files, const std::string& path, std::span<const ShipRecord> records);

}  // namespace oravin
