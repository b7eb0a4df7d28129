#include "app/stats_handlers.h"

#include <array>

#include "tabs/stats_edit.h"
#include "tabs/stats_show.h"
#include "tabs/weapons_edit.h"

namespace oravin {

namespace {

using OnShip = void (*)(Host&, StatsTab&, const Installation&);

template <OnShip action>
void Do(Main& main) {
  action(main.host, main.stats, main.installation);
}

void MarkWeapon(Main& main) { shipWeaponsList_ItemClick(main.stats); }

constexpr std::array<Handler, 13> statsHandlers = {
    {{"stats.shipEditingList.ItemClick", Do<shipEditingList_ItemClick>, false},
     {"stats.shipWeaponsList.ItemClick", MarkWeapon, false},
     {"stats.shipStatsList.AfterLabelEdit", Do<shipStatsList_AfterLabelEdit>, true},
     {"stats.pldStatsCopy", Do<pldStatsCopy_Click>, false},
     {"stats.pldStatsPaste", Do<pldStatsPaste_Click>, true},
     {"stats.pldStatsRestoreDefault", Do<pldStatsRestoreDefault_Click>, true},
     {"stats.cmdRestoreShipStats", Do<cmdRestoreShipStats_Click>, true},
     {"stats.cmdRestoreAllStats", Do<cmdRestoreAllStats_Click>, true},
     {"stats.pldGunType", Do<pldGunType_Click>, true},
     {"stats.pldExtGunType", Do<pldExtGunType_Click>, true},
     {"stats.pldMissileType", Do<pldMissileType_Click>, true},
     {"stats.chkHasCloak.MouseUp", Do<chkHasCloak_MouseUp>, true},
     {"stats.cmdRestoreWeapons", Do<cmdRestoreWeapons_Click>, true}}};

}  // namespace

std::span<const Handler> StatsHandlers() { return statsHandlers; }

}  // namespace oravin
