#pragma once

#include <span>

#include "app/handlers.h"

namespace oravin {

/// The actions of the form in which a drafted ship list is edited.
std::span<const Handler> ShipListHandlers();

}  // namespace oravin
