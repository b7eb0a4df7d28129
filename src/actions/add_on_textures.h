#pragma once

#include <string>
#include <vector>

#include "desk/host.h"
#include "installation/installation.h"

/// The textures of add-on ships: their names stand in the models, their bitmaps in `addons\textures\` of the program
/// folder.
namespace oravin {

/// The texture names of an add-on ship's model, as its record gets them.
struct AddOnTextures {
  std::vector<std::string> names;  ///< at most texturesPerShip
  bool tooMany = false;            ///< the model has more than a record can hold
};

/// Reads them. Boxes are those of GetShpTextureNames.
AddOnTextures TexturesOfModel(Host& host, const std::string& model);

/// Sets the texture names of a record; the others become empty.
void SetTextures(ShipRecord& ship, const std::vector<std::string>& names);

/// True when the game's texture cache has free slots for all that InstallAddOnTextures, and then LoadoutSetup, will add
/// for these ships. It goes through the same steps over the cache's table in memory: nothing is written, and no box
/// comes. What cannot be read takes no slot; the run itself tells about it.
/// @param ships records with the texture names that the catalogue will have
bool AddOnTexturesHaveSlots(const Installation& installation, const Ships& ships);

/// Adds the textures of all add-on ships of the catalogue to the game's texture cache, in one go. A texture that the
/// editor added before counts as installed; one of the game's own under that name gives ImportTexture's box and is the
/// one that the ship uses. The maps of the companions are not learned here: without `gloadconv.dat` 8-bit textures come
/// alone, and no box tells it. Bitmaps that are missing are named in one box at the end; those of ImportTexture come as
/// they do there. A full cache ends the program (ProgramEnd), after what was added before has become part of it.
void InstallAddOnTextures(Host& host, const Installation& installation);

}  // namespace oravin
