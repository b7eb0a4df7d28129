#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace oravin {

/// Why a file could not be used.
enum class ErrorKind {
  failed,       ///< the system refused an operation; the reason is the system's
  missing,      ///< the file is not there
  wrongFormat,  ///< it has another format
  damaged,      ///< its content contradicts itself, or ends too early
  outside,      ///< the requested index, slot or range is not in the file
  tooMany,      ///< it has more items than can be used
};

/// A failure with a file or with its content: the only exception that files and formats throw. An action's error trap
/// catches it and shows its message box (desk/error_trap.h).
struct FileError : std::runtime_error {
  /// @param what what was tried, in plain words and without a full stop: "could not open"
  /// @param which the file's path
  /// @param why the reason, in plain words: "it is read-only"
  FileError(std::string what, std::string which, std::string why, ErrorKind kindOfError = ErrorKind::failed)
      : std::runtime_error(what + " " + which + ": " + why),
        kind(kindOfError),
        operation(std::move(what)),
        path(std::move(which)),
        reason(std::move(why)) {}

  ErrorKind kind;
  std::string operation;
  std::string path;
  std::string reason;
};

}  // namespace oravin
