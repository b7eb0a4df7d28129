#pragma once

namespace oravin::platform {

/// From now on the first Ctrl+C is only recorded; the second one ends the process.
void WatchInterrupts();

/// True once Ctrl+C has been pressed since WatchInterrupts.
bool Interrupted();

}  // namespace oravin::platform
