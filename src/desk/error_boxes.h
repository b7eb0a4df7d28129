#pragma once

#include <optional>
#include <string_view>

#include "base/file_error.h"
#include "desk/message_box.h"

namespace oravin {

/// The words of a message box that a procedure has for one kind of error, instead of "Error - " and what went wrong.
struct ErrorBox {
  std::string_view procedure;  ///< the name that the error trap is given
  ErrorKind kind;
  std::string_view text;
  Icon icon;
  std::string_view title;
  bool alsoGeneral = false;  ///< the general message box follows
  bool endsProgram = false;  ///< then the program ends (ProgramEnd)
};

/// The row for a procedure and a kind of error; none where the general message box is the only one.
const ErrorBox* FindErrorBox(std::string_view procedure, ErrorKind kind);

}  // namespace oravin
