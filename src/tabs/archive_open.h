#pragma once

#include "desk/host.h"
#include "tabs/archive_tab.h"

namespace oravin {

/// Asks for an archive; the chosen one goes into txtHogPath.
void cmdBrowseHogPath_Click(Host& host, HogTab& tab);

/// Asks for the folder that files are extracted to; it goes into txtHogDest, with a backslash at its end.
void cmdBrowseHogDest_Click(Host& host, HogTab& tab);

/// Opens the archive that txtHogPath names and lists its entries. Where it cannot be written it is opened
/// for reading.
///
/// A count of 0 or of more than 100,000 is taken to be damaged: then size, count and table size come from the table's
/// backup beside the archive, and the entries from the archive as ever.
///
/// Boxes: "File not found"; "This file is not a valid SL Hog file", after which an archive that was open stays open;
/// one for a damaged count without a backup, and the error trap's for a damaged table, after which none is open.
void cmdOpen_Click(Host& host, HogTab& tab);

/// Closes the archive and empties the list.
void cmdCloseHog_Click(HogTab& tab);

/// Reads the header and the table of the open archive anew and lists them.
/// @return whether they could be read; if not, the box has been shown and no archive is open
bool ReadArchive(Host& host, HogTab& tab);

}  // namespace oravin
