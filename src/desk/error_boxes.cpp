#include "desk/error_boxes.h"

#include <algorithm>
#include <array>

namespace oravin {

namespace {

/// One row per procedure and kind, sorted by procedure.
constexpr std::array errorBoxes = {
    ErrorBox{"GetImportStats", ErrorKind::missing, "File not found!", Icon::critical, "GetImportStats"},
};

}  // namespace

const ErrorBox* FindErrorBox(std::string_view procedure, ErrorKind kind) {
  const auto row = std::find_if(errorBoxes.begin(), errorBoxes.end(),
                                [&](const ErrorBox& box) { return box.procedure == procedure && box.kind == kind; });
  return row == errorBoxes.end() ? nullptr : &*row;
}

}  // namespace oravin
