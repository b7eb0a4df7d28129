#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "actions/import_source.h"
#include "desk/host.h"
#include "installation/installation.h"

namespace oravin {

/// A ship that was not imported.
struct RefusedShip {
  std::string name;
  std::vector<std::string> reasons;  ///< for the result message; none where a box has said why
};

/// What an import has done.
struct ImportResult {
  std::vector<PackShip> imported;
  std::vector<RefusedShip> refused;  ///< as far as the run has come
  std::vector<std::string> notes;    ///< for the result message, about what was imported; a sentence each
  bool stopped = false;              ///< the user stopped it
};

/// True when ships can be imported: the features are enabled. If not, a box says so.
bool CanBeImportedInto(Host& host, const Installation& installation);

/// True when an import of the checked ships can start. Otherwise a box says why not: CanBeImportedInto, "Ships marked
/// in red have the same names as an existing ship in Oravin." ..., or nothing is checked.
bool CanImport(Host& host, const Installation& installation, const std::vector<OfferedShip>& ships);

/// Imports the checked ships into the enabled installation.
///
/// Each ship's model goes into the game's ships folder, with a copy next to it (".bak") to restore its weapons from;
/// its textures into the texture cache; model, bitmaps and statistics text to the add-ons; its block to
/// `shipstats.def`; a record to the catalogue and a line to the ship list. A ship that fails leaves nothing of itself;
/// the others stay. A ship fails when the add-ons have another bitmap of one of its bitmaps' names. A full texture
/// cache ends the program (ProgramEnd), after the ships before it have been imported.
///
/// Boxes: those of ReadyToWrite and BeginImport, after which nothing is imported; those of LookAtShip and ImportTexture
/// for a ship; once in a run the warning about a fighter's 24-bit images; those of CommitImport.
/// @return nothing when the import did not start
std::optional<ImportResult> ImportShips(Host& host, Installation& installation,
                                        const std::vector<OfferedShip>& offered);

/// The names of the switches that imported ships suggest for stock ships: the stock ship's and the imported one's.
std::vector<std::pair<std::string, std::string>> SuggestedSwitches(const Ships& ships, const ImportResult& result);

/// Asks whether to make the suggested switches.
bool AskForSwitches(Host& host);

/// Shows the result message: "Importing Successfull!" or "Importing Completed - but there where errors on some ships",
/// then all ships that were not imported, with the reasons, and the notes.
void ShowImportResult(Host& host, const ImportResult& result);

/// Starts the game folder's model tool with the imported ships' names, where there is one.
void StartShipTool(Files& files, const Installation& installation, const ImportResult& result);

}  // namespace oravin
