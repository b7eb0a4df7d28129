#pragma once

#include <stdexcept>
#include <string>

namespace oravin {

/// What goes wrong with a file or with what stands in it. Only a procedure's own error trap catches it
/// (desk/error_trap.h).
struct RunTimeError : std::runtime_error {
  /// @param what what was tried, in plain words and without a full stop: "could not open"
  /// @param which the file's path
  /// @param why the reason, in plain words: "it is read-only"
  RunTimeError(std::string what, std::string which, std::string why)
      : std::runtime_error(what + " " + which + ": " + why),
        operation(std::move(what)),
        path(std::move(which)),
        reason(std::move(why)) {}

  std::string operation;
  std::string path;
  std::string reason;
};

}  // namespace oravin
