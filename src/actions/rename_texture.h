#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "desk/host.h"
#include "installation/installation.h"

namespace oravin {

/// Renames a texture of the game's own cache. The new name is trimmed and cut to 30 characters.
///
/// Boxes, after which nothing has been changed: "Enter name for texture"; "TCACHE file not found" and "Name already
/// exists"; that of NameCanBeStored; those of GetTcacheTable; one for a cache that has changed since it was listed; and
/// the error trap's, titled "lstTcache_AfterLabelEdit()".
/// @param index of the texture in the cache's table
/// @param oldName its name in the list that the user sees; nothing where that list is of another cache
/// @return the name that it has now; nothing after a box
std::optional<std::string> RenameCachedTexture(Host& host, const Installation& installation, std::size_t index,
                                               const std::optional<std::string>& oldName, const std::string& newName);

}  // namespace oravin
