#pragma once

#include <string>

#include "app/main.h"

namespace oravin {

/// Opens the import form for a ship model or a ship pack, which becomes the text of txtImportFighter.
void ImportFile(Main& main, const std::string& path);

/// Imports the checked ships of the import form (ImportShips), shows the changed catalogue, makes the switches that the
/// ships suggest if the user wants them, closes the form and shows the result. All ships are restored before the
/// switches are made. At last the game folder's model tool is started, where there is one.
void cmdImportShips_Click(Main& main);

}  // namespace oravin
