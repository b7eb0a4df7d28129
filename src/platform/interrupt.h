#pragma once

namespace oravin::platform {

/// From here on a first Ctrl+C no longer ends the process but is remembered; a second one ends it.
void WatchInterrupts();

/// True once Ctrl+C has been pressed since WatchInterrupts.
bool Interrupted();

}  // namespace oravin::platform
