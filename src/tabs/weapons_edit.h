#pragma once

#include "desk/host.h"
#include "installation/installation.h"
#include "tabs/stats_tab.h"

/// The handlers for the weapons of the selected ship (actions/edit_weapons.h, actions/restore_weapons.h); without one
/// nothing happens.
namespace oravin {

/// Make the selected attachment, and its partner where it is one of a pair, a gun, an external gun or a missile
/// launcher (ChangeWeapon), and show the weapons. The Index of the clicked item (`tab.clickedType`) is the type code.
void pldGunType_Click(Host& host, StatsTab& tab, const Installation& installation);
void pldExtGunType_Click(Host& host, StatsTab& tab, const Installation& installation);
void pldMissileType_Click(Host& host, StatsTab& tab, const Installation& installation);

/// Toggles the cloaking device in the class byte of the selected ship's model (ToggleCloakOf).
void chkHasCloak_MouseUp(Host& host, StatsTab& tab, const Installation& installation);

/// Restores the weapons of the selected ship's original model (RestoreWeapons) and shows them.
void cmdRestoreWeapons_Click(Host& host, StatsTab& tab, const Installation& installation);

}  // namespace oravin
