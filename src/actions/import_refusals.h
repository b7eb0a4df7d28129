#pragma once

#include <string>

#include "desk/host.h"
#include "textures/cache_table.h"

/// The boxes of adding a texture (listed in ImportTexture.h), and the checks that show them.
namespace oravin {

inline constexpr const char* importTitle = "ImportTexture";

/// Reads the header and table of a cache that is to be added to; the box for a missing one, and false.
bool ReadCacheToAddTo(Host& host, std::string& cachePath, TcacheBytes& cache);

/// No slot is free: the box, and then the program ends.
[[noreturn]] void EndForFullCache(Host& host);

/// The boxes for a cache and for a bitmap that cannot be used; both return false.
bool RefuseCache(Host& host);
bool RefuseBitmap(Host& host);

/// True when no texture bears the name; otherwise its box.
bool NameIsFree(Host& host, const TcacheBytes& cache, const std::string& name);

}  // namespace oravin
