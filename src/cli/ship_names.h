#pragma once

#include <string>

#include "cli/commands.h"

namespace oravin {

/// Says that no ship bears the name, and why, where that can be told.
void SayUnknownShip(Session& session, const std::string& name);

}  // namespace oravin
