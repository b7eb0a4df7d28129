#pragma once

#include "desk/host.h"
#include "files/file.h"
#include "tabs/archive_tab.h"

namespace oravin {

/// Writes the selected entries as they are stored into the destination folder, in the list's order, with the folders
/// that their names tell.
///
/// Boxes: "Destination path doesn't exist"; one that lists what was not written and why (a name that would leave the
/// destination, a second file of the same name); "Extraction Complete" at the end, or how far it came when the person
/// stopped it. A damaged entry or a full disk ends it through the error trap. What was written whole stays.
void cmdExtract_Click(Host& host, HogTab& tab);

/// The same, unpacked. An entry that is not compressed is asked about: Yes writes it as it is stored, No leaves it out,
/// Cancel ends with "Exiting unpack / extract function". After No and Cancel there is no file of its name in the
/// destination: one that was there is deleted.
void cmdUnpackExtract_Click(Host& host, HogTab& tab);

/// True when an entry's bytes begin with the signature of compressed ones.
bool IsCompressed(File& hog, const HogEntry& entry);

/// Tells why an entry's bytes cannot be read from an archive: they do not lie inside it. Empty where they can.
std::string WhyNotInside(const File& hog, const HogEntry& entry);

}  // namespace oravin
