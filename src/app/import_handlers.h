#pragma once

#include <span>

#include "app/handlers.h"

namespace oravin {

/// The actions of the "Import Ships" tab's imported ships and of its converter, and of the import form.
std::span<const Handler> ImportHandlers();

}  // namespace oravin
