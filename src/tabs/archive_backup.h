#pragma once

#include "desk/host.h"
#include "tabs/archive_tab.h"

namespace oravin {

/// Saves the open archive's header and table, its first H bytes, beside the archive under its name with the extension
/// ".FAT". Asks before it replaces an older backup, which stays until the new one is complete.
///
/// Boxes: the question; "Couldn't create FAT backup file." where there is none afterwards; one for an H that cannot be
/// right, and the error trap's.
void cmdBackupFAT_Click(Host& host, HogTab& tab);

/// Writes the backup's first H bytes back over the start of the open archive, after a warning, and lists the entries
/// anew. Nothing is written unless the backup is an archive's and has all these bytes.
///
/// Boxes: "Restore file can't be found. Restore aborted."; the warning; one for a backup or an H that cannot be right,
/// and the error trap's.
void cmdRestoreFAT_Click(Host& host, HogTab& tab);

}  // namespace oravin
