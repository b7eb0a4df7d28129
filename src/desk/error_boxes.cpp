#include "desk/error_boxes.h"

#include <algorithm>
#include <array>

namespace oravin {

namespace {

/// One row per procedure and kind, sorted by procedure.
constexpr std::array errorBoxes = {
    ErrorBox{"BackupShipStats", ErrorKind::missing, "Can't find shipstats.bin", Icon::exclamation, programTitle},
    ErrorBox{"GetAttachments", ErrorKind::missing, "Error - Path not found", Icon::exclamation, programTitle},
    ErrorBox{"GetHogData", ErrorKind::missing, "Error - hog not found", Icon::exclamation, "GetHogData", true},
    ErrorBox{"GetImportStats", ErrorKind::missing, "File not found!", Icon::critical, "GetImportStats"},
    ErrorBox{"GetShipsStats", ErrorKind::missing, "Error - file not found", Icon::exclamation, "GetShipsStats"},
    ErrorBox{"GetShipsStats", ErrorKind::outside, "Error - invalid ship", Icon::exclamation, "PutShipsStats"},
    ErrorBox{"GetShpTextureNames", ErrorKind::missing, "Error - Path not found", Icon::exclamation, "ORAVIN"},
    ErrorBox{"IsCapitalShip", ErrorKind::missing, "Error - file not found", Icon::exclamation, "IsCapitalShip"},
    ErrorBox{"IsCloaked", ErrorKind::missing, "Error - file not found", Icon::exclamation, "IsCloaked"},
    ErrorBox{"PutAttachments", ErrorKind::missing, "Error - Path not found", Icon::exclamation, programTitle},
    ErrorBox{"PutShipsStats", ErrorKind::missing, "Error - file not found", Icon::exclamation, "PutShipsStats"},
    ErrorBox{"PutShipsStats", ErrorKind::outside, "Error - invalid ship", Icon::exclamation, "PutShipsStats"},
    ErrorBox{"RestoreHog", ErrorKind::missing, "Error - hog not found", Icon::exclamation, "RestoreHog"},
    ErrorBox{"RestoreShipStats", ErrorKind::missing, "Error - Path(s) not found", Icon::exclamation,
             "RestoreShipStats"},
    ErrorBox{"RestoreWeapons", ErrorKind::missing, "Error - Path not found", Icon::exclamation, programTitle},
    ErrorBox{"ToggleCloak", ErrorKind::missing, "Error - file not found", Icon::exclamation, "IsCloaked"},
    ErrorBox{"UnpackFile()", ErrorKind::missing, "Error - Path(s) not found", Icon::exclamation, "UnpackFile()"},
    ErrorBox{"cmdOpen_Click()", ErrorKind::wrongFormat, "This file is not a valid SL Hog file", Icon::exclamation,
             "Extractor"},
    ErrorBox{"pldExtGunType_Click()", ErrorKind::missing, "Error - Path not found", Icon::exclamation, programTitle},
    ErrorBox{"pldGunType_Click()", ErrorKind::missing, "Error - Path not found", Icon::exclamation, programTitle},
    ErrorBox{"pldMissileType_Click()", ErrorKind::missing, "Error - Path not found", Icon::exclamation, programTitle},
};

}  // namespace

const ErrorBox* FindErrorBox(std::string_view procedure, ErrorKind kind) {
  const auto row = std::find_if(errorBoxes.begin(), errorBoxes.end(),
                                [&](const ErrorBox& box) { return box.procedure == procedure && box.kind == kind; });
  return row == errorBoxes.end() ? nullptr : &*row;
}

}  // namespace oravin
