#include "tabs/stats_show.h"

#include <bit>

#include "base/number_text.h"
#include "files/look_up.h"
#include "installation/stats_source.h"

namespace oravin {

namespace {

/// The same number, bit for bit: what is no number at all can be compared as well.
bool Same(float a, float b) { return a == b || std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b); }

void AddStatsRows(StatsTab& tab, const ShipStats& stats, const std::optional<ShipStats>& defaults) {
  for (std::size_t i = 0; i < statsRows.size(); ++i) {
    const StatsRow& stat = statsRows.at(i);
    const float value = stats.values.at(stat.field);
    ListRow row{static_cast<int>(i), {NumberText(value), stat.label}};
    if (defaults && !Same(value, defaults->values.at(stat.field))) {
      row.bold = true;
      row.tooltip = "Default: " + NumberText(defaults->values.at(stat.field));
    }
    AddRow(tab.shipStatsList, std::move(row));
  }
}

std::string WeaponText(const ShpAttachment& attachment, bool pair) {
  const std::string before = pair ? "Pair: " : "";
  if (attachment.kind == missileKind) return pair ? "Pair: Missiles" : "Missile";
  if (attachment.kind == externalGunKind) {
    return before + "External - " + GetExtGunName(attachment.externalGunType);
  }
  return before + GetGunName(attachment.gunType);
}

void AddWeaponRows(StatsTab& tab, int selected) {
  for (std::size_t i = 0; i < tab.attachments.size(); ++i) {
    const bool paired = tab.pairs.paired[i];
    if (paired && static_cast<std::size_t>(tab.pairs.partner[i]) < i) continue;
    const int item = static_cast<int>(i);
    AddRow(tab.shipWeaponsList, {item, {WeaponText(tab.attachments[i], paired)}, 0, item == selected});
  }
}

}  // namespace

void DisplayShipStats(Host& host, StatsTab& tab, const Installation& installation) {
  const auto before = SelectedRow(tab.shipStatsList);
  ClearRows(tab.shipStatsList);
  tab.chart = StatsChart();
  const int index = SelectedShip(tab);
  const ShipRecord* ship = ShipAt(installation, index);
  if (ship == nullptr) return;
  StatsSource source = SourceOf(installation, *ship);
  ShipStats stats;
  if (!GetShipsStats(host, source.path, source.index, stats)) return;
  AddStatsRows(tab, stats, DefaultsOf(host.files, installation, *ship));
  SelectOnly(tab.shipStatsList, before);
  const int compared = RememberedShipIn(tab, installation.ships);
  tab.chart = ChartOf(host.files, installation, index, compared == index ? -1 : compared);
}

void DisplayWeapons(Host& host, StatsTab& tab, const Installation& installation) {
  const int selected = SelectedItem(tab.shipWeaponsList);
  ClearRows(tab.shipWeaponsList);
  tab.attachments.clear();
  tab.chkHasCloak.checked = false;
  tab.lblShipClass.caption.clear();
  if (const ShipRecord* ship = ShipAt(installation, SelectedShip(tab)); ship != nullptr) {
    const std::string model = installation.modelPath(ModelOf(*ship));
    GetAttachments(host, model, tab.attachments);
    if (FileExists(host.files, model)) ShowClass(host, tab, model);  // else the one box says it
  }
  tab.pairs = FindWeaponPairs(tab.attachments);
  AddWeaponRows(tab, selected);
  shipWeaponsList_ItemClick(tab);
}

void ShowClass(Host& host, StatsTab& tab, const std::string& model) {
  tab.chkHasCloak.checked = IsCloaked(host, model);
  if (IsCapitalShip(host, model)) {
    tab.lblShipClass.caption = "Capital ship";
  } else {
    tab.lblShipClass.caption = tab.chkHasCloak.checked ? "Fighter with a cloaking device" : "Fighter";
  }
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
  EnableStatsControls(tab);
}

void shipWeaponsList_ItemClick(StatsTab& tab) {
  tab.topView = TopViewOf(tab.attachments, tab.pairs, SelectedAttachment(tab));
  EnableStatsControls(tab);
}

}  // namespace oravin
