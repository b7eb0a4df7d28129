#include "tabs/weapons_edit.h"

#include "actions/restore_weapons.h"
#include "files/look_up.h"
#include "installation/stats_source.h"
#include "tabs/stats_show.h"

namespace oravin {

namespace {

void ChangeSelected(Host& host, StatsTab& tab, const Installation& installation, const Weapon& weapon,
                    const char* procedure) {
  const ShipRecord* ship = ShipAt(installation, SelectedShip(tab));
  const auto number = SelectedAttachment(tab);
  if (ship == nullptr || !number) return;
  ChangeWeapon(host, installation, *ship, tab.weapons, *number, weapon, procedure);
  // The list keeps showing the weapons of a model that is gone, after the box about it.
  if (FileExists(host.files, installation.modelPath(ModelOf(*ship)))) DisplayWeapons(host, tab, installation);
}

}  // namespace

void pldGunType_Click(Host& host, StatsTab& tab, const Installation& installation) {
  ChangeSelected(host, tab, installation, GunOfType(tab.clickedType), "pldGunType_Click()");
}

void pldExtGunType_Click(Host& host, StatsTab& tab, const Installation& installation) {
  ChangeSelected(host, tab, installation, ExternalGunOfType(tab.clickedType), "pldExtGunType_Click()");
}

void pldMissileType_Click(Host& host, StatsTab& tab, const Installation& installation) {
  ChangeSelected(host, tab, installation, MissileLauncher(), "pldMissileType_Click()");
}

void chkHasCloak_MouseUp(Host& host, StatsTab& tab, const Installation& installation) {
  const ShipRecord* ship = ShipAt(installation, SelectedShip(tab));
  if (ship == nullptr) return;
  ToggleCloakOf(host, installation, *ship);
  if (FileExists(host.files, installation.modelPath(ModelOf(*ship)))) DisplayClass(host, tab, installation);
}

void cmdRestoreWeapons_Click(Host& host, StatsTab& tab, const Installation& installation) {
  const int index = SelectedShip(tab);
  const ShipRecord* ship = ShipAt(installation, index);
  if (ship == nullptr) return;
  RestoreWeapons(host, installation, static_cast<std::size_t>(index));
  if (FileExists(host.files, installation.modelPath(ModelOf(*ship)))) DisplayWeapons(host, tab, installation);
}

}  // namespace oravin
