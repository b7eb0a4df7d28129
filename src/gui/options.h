#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/start_up.h"

namespace oravin::gui {

/// What the program was started with.
struct Options {
  GivenFolders folders;
  std::string file;              ///< a file to open at once, as a path of this machine; empty for none
  std::string layoutFile;        ///< where the layout is kept; empty for nowhere
  bool exitWhenPainted = false;  ///< for measuring how long the start takes
};

/// Reads the command line. Prints what --help, --version or a wrong use call for.
/// @param words what stands behind the program's name
/// @return the exit status when the program ends here (0, or 2 for wrong use)
std::optional<int> ReadOptions(const std::vector<std::string>& words, Options& options);

}  // namespace oravin::gui
