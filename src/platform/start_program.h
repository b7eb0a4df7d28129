#pragma once

#include <string>

namespace oravin::platform {

/// Starts another program by a command line of the core (Windows paths) and does not wait for it.
///
/// Away from Windows "notepad FILE" opens the file in the user's own text viewer (`xdg-open`), and a program whose name
/// ends in `.exe` is started through Wine.
///
/// @return true when it was started
bool StartProgram(const std::string& commandLine);

}  // namespace oravin::platform
