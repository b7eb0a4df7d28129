#pragma once

#include <string>

#include "catalogue/ship_record.h"
#include "desk/host.h"

namespace oravin {

/// Rebuilds the cache without the textures of some ships: for every texture name of a removed ship, the texture of that
/// name and its companion, whose name is "g" and that name. The game's own 426 textures never move; the others move
/// down over the gaps, slot and data alike. A texture that a remaining ship names too, with or without the "g", is
/// kept, and so is its companion.
///
/// The new cache is written to a file "temp" beside the old one and takes its place in one rename.
///
/// A missing cache gives the box "TCACHE not found!" titled "RemoveTexture()". One whose factory part is not whole
/// (FactoryPartIsWhole), or whose textures claim more data than the file has, gives "Error - not a valid tcache file"
/// and is left as it is; so is one that GetTcacheTable refuses.
///
/// @param removed the records of the ships that are being removed
/// @param remaining the records of all ships that stay
/// @return whether the cache was rebuilt
bool RemoveTexture(Host& host, std::string cachePath, const Ships& removed, const Ships& remaining);

/// Deletes the file "temp" of a rebuild that was cut short. Only a file that is empty or begins as a cache does is
/// taken for one.
/// @throws FileError when it cannot be read or deleted
void EraseUnfinishedRebuild(Files& files, const std::string& cachePath);

}  // namespace oravin
