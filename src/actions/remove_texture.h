#pragma once

#include <string>

#include "catalogue/ship_record.h"
#include "desk/host.h"

namespace oravin {

/// Rebuilds the cache without the textures of some ships: for every texture name of a removed ship, the texture of that
/// name and its companion, whose name is "g" and that name. The game's own 426 textures never move; the slots and data
/// of the others close the gaps. A texture that a remaining ship names too, with or without the "g", is kept with its
/// companion.
///
/// The new cache is written to a temporary file "temp" in the same folder and then renamed over the old one.
///
/// A missing cache gives the box "TCACHE not found!" titled "RemoveTexture()". A cache that GetTcacheTable refuses, one
/// whose factory part is not whole (FactoryPartIsWhole) and one whose textures claim more data than the file has give
/// "Error - not a valid tcache file" and are not changed.
///
/// @param removed the records of the ships that are being removed
/// @param remaining the records of all ships that stay
/// @return whether the cache was rebuilt
bool RemoveTexture(Host& host, const std::string& cachePath, const Ships& removed, const Ships& remaining);

/// Deletes the file "temp" of a rebuild that was interrupted, if it is empty or starts as a cache does.
/// @throws FileError when it cannot be read or deleted
void EraseUnfinishedRebuild(Files& files, const std::string& cachePath);

}  // namespace oravin
