#pragma once

#include <filesystem>
#include <string>

#include "support/environment.h"
#include "support/temporary_folder.h"

namespace oravin::test {

/// A script that stands in for a program which is started by its name alone.
struct StandInProgram {
  /// Puts it first on the search path.
  explicit StandInProgram(const std::string& name);

  /// Lets the program that was started end; false when none was.
  static bool Ended();
  /// What it was given: each word in brackets, on a line of its own. Empty when it was not started.
  [[nodiscard]] std::string Words() const;

  TemporaryFolder folder;
  Environment path{"PATH", folder.Native("bin").string() + ":/usr/bin:/bin"};
};

}  // namespace oravin::test
