#pragma once

#include <cstddef>
#include <string>

#include "desk/host.h"
#include "installation/installation.h"
#include "textures/cache_table.h"

/// The companions of ship textures: for the loadout screen the game has every 8-bit ship texture a second time, in that
/// screen's palette, named "g" and the texture's name.
namespace oravin {

/// How many textures of a ship record LoadoutSetup uses.
inline constexpr std::size_t loadoutTextures = 2;

/// Makes the companions of the textures of the ship records that are marked as imported: of the first two texture names
/// of each, where they are names of 8-bit textures.
///
/// A companion that is there already gives ImportTexture's box about its name, and the run goes on. These end it:
/// "Error - Path(s) not found", critical, titled "LoadoutSetup": the program folder or the cache is missing; "Error -
/// Texture not found", titled "LoadoutSetup"; "Error in TCACHE. Can't find NAME!", critical: an entry without a data
/// offset; and those in desk/error_boxes.cpp under "LoadoutSetup" and "ConvertTexture".
/// @return whether the run came to its end
bool LoadoutSetup(Host& host, const Installation& installation, const Ships& ships);

/// What LoadoutSetup has to do: copies of the records of imported ships that name only textures which lack their
/// companion, at most two each, and each texture once. Among a ship's first two textures that is any 8-bit texture
/// without a companion, among the others only one that an import has added. A missing texture lacks nothing.
Ships LackingCompanions(const TcacheBytes& cache, const Ships& ships);

/// The same for the cache's file.
/// @throws FileError when it cannot be read
Ships LackingCompanions(Files& files, const std::string& cachePath, const Ships& ships);

/// True when the cache has a free slot for each companion that LoadoutSetup would add for these ships. The checks are
/// in its order: a texture without data ends it, and a companion that it then refuses needs a free slot, too.
/// @param cache as it will be then; only its table is used
bool CompanionsHaveSlots(const TcacheBytes& cache, const Ships& lacking);

}  // namespace oravin
