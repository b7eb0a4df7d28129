#pragma once

#include <span>

#include "app/handlers.h"

namespace oravin {

/// The actions of the "Switcher" tab, and Enable and Disable.
std::span<const Handler> SwitcherHandlers();

}  // namespace oravin
