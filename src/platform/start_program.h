#pragma once

#include <string>

namespace oravin::platform {

/// A path or name quoted as one argument of a command line.
inline std::string AsWord(const std::string& text) { return '"' + text + '"'; }

/// Starts another program from a command line with Windows paths and does not wait for it.
///
/// On other systems than Windows, "notepad FILE" opens the file in the user's text viewer and `MSPAINT.EXE` with a file
/// opens it in the user's image program (both by `xdg-open`); other `.exe` programs are started through Wine. On
/// Windows, the paint program is also found if it is not at its old location.
///
/// @return true if it was started
bool StartProgram(const std::string& commandLine);

}  // namespace oravin::platform
