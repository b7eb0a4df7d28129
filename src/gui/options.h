#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/start_up.h"

namespace oravin::gui {

/// The command line's options.
struct Options {
  GivenFolders folders;
  std::string file;              ///< a file to open, as a native path; empty for none
  std::string layoutFile;        ///< path of the layout file; empty for none
  bool exitWhenPainted = false;  ///< for measuring the start-up time
};

/// Reads the command line. Handles --help, --version and wrong usage.
/// @param words the arguments after the program's name
/// @return the exit status if the program ends here (0, or 2 for wrong usage)
std::optional<int> ReadOptions(const std::vector<std::string>& words, Options& options);

}  // namespace oravin::gui
