#pragma once

#include <span>

#include "app/handlers.h"

namespace oravin {

/// The actions of the "Tcache Editor" tab, and of the panel that imports a texture by hand.
std::span<const Handler> TcacheHandlers();

}  // namespace oravin
