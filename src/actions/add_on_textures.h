#pragma once

#include <string>
#include <vector>

#include "desk/host.h"
#include "installation/installation.h"

/// The textures of add-on ships: their names are in the models, their bitmaps in `addons\textures\` of the program
/// folder.
namespace oravin {

/// The texture names of an add-on ship's model, as its record gets them.
struct AddOnTextures {
  std::vector<std::string> names;  ///< at most texturesPerShip
  bool tooMany = false;            ///< the model has more than a record can hold
};

/// Reads them.
/// @throws FileError when the model is damaged or cannot be read
AddOnTextures TexturesOfModel(Files& files, const std::string& model);

/// Sets the texture names of a record; the others become empty.
void SetTextures(ShipRecord& ship, const std::vector<std::string>& names);

/// True when the game's texture cache has free slots for all that InstallAddOnTextures, and then LoadoutSetup, will add
/// for these ships. It goes through the same steps over the cache's table in memory, writes nothing and shows no box. A
/// file that cannot be read takes no slot; the run itself reports it.
/// @param ships records with the texture names that the catalogue will have
bool AddOnTexturesHaveSlots(Files& files, const Installation& installation, const Ships& ships);

/// Adds the textures of all add-on ships of the catalogue to the game's texture cache, in one go. A texture that an
/// editor added before counts as installed; one of the game's own of that name gives AddTexture's box, and the ship
/// uses that one. The maps of the companions are not learned here: without `gloadconv.dat` 8-bit textures come alone,
/// without a box. Missing bitmaps are named in one box at the end. A full cache ends the program (ProgramEnd), after
/// the textures before have been committed.
void InstallAddOnTextures(Host& host, const Installation& installation);

}  // namespace oravin
