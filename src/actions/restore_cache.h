#pragma once

#include <string>

#include "desk/host.h"

namespace oravin {

/// Puts the texture cache back to the game's own textures: 426 of them, the other slots of the table zero, and nothing
/// behind the data of the last one. Where that data ends is computed from its entry. The new cache takes the old one's
/// place in one rename.
///
/// A restore may have been cut short while the cache bore the extension ".old": where the cache is missing, or is no
/// more than the beginning of that file, it is made from that file. The ".old" file is then deleted if it holds no
/// textures but the game's own; otherwise it stays.
///
/// Boxes titled "RestoreTcacheFile": "Error - Path(s) not found" for a missing cache; "Error - not a valid tcache file"
/// for one whose factory part is not whole (FactoryPartIsWhole), which is left as it is.
/// @return whether the cache is in the factory state now
bool RestoreTcacheFile(Host& host, std::string cachePath);

/// The number of textures that the cache's header states; 0 where there is no cache or it has no header.
int TcacheCount(Files& files, const std::string& cachePath);

}  // namespace oravin
