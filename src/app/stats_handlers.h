#pragma once

#include <span>

#include "app/handlers.h"

namespace oravin {

/// The actions of the "Ship Stats / Guns" tab.
std::span<const Handler> StatsHandlers();

}  // namespace oravin
