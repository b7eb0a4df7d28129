#pragma once

#include "desk/host.h"
#include "installation/installation.h"

namespace oravin {

/// What disabling did.
struct DisableResult {
  enum class Outcome {
    refused,        ///< before the first change; a message box has said why
    catalogueKept,  ///< not everything could be restored; the catalogue is needed for another try
    modelsKept,     ///< the game's files are restored, but not all of the player's own models
    restored        ///< everything is as it was before the features were enabled
  };
  Outcome outcome = Outcome::refused;
};

/// Disables the editing features: restores the archive's names, the ships folder, the statistics and the texture cache,
/// deletes the catalogue and restores the player's own models. Without a catalogue it works by the backup of the
/// archive's table and block by block. Files that other tabs hold open should be closed before.
///
/// Failures have message boxes titled "cmdDisable_Click()", or those of the steps.
DisableResult DisableFeatures(Host& host, Installation& installation);

}  // namespace oravin
