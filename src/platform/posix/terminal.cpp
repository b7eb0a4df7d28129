#include "platform/terminal.h"

#include <unistd.h>

namespace oravin::platform {

bool PersonAtTerminal() { return isatty(STDIN_FILENO) == 1 && isatty(STDERR_FILENO) == 1; }

void PrepareStreams() {}

}  // namespace oravin::platform
