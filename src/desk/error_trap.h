#pragma once

#include <string>
#include <utility>

#include "base/file_error.h"
#include "desk/host.h"

namespace oravin {

/// Shows the message box of a procedure's error trap: the procedure's own words for that kind of error
/// (desk/error_boxes.h), else "Error - " and what went wrong with which file.
/// @throws ProgramEnd where the program ends after those words
void ShowTrapped(Host& host, const std::string& procedure, const FileError& error);

/// Shows the procedure's own words for a kind of error, where it has some, although no error has come: what follows may
/// still succeed.
void ShowWarning(Host& host, const std::string& procedure, ErrorKind kind);

/// A procedure's error trap: runs its body. A FileError ends the body and shows one message box titled with the
/// procedure's name; the neutral value is returned.
template <typename Value, typename Body>
Value Trapped(Host& host, const std::string& procedure, Value neutral, Body&& body) {
  try {
    return std::forward<Body>(body)();
  } catch (const FileError& error) {
    ShowTrapped(host, procedure, error);
    return neutral;
  }
}

/// The same for a procedure without a result. Returns false if an error ended the body.
template <typename Body>
bool Trap(Host& host, const std::string& procedure, Body&& body) {
  try {
    std::forward<Body>(body)();
    return true;
  } catch (const FileError& error) {
    ShowTrapped(host, procedure, error);
    return false;
  }
}

}  // namespace oravin
