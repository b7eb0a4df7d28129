#pragma once

#include "archive/open_archive.h"
#include "desk/host.h"

/// The backup of an open archive's header and table, its first H bytes, in the archive's folder (FatBackupOf).
namespace oravin {

enum class TableCopy {
  declined,  ///< by the user, or it could not be tried
  failed,    ///< after a message box; a table being restored may have been changed in part
  done,
};

/// Saves the backup. Asks before it replaces an older one, which stays until the new one is complete.
///
/// Message boxes titled "cmdBackupFAT_Click()" when H cannot be right or a file fails.
TableCopy BackUpTable(Host& host, OpenArchive& archive);

/// Writes the backup over the start of the archive, after a warning. Nothing is written unless the backup is an
/// archive's and has all H bytes. The archive's entries are not read again.
///
/// Message boxes: that the archive is read-only; "Restore file can't be found. Restore aborted."; the warning; one
/// titled "cmdRestoreFAT_Click()" for a wrong backup, an H that cannot be right or a file that fails.
TableCopy RestoreTable(Host& host, OpenArchive& archive);

}  // namespace oravin
