#include "desk/error_boxes.h"

#include <algorithm>
#include <array>

namespace oravin {

namespace {

/// One row for each procedure and kind, in the order of the procedures' names.
constexpr std::array errorBoxes = {
    ErrorBox{"ConvertFighterText", ErrorKind::missing, "File not found", Icon::exclamation, "FighterResize"},
    ErrorBox{"ConvertFighterText", ErrorKind::wrongFormat, "Error - not a fighter texture", Icon::exclamation,
             "ConvertFighterText"},
    ErrorBox{"ConvertTexture", ErrorKind::missing, "Path(s) not found", Icon::exclamation, "ConvertTexture"},
    ErrorBox{"FindStructOffset", ErrorKind::missing, "TCACHE file not found", Icon::exclamation, "FindStructOffset"},
    ErrorBox{"GetBMPInfo", ErrorKind::missing, "File not found", Icon::exclamation, "GetBMPInfo"},
    ErrorBox{"GetImportStats", ErrorKind::missing, "File not found!", Icon::critical, "GetImportStats"},
    ErrorBox{"GetTcacheTable", ErrorKind::missing, "Error - Path(s) not found.", Icon::exclamation, "GetTcacheTable"},
    ErrorBox{"GetTcacheTable", ErrorKind::wrongFormat, "Error - not a valid tcache file", Icon::exclamation,
             "GetTcacheTable"},
    ErrorBox{"ImportTexture", ErrorKind::missing, "Error. Path(s) not found", Icon::exclamation, "ImportTexture"},
    ErrorBox{"ImportTexture", ErrorKind::wrongFormat, "Operation terminated", Icon::none, programTitle},
    ErrorBox{"ImportTexture", ErrorKind::damaged, "Error - not a valid TCACHE file!", Icon::critical, "ImportTexture"},
    ErrorBox{"ImportTexture", ErrorKind::tooMany, "Critical Error - TCACHE is FULL! Use Disable/Restore.",
             Icon::critical, "ERROR!!!"},
    ErrorBox{"LoadoutSetup", ErrorKind::missing, "Error in extracting textures. Path(s) don't exist", Icon::exclamation,
             programTitle},
    ErrorBox{"RemoveTexture()", ErrorKind::missing, "TCACHE not found!", Icon::exclamation, "RemoveTexture()"},
    ErrorBox{"RemoveTexture()", ErrorKind::damaged, "Error - not a valid tcache file", Icon::exclamation,
             "RemoveTexture()"},
    ErrorBox{"RestoreTcacheFile", ErrorKind::missing, "Error - Path(s) not found", Icon::exclamation,
             "RestoreTcacheFile"},
    ErrorBox{"RestoreTcacheFile", ErrorKind::damaged, "Error - not a valid tcache file", Icon::exclamation,
             "RestoreTcacheFile"},
    ErrorBox{"lstTcache_AfterLabelEdit()", ErrorKind::missing, "Error - Path(s) not found.", Icon::exclamation,
             "GetTcacheTable"},
};

}  // namespace

const ErrorBox* FindErrorBox(std::string_view procedure, ErrorKind kind) {
  const auto row = std::find_if(errorBoxes.begin(), errorBoxes.end(),
                                [&](const ErrorBox& box) { return box.procedure == procedure && box.kind == kind; });
  return row == errorBoxes.end() ? nullptr : &*row;
}

}  // namespace oravin
