#include "desk/error_boxes.h"

#include <algorithm>
#include <array>

namespace oravin {

namespace {

/// One row for each procedure and kind, in the order of the procedures' names.
constexpr std::array errorBoxes = {
    ErrorBox{"FindStructOffset", ErrorKind::missing, "TCACHE file not found", Icon::exclamation, "FindStructOffset"},
    ErrorBox{"GetImportStats", ErrorKind::missing, "File not found!", Icon::critical, "GetImportStats"},
    ErrorBox{"GetPAK", ErrorKind::missing, "Error in GetPAK - file not found", Icon::information, programTitle, false,
             true},
    ErrorBox{"ReadShipList", ErrorKind::missing, "shipsData.txt not found", Icon::critical, programTitle},
    ErrorBox{"ReadShipList", ErrorKind::wrongFormat, "Error in shipsData.txt file", Icon::critical, programTitle, false,
             true},
    ErrorBox{"TextureList", ErrorKind::missing, "Error - Path not found", Icon::exclamation, "ORAVIN"},
    ErrorBox{"TextureList", ErrorKind::wrongFormat, "This is not a valid SL shp file", Icon::exclamation,
             "Oravin - TextureList()"},
};

}  // namespace

const ErrorBox* FindErrorBox(std::string_view procedure, ErrorKind kind) {
  const auto row = std::find_if(errorBoxes.begin(), errorBoxes.end(),
                                [&](const ErrorBox& box) { return box.procedure == procedure && box.kind == kind; });
  return row == errorBoxes.end() ? nullptr : &*row;
}

}  // namespace oravin
