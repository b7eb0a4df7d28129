#pragma once

#include <span>

#include "app/handlers.h"

namespace oravin {

/// The actions of the "Hog Editor" tab and of its form.
std::span<const Handler> HogHandlers();

}  // namespace oravin
