#include "tabs/stats_show.h"

#include <bit>

#include "actions/edit_stats.h"
#include "base/number_text.h"
#include "installation/stats_source.h"

namespace oravin {

namespace {

/// The same number, bit for bit, so that values that are no numbers can be compared too.
bool Same(float a, float b) { return a == b || std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b); }

/// Makes the rows of shipStatsList from the statistics; the selected row stays selected.
void ShowStatsRows(StatsTab& tab) {
  const auto selected = SelectedRow(tab.shipStatsList);
  ClearRows(tab.shipStatsList);
  if (!tab.stats) return;
  for (std::size_t i = 0; i < statsRows.size(); ++i) {
    const StatsRow& stat = statsRows.at(i);
    const float value = tab.stats->values.at(stat.field);
    ListRow row{static_cast<int>(i), {NumberText(value), stat.label}};
    if (tab.defaults && !Same(value, tab.defaults->values.at(stat.field))) {
      row.bold = true;
      row.tooltip = "Default: " + NumberText(tab.defaults->values.at(stat.field));
    }
    AddRow(tab.shipStatsList, std::move(row));
  }
  SelectOnly(tab.shipStatsList, selected);
}

std::string WeaponText(const ShpAttachment& attachment, bool pair) {
  const std::string before = pair ? "Pair: " : "";
  if (attachment.kind == missileKind) return pair ? "Pair: Missiles" : "Missile";
  if (attachment.kind == externalGunKind) {
    return before + "External - " + GetExtGunName(attachment.externalGunType);
  }
  return before + GetGunName(attachment.gunType);
}

/// Makes the rows of shipWeaponsList from the weapons; the selected attachment stays selected.
void ShowWeaponRows(StatsTab& tab) {
  const int selected = SelectedItem(tab.shipWeaponsList);
  ClearRows(tab.shipWeaponsList);
  const auto& [attachments, pairs] = tab.weapons;
  for (std::size_t i = 0; i < attachments.size(); ++i) {
    if (pairs.paired[i] && static_cast<std::size_t>(pairs.partner[i]) < i) continue;
    const int item = static_cast<int>(i);
    AddRow(tab.shipWeaponsList, {item, {WeaponText(attachments[i], pairs.paired[i])}, 0, item == selected});
  }
}

void ShowClass(StatsTab& tab) {
  tab.chkHasCloak.checked = tab.shipClass == ShipClass::cloakedFighter;
  tab.lblShipClass.caption = ClassText(tab.shipClass);
}

}  // namespace

void DisplayShipStats(Host& host, StatsTab& tab, const Installation& installation) {
  const int index = SelectedShip(tab);
  const ShipRecord* ship = ShipAt(installation, index);
  tab.stats = ship == nullptr ? std::nullopt : GetShipsStats(host, installation, *ship);
  tab.defaults = tab.stats ? DefaultsOf(host.files, installation, *ship) : std::nullopt;
  ShowStatsRows(tab);
  tab.chart = StatsChart();
  if (!tab.stats) return;
  const int remembered = RememberedShipIn(tab, installation.ships);
  tab.chart = ChartOf(host.files, installation, index, remembered == index ? -1 : remembered);
  tab.chart.remembered = remembered >= 0;
}

void DisplayWeapons(Host& host, StatsTab& tab, const Installation& installation) {
  const ShipRecord* ship = ShipAt(installation, SelectedShip(tab));
  tab.weapons = ship == nullptr ? ModelWeapons() : GetWeapons(host, installation, *ship);
  ShowWeaponRows(tab);
  DisplayClass(host, tab, installation);
  shipWeaponsList_ItemClick(tab);
}

void DisplayClass(Host& host, StatsTab& tab, const Installation& installation) {
  const ShipRecord* ship = ShipAt(installation, SelectedShip(tab));
  tab.shipClass = ship == nullptr ? std::nullopt : ClassOf(host, installation, *ship);
  ShowClass(tab);
}

std::string ClassText(const std::optional<ShipClass>& shipClass) {
  if (!shipClass) return "";
  switch (*shipClass) {
    case ShipClass::capital:
      return "Capital ship";
    case ShipClass::cloakedFighter:
      return "Fighter with a cloaking device";
    case ShipClass::fighter:
      break;
  }
  return "Fighter";
}

void shipEditingList_ItemClick(Host& host, StatsTab& tab, const Installation& installation) {
  // Another ship's row of the same number is another weapon.
  SelectOnly(tab.shipWeaponsList, std::nullopt);
  ShowShipAgain(host, tab, installation);
}

void ShowShipAgain(Host& host, StatsTab& tab, const Installation& installation) {
  if (SelectedShip(tab) < 0) {
    ClearShip(tab);
  } else {
    DisplayShipStats(host, tab, installation);
    DisplayWeapons(host, tab, installation);
  }
  EnableStatsControls(tab, installation.ships);
}

void ClearShip(StatsTab& tab) {
  tab.stats.reset();
  tab.defaults.reset();
  tab.weapons = ModelWeapons();
  tab.shipClass.reset();
  tab.chart = StatsChart();
  tab.topView = TopView();
  ShowStatsRows(tab);
  ShowWeaponRows(tab);
  ShowClass(tab);
}

void shipWeaponsList_ItemClick(StatsTab& tab) {
  tab.topView = TopViewOf(tab.weapons.attachments, tab.weapons.pairs, SelectedAttachment(tab));
  EnableWeaponMenus(tab);
}

}  // namespace oravin
