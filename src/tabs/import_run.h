#pragma once

#include <functional>

#include "tabs/import_form.h"

namespace oravin {

/// What the caller does between the steps of an import.
struct ImportSteps {
  std::function<void()> closeOthers;    ///< closes the files that other tabs hold open
  std::function<void()> refill;         ///< shows the changed catalogue in the lists of the tabs
  std::function<void()> showUnswapped;  ///< shows that no ship is swapped
};

/// True when ships can be imported: the installation is enabled. If not, a box says so.
bool CanBeImportedInto(Host& host, const Installation& installation);

/// Imports the checked ships of the form into the enabled installation, closes the form, and tells the result.
///
/// Each ship's model goes into the game's ships folder, with a copy beside it (".bak") to restore its weapons from; its
/// textures into the texture cache; model, bitmaps and statistics text to the add-ons; its block to `shipstats.def`; a
/// record to the catalogue and a line to the ship list. A ship that fails leaves nothing of itself; the others stay.
/// One of whose bitmaps another one of the same name lies among the add-ons fails, and the result message names it. A
/// full texture cache ends the program (ProgramEnd), after the ships before have been imported.
///
/// Boxes: "Ships marked in red have the same names as an existing ship in Oravin." ..., after which nothing is
/// imported; those of LookAtShip and ImportTexture for a ship; once a run the warning about a fighter's 24-bit images;
/// the question whether to make the switches that the pack suggests, when an imported ship suggests one for a stock
/// ship: on Yes all ships are put back first; at last "Importing Successfull!" or "Importing Completed - but there
/// where errors on some ships", followed by all ships that were not imported and all notes. Then the game folder's
/// model tool is started with the imported ships' names, where there is one.
///
void cmdImportShips_Click(Host& host, Installation& installation, FighterPack& form, const ImportSteps& steps);

}  // namespace oravin
