#pragma once

#include <string>

#include "app/main.h"

namespace oravin {

/// Opens a file that the program was started with on the tab that works on such files, and chooses that tab: a texture
/// cache by its extension .dat, a ship model or ship pack by .shp and .pak, everything else as an archive. The tab's
/// own message boxes report what is wrong with it.
/// @param path a Windows path
void OpenFileOnItsTab(Main& main, const std::string& path);

}  // namespace oravin
