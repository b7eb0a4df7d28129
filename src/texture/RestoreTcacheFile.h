#pragma once

#include <string>

#include "desk/host.h"

namespace oravin {

/// Puts the texture cache back to the game's own textures: 426 of them, the other slots of the table zero, and nothing
/// behind the data of the last one. Where that data ends is computed from its entry.
///
/// A missing cache gives the box "Error - Path(s) not found" titled "RestoreTcacheFile". A cache whose factory part is
/// not whole is left as it is, with the error trap's box.
void RestoreTcacheFile(Host& host, std::string cachePath);

/// The number of textures that the cache's header states; 0 where there is no cache or it has no header.
int TcacheCount(Files& files, const std::string& cachePath);

}  // namespace oravin
