#pragma once

#include <string>

#include "desk/host.h"

namespace oravin {

/// Restores the texture cache to the game's own textures: 426 of them, the other slots of the table zero, and the file
/// cut at the end of the last one's data, which is computed from its entry. The new cache is renamed over the old one.
///
/// A restore may have been interrupted while the cache had the extension ".old": where the cache is missing, or only
/// the start of that file, it is made from that file. The ".old" file is then deleted if it has no textures but the
/// game's own.
///
/// Boxes titled "RestoreTcacheFile": "Error - Path(s) not found" for a missing cache; "Error - not a valid tcache file"
/// for one whose factory part is not whole (FactoryPartIsWhole), which is not changed.
/// @return whether the cache is in the factory state now
bool RestoreTcacheFile(Host& host, const std::string& cachePath);

/// The number of textures that the cache's header states; 0 where there is no cache or it has no header.
int TcacheCount(Files& files, const std::string& cachePath);

}  // namespace oravin
