#pragma once

#include "desk/host.h"
#include "installation/installation.h"

namespace oravin {

/// What enabling changed.
struct EnableResult {
  bool unswapped = false;  ///< swapped ships were restored
  bool enabled = false;    ///< the catalogue is built and every later step was tried; failures had message boxes
};

/// Enables the editing features: builds the catalogue, unpacks the stock models into the game's ships folder, disguises
/// their names in the archive's table and sets up the statistics. Everything that can stop it stops it before the first
/// change. On an enabled installation every swapped ship is restored first. Files that other tabs hold open should be
/// closed before.
///
/// Failures have message boxes titled "cmdEnable_Click()", or those of the steps.
/// @throws ProgramEnd for a ship list whose number of ships is not positive; after ImportTexture's message box for a
///   full cache when that lacks slots for the add-on ships' textures and their companions
EnableResult EnableFeatures(Host& host, Installation& installation);

}  // namespace oravin
