#pragma once

#include "actions/restore_weapons.h"
#include "desk/host.h"
#include "installation/installation.h"
#include "tabs/stats_tab.h"

/// What is done on the weapons of the selected ship; without one nothing happens.
namespace oravin {

/// Make the selected attachment, and its partner where it is one of a pair, a gun, an external gun or a missile
/// launcher. The Index of the clicked item (`tab.clickedType`) is the type code; a missile launcher always gets the gun
/// type 64 and the external-gun type 6.
///
/// Where the ship has a variant ("t_" before the model's name), the attachments of the same numbers in it are changed
/// as well. Boxes, after which nothing is written: "Error - standard ship and Tiger ship attachments don't match" where
/// the variant has another number of attachments; one for an attachment that has no room for the types, or was only
/// counted; one for a model that is no longer what is listed; those of files that cannot be read or written.
void pldGunType_Click(Host& host, StatsTab& tab, const Installation& installation);
void pldExtGunType_Click(Host& host, StatsTab& tab, const Installation& installation);
void pldMissileType_Click(Host& host, StatsTab& tab, const Installation& installation);

/// Toggles the cloaking device in the class byte of the selected ship's model (ToggleCloak).
void chkHasCloak_MouseUp(Host& host, StatsTab& tab, const Installation& installation);

/// Puts the weapons of the selected ship's original model back (RestoreWeapons) and shows them.
void cmdRestoreWeapons_Click(Host& host, StatsTab& tab, const Installation& installation, const UnpackModel& unpack);

}  // namespace oravin
