#pragma once

#include <vector>

#include "desk/host.h"
#include "installation/installation.h"
#include "installation/model_entry.h"
#include "lists/ship_list.h"

namespace oravin {

/// Loads the catalogue into the installation. An error gives a box titled "LoadCatalogue"; then there are no ships.
/// @return whether it was loaded
bool LoadCatalogue(Host& host, Installation& installation);

/// True when the texture cache has free slots for the textures of the list's add-on ships and for their companions.
/// Nothing is changed, and no box is shown.
bool CacheHasSlotsFor(Files& files, const Installation& installation, const std::vector<ListedShip>& list);

/// Builds the catalogue from the ship list and loads it.
///
/// A stock ship gets the place of its model in the archive (FindModel); one that is found nowhere keeps 0 there and is
/// named in a message box at the end. An add-on ship gets its statistics, the texture names of its model, its model in
/// the game's ships folder and its textures in the cache (InstallAddOnTextures). The new catalogue is written to a
/// temporary file, which takes its name when it is complete; only then are models copied, so that until then nothing in
/// the game's ships folder has changed.
///
/// @param live the archive's table
/// @param backup the table's backup; may be empty
/// @return whether the catalogue was built and loaded
bool BuildCatalogue(Host& host, Installation& installation, const std::vector<ListedShip>& list, const HogTable& live,
                    const HogTable& backup);

}  // namespace oravin
