#include "desk/error_boxes.h"

#include <algorithm>
#include <array>

namespace oravin {

namespace {

/// One row per procedure and kind, sorted by procedure.
constexpr std::array errorBoxes = {
    ErrorBox{"BackupShipStats", ErrorKind::missing, "Can't find shipstats.bin", Icon::exclamation, programTitle},
    ErrorBox{"ConvertFighterText", ErrorKind::missing, "File not found", Icon::exclamation, "FighterResize"},
    ErrorBox{"ConvertFighterText", ErrorKind::wrongFormat, "Error - not a fighter texture", Icon::exclamation,
             "ConvertFighterText"},
    ErrorBox{"ConvertTexture", ErrorKind::missing, "Path(s) not found", Icon::exclamation, "ConvertTexture"},
    ErrorBox{"FindStructOffset", ErrorKind::missing, "TCACHE file not found", Icon::exclamation, "FindStructOffset"},
    ErrorBox{"GetAttachments", ErrorKind::missing, "Error - Path not found", Icon::exclamation, programTitle},
    ErrorBox{"GetBMPInfo", ErrorKind::missing, "File not found", Icon::exclamation, "GetBMPInfo"},
    ErrorBox{"GetHogData", ErrorKind::missing, "Error - hog not found", Icon::exclamation, "GetHogData"},
    ErrorBox{"GetImportStats", ErrorKind::missing, "File not found!", Icon::critical, "GetImportStats"},
    ErrorBox{"GetPAK", ErrorKind::missing, "Error in GetPAK - file not found", Icon::information, programTitle, true},
    ErrorBox{"GetShipsStats", ErrorKind::missing, "Error - file not found", Icon::exclamation, "GetShipsStats"},
    ErrorBox{"GetShipsStats", ErrorKind::outside, "Error - invalid ship", Icon::exclamation, "PutShipsStats"},
    ErrorBox{"GetShpTextureNames", ErrorKind::missing, "Error - Path not found", Icon::exclamation, "ORAVIN"},
    ErrorBox{"GetTcacheTable", ErrorKind::missing, "Error - Path(s) not found.", Icon::exclamation, "GetTcacheTable"},
    ErrorBox{"GetTcacheTable", ErrorKind::wrongFormat, "Error - not a valid tcache file", Icon::exclamation,
             "GetTcacheTable"},
    ErrorBox{"ImportTexture", ErrorKind::damaged, "Error - not a valid TCACHE file!", Icon::critical, "ImportTexture"},
    ErrorBox{"ImportTexture", ErrorKind::missing, "Error. Path(s) not found", Icon::exclamation, "ImportTexture"},
    ErrorBox{"ImportTexture", ErrorKind::tooMany, "Critical Error - TCACHE is FULL! Use Disable/Restore.",
             Icon::critical, "ERROR!!!"},
    ErrorBox{"ImportTexture", ErrorKind::wrongFormat, "Operation terminated", Icon::none, programTitle},
    ErrorBox{"IsCapitalShip", ErrorKind::missing, "Error - file not found", Icon::exclamation, "IsCapitalShip"},
    ErrorBox{"IsCloaked", ErrorKind::missing, "Error - file not found", Icon::exclamation, "IsCloaked"},
    ErrorBox{"LoadoutSetup", ErrorKind::missing, "Error in extracting textures. Path(s) don't exist", Icon::exclamation,
             programTitle},
    ErrorBox{"PutAttachments", ErrorKind::missing, "Error - Path not found", Icon::exclamation, programTitle},
    ErrorBox{"PutShipsStats", ErrorKind::missing, "Error - file not found", Icon::exclamation, "PutShipsStats"},
    ErrorBox{"PutShipsStats", ErrorKind::outside, "Error - invalid ship", Icon::exclamation, "PutShipsStats"},
    ErrorBox{"ReadShipList", ErrorKind::missing, "shipsData.txt not found", Icon::critical, programTitle},
    ErrorBox{"ReadShipList", ErrorKind::wrongFormat, "Error in shipsData.txt file", Icon::critical, programTitle, true},
    ErrorBox{"RemoveTexture()", ErrorKind::damaged, "Error - not a valid tcache file", Icon::exclamation,
             "RemoveTexture()"},
    ErrorBox{"RemoveTexture()", ErrorKind::missing, "TCACHE not found!", Icon::exclamation, "RemoveTexture()"},
    ErrorBox{"RestoreHog", ErrorKind::missing, "Error - hog not found", Icon::exclamation, "RestoreHog"},
    ErrorBox{"RestoreShipStats", ErrorKind::missing, "Error - Path(s) not found", Icon::exclamation,
             "RestoreShipStats"},
    ErrorBox{"RestoreTcacheFile", ErrorKind::damaged, "Error - not a valid tcache file", Icon::exclamation,
             "RestoreTcacheFile"},
    ErrorBox{"RestoreTcacheFile", ErrorKind::missing, "Error - Path(s) not found", Icon::exclamation,
             "RestoreTcacheFile"},
    ErrorBox{"RestoreWeapons", ErrorKind::missing, "Error - Path not found", Icon::exclamation, programTitle},
    ErrorBox{"TextureList", ErrorKind::missing, "Error - Path not found", Icon::exclamation, "ORAVIN"},
    ErrorBox{"TextureList", ErrorKind::wrongFormat, "This is not a valid SL shp file", Icon::exclamation,
             "Oravin - TextureList()"},
    ErrorBox{"ToggleCloak", ErrorKind::missing, "Error - file not found", Icon::exclamation, "IsCloaked"},
    ErrorBox{"UnpackFile()", ErrorKind::missing, "Error - Path(s) not found", Icon::exclamation, "UnpackFile()"},
    ErrorBox{"cmdOpen_Click()", ErrorKind::wrongFormat, "This file is not a valid SL Hog file", Icon::exclamation,
             "Extractor"},
    ErrorBox{"lstTcache_AfterLabelEdit()", ErrorKind::missing, "Error - Path(s) not found.", Icon::exclamation,
             "GetTcacheTable"},
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
