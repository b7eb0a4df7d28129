#pragma once

#include "archive/archive_table.h"
#include "desk/host.h"
#include "installation/installation.h"

namespace oravin {

/// Undoes what enabling did in the archive and in the game's ships folder, ship by ship of the catalogue.
///
/// A stock ship's name is restored in the archive's table, as the table's backup spells it at the same position, else
/// as the catalogue does. Names that are no longer at their position stay as they are, and one message box lists them.
/// The ship's loose model and its ".org" are deleted.
///
/// An add-on ship's loose model is deleted, and its ".bak" if that is a copy of the add-on. If the add-on's own file is
/// gone, the user is asked once whether to delete imported ships. Intentional: they are deleted with their ".bak"
/// whatever the answer is.
///
/// Without the archive, "Error - hog not found" titled "RestoreHog" is shown and nothing is done.
///
/// @param backup the table's backup; may be empty
/// @return false when a file could not be changed or deleted, after a message box: then the catalogue is still needed
bool RestoreHog(Host& host, const Installation& installation, const HogTable& backup);

/// The same without a catalogue: every name of the table's backup that is disguised at its position is restored, and
/// that model's loose file and ".org" are deleted.
bool RestoreHogByBackup(Host& host, const Installation& installation, const HogTable& backup);

}  // namespace oravin
