#pragma once

namespace oravin::platform {

/// True when a person sits at both ends: questions can be read on standard error and answered on standard input.
bool PersonAtTerminal();

}  // namespace oravin::platform
