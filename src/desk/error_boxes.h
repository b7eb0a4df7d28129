#pragma once

#include <optional>
#include <string_view>

#include "base/file_error.h"
#include "desk/message_box.h"

namespace oravin {

/// A procedure's own message for one kind of error, instead of the general "Error - ...".
struct ErrorBox {
  std::string_view procedure;  ///< as passed to the error trap
  ErrorKind kind;
  std::string_view text;
  Icon icon;
  std::string_view title;
  bool endsProgram = false;  ///< then the program ends (ProgramEnd)
};

/// The row for a procedure and a kind of error; null if there is only the general message box.
const ErrorBox* FindErrorBox(std::string_view procedure, ErrorKind kind);

}  // namespace oravin
