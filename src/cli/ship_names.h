#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "cli/commands.h"

namespace oravin {

/// Says that no ship bears the name, and why, where that can be told.
void SayUnknownShip(Session& session, const std::string& name);

/// The first row of a list that shows a name, compared without blanks at the ends and without regard to case.
std::optional<std::size_t> RowShowing(const ListView& list, const std::string& name);

/// Selects a ship in the list of the "Ship Stats / Guns" tab.
/// @return its record; null when no ship bears the name, which is on the console then
const ShipRecord* SelectShip(Session& session, const std::string& name);

}  // namespace oravin
