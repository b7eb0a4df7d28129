#pragma once

#include <optional>

#include "base/file_error.h"

namespace oravin::test {

/// The kind of the FileError that a run throws; nothing when it throws none.
template <typename Run>
std::optional<ErrorKind> KindThrown(Run&& run) {
  try {
    run();
    return std::nullopt;
  } catch (const FileError& error) {
    return error.kind;
  }
}

}  // namespace oravin::test
