#pragma once

#include <optional>
#include <utility>

#include "base/file_error.h"

namespace oravin::test {

/// Runs something; returns the FileError that it threw, or nothing.
template <typename Body>
std::optional<FileError> Thrown(Body&& body) {
  try {
    std::forward<Body>(body)();
    return std::nullopt;
  } catch (const FileError& error) {
    return error;
  }
}

/// The kind of the FileError that something throws; nothing where it throws none.
template <typename Body>
std::optional<ErrorKind> KindThrown(Body&& body) {
  const auto error = Thrown(std::forward<Body>(body));
  return error ? std::optional(error->kind) : std::nullopt;
}

/// The whole text of the FileError that something throws; empty where it throws none.
template <typename Body>
std::string TextThrown(Body&& body) {
  const auto error = Thrown(std::forward<Body>(body));
  return error ? error->what() : "";
}

}  // namespace oravin::test
