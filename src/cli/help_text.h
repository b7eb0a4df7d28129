#pragma once

#include <span>
#include <string>

#include "cli/commands.h"

namespace oravin {

/// The help of the whole program.
std::string HelpText(std::span<const Command> commands);

/// The help of one command.
std::string HelpText(const Command& command);

}  // namespace oravin
