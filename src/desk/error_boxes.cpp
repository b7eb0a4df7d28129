#include "desk/error_boxes.h"

#include <algorithm>
#include <array>

namespace oravin {

namespace {

/// One row per procedure and kind, sorted by procedure.
constexpr std::array errorBoxes = {
    ErrorBox{"GetHogData", ErrorKind::missing, "Error - hog not found", Icon::exclamation, "GetHogData", true},
    ErrorBox{"GetImportStats", ErrorKind::missing, "File not found!", Icon::critical, "GetImportStats"},
    ErrorBox{"RestoreHog", ErrorKind::missing, "Error - hog not found", Icon::exclamation, "RestoreHog"},
    ErrorBox{"UnpackFile()", ErrorKind::missing, "Error - Path(s) not found", Icon::exclamation, "UnpackFile()"},
    ErrorBox{"cmdOpen_Click()", ErrorKind::wrongFormat, "This file is not a valid SL Hog file", Icon::exclamation,
             "Extractor"},
};

}  // namespace

const ErrorBox* FindErrorBox(std::string_view procedure, ErrorKind kind) {
  const auto row = std::find_if(errorBoxes.begin(), errorBoxes.end(),
                                [&](const ErrorBox& box) { return box.procedure == procedure && box.kind == kind; });
  return row == errorBoxes.end() ? nullptr : &*row;
}

}  // namespace oravin
