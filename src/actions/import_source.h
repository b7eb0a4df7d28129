#pragma once

#include <optional>
#include <string>
#include <vector>

#include "actions/model_textures.h"
#include "desk/host.h"
#include "installation/installation.h"
#include "lists/ship_pack.h"

/// The ships that can be imported from a file: those of a ship pack, or the one of a single model.
namespace oravin {

/// A ship that can be imported, with what the user has chosen for it.
struct OfferedShip {
  PackShip ship;            ///< with the name as it was edited
  bool capital = false;     ///< the model is a capital ship's; a missing or damaged one counts as a fighter
  bool modelFound = false;  ///< the model was there when the file was loaded
  bool checked = true;      ///< is to be imported
  bool nameTaken = false;   ///< see MarkTakenNames
  GivenBitmaps given;       ///< the bitmaps that the user has given for its textures
};

struct ImportSource {
  std::string folder;  ///< of the pack or model, ending in a backslash
  std::vector<OfferedShip> ships;
};

/// Loads a pack, or a single model (`*.shp`), whose ship is named as the file without its last 4 characters.
///
/// A missing pack gives the box "Error in GetPAK - file not found" with the information icon, and the program ends
/// (ProgramEnd). Another error of a pack gives the error trap's box titled "GetPAK", a missing single model the box of
/// IsCapitalShip. Missing models of a pack give no boxes: the import reports them.
/// @param path spaces at its ends do not count
/// @return nothing after a box; a pack may list no ships
std::optional<ImportSource> LoadImportSource(Host& host, const std::string& path);

/// Sets nameTaken of every ship: its name is that of a ship of the catalogue, or of a checked ship before it, since two
/// ships of one name cannot both be imported. Names are compared without spaces at the ends and without regard to case.
void MarkTakenNames(const Ships& catalogue, std::vector<OfferedShip>& ships);

/// True when a checked ship's name is taken: nothing may be imported then.
bool AnyNameTaken(const std::vector<OfferedShip>& ships);

/// The checked ships, without spaces at the ends of their names.
std::vector<OfferedShip> CheckedShips(const std::vector<OfferedShip>& ships);

/// Why a ship cannot get a name: no ship can have it (WhyNoShipName), or one of these ships has it. A sentence; empty
/// when it can.
std::string WhyNameRefused(const Ships& ships, const std::string& name);

}  // namespace oravin
