#include "tabs/switcher_tab.h"

#include <optional>

#include "desk/error_trap.h"
#include "files/look_up.h"
#include "installation/stats_source.h"
#include "models/class_byte.h"
#include "platform/start_program.h"

namespace oravin {

namespace {

/// What the second column shows of a ship.
std::string MarkOf(const ShipRecord& ship) {
  return ship.Changed ? "--->" + ship.ChangedToName.Trimmed() : std::string();
}

/// Where a ship is listed, and with which picture.
struct Listing {
  bool target;
  int image;
};

std::optional<Listing> ListingOf(std::int64_t kind, bool capital, ShipsShown shown) {
  if (capital != (shown == ShipsShown::capitalShips)) return std::nullopt;
  switch (kind) {
    case 1:
      return Listing{true, otherStockImage};
    case 2:
      return Listing{true, stockImage};
    case importedKind:
      return Listing{false, ImageOfImported(capital)};
    default:
      return std::nullopt;
  }
}

bool Capital(Host& host, const Installation& installation, const ShipRecord& ship) {
  return Trapped(host, "IsCapitalShip", false,
                 [&] { return IsCapitalShip(host.files, installation.modelPath(ModelOf(ship))); });
}

}  // namespace

SwitcherTab NewSwitcherTab() {
  SwitcherTab tab;
  tab.swapOrgList.columns = {{"Ship to change:", false}, {"Already changed to:", false}};
  tab.swapToList.columns = {{"Change to:", false}};
  tab.cmdSwap = {"----->", "Switches Ship", false};
  tab.cmdUnswap = {"<-----", "Unswitches Ship", false};
  tab.cmdUnswapAll = {"Unswap All", "Unswitches all ships", true};
  ShowKind(tab, tab.shown);
  tab.cmdEnable = {"&Enable", "Enables editing features - see readme", true};
  tab.cmdDisable = {"D&isable / Restore", "Disables editing features - see readme", true};
  return tab;
}

bool IsImportedCapital(Host& host, const Installation& installation, const ShipRecord& ship) {
  return FileExists(host.files, installation.modelPath(ModelOf(ship))) && Capital(host, installation, ship);
}

int ImageOfImported(bool capital) { return capital ? importedCapitalImage : importedFighterImage; }

ModelClasses DisplaySwitcher(Host& host, SwitcherTab& tab, const Installation& installation, ShipsShown kind) {
  ClearRows(tab.swapOrgList);
  ClearRows(tab.swapToList);
  const Ships& ships = installation.ships;
  ModelClasses classes(ships.size());
  for (std::size_t i = 0; i < ships.size(); ++i) {
    const ShipRecord& ship = ships[i];
    if (IsInert(ship)) continue;
    const bool capital = Capital(host, installation, ship);
    classes[i] = capital;
    const auto listing = ListingOf(WholeNumber(ship.ShipKind), capital, kind);
    const int item = static_cast<int>(i);
    const std::string name = ship.ShipName.Trimmed();
    if (listing && listing->target) AddRow(tab.swapOrgList, {item, {name, MarkOf(ship)}, listing->image, false});
    if (listing) AddRow(tab.swapToList, {item, {name}, listing->image, false});
    if (ship.HasSecondPart) ++i;  // a second part is never listed by itself
  }
  EnableSwitcherControls(tab, installation);
  return classes;
}

void ShowKind(SwitcherTab& tab, ShipsShown kind) {
  tab.shown = kind;
  tab.cmdToggle.caption = kind == ShipsShown::fighters ? "&Display Capships" : "&Display Fighters";
}

void ShowMark(SwitcherTab& tab, const Installation& installation, int target) {
  const ShipRecord* ship = ShipAt(installation, target);
  if (ship == nullptr) return;
  for (std::size_t row = 0; row < tab.swapOrgList.rows.size(); ++row) {
    if (tab.swapOrgList.rows[row].item == target) SetText(tab.swapOrgList, row, 1, MarkOf(*ship));
  }
}

void ClearMarks(SwitcherTab& tab) {
  for (std::size_t row = 0; row < tab.swapOrgList.rows.size(); ++row) SetText(tab.swapOrgList, row, 1, "");
}

void EnableSwitcherControls(SwitcherTab& tab, const Installation& installation) {
  const int index = OnlySelectedItem(tab.swapOrgList);
  const bool known = index >= 0 && static_cast<std::size_t>(index) < installation.ships.size();
  tab.cmdSwap.enabled = known && OnlySelectedRow(tab.swapToList);
  tab.cmdUnswap.enabled = known && installation.ships[static_cast<std::size_t>(index)].Changed;
}

void cmdToggle_Click(Host& host, SwitcherTab& tab, const Installation& installation) {
  const ShipRecord* first = ShipAt(installation, tab.swapOrgList.rows.empty() ? 0 : tab.swapOrgList.rows.front().item);
  const bool capital = first != nullptr && Capital(host, installation, *first);
  DisplaySwitcher(host, tab, installation, capital ? ShipsShown::fighters : ShipsShown::capitalShips);
  ShowKind(tab, tab.shown == ShipsShown::fighters ? ShipsShown::capitalShips : ShipsShown::fighters);
}

void ViewModel(Files& files, const ListView& list, const Installation& installation) {
  const ShipRecord* ship = ShipAt(installation, SelectedItem(list));
  const std::string viewer = installation.viewerPath();
  if (ship == nullptr || !FileExists(files, viewer)) return;
  platform::StartProgram(platform::AsWord(viewer) + " " + platform::AsWord(installation.modelPath(ModelOf(*ship))));
}

}  // namespace oravin
