#pragma once

namespace oravin::platform {

/// True if standard error and standard input are a terminal, so that questions can be asked and answered.
bool PersonAtTerminal();

/// Sets the standard streams to binary and the console to UTF-8. Needed only on Windows.
void PrepareStreams();

}  // namespace oravin::platform
