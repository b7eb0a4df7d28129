#pragma once

#include <string>

namespace oravin::platform {

/// A path or a name as one word of a command line.
inline std::string AsWord(const std::string& text) { return '"' + text + '"'; }

/// Starts another program by a command line of the core (Windows paths) and does not wait for it.
///
/// Away from Windows "notepad FILE" opens the file in the user's own text viewer, and the paint program `MSPAINT.EXE`
/// with a file opens that in the user's own image program (both by `xdg-open`). Other programs whose names end in
/// `.exe` are started through Wine. On Windows the system's own paint program is started where it is not at its old
/// place.
///
/// @return true when it was started
bool StartProgram(const std::string& commandLine);

}  // namespace oravin::platform
