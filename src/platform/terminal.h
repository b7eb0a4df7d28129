#pragma once

namespace oravin::platform {

/// True when a person sits at both ends: questions can be read on standard error and answered on standard input.
bool PersonAtTerminal();

/// Makes the standard streams carry bytes as they are, and a console show them as UTF-8. Away from Windows they do.
void PrepareStreams();

}  // namespace oravin::platform
