#include "tabs/switcher_tab.h"

#include <optional>

#include "files/look_up.h"
#include "models/attachments.h"
#include "platform/start_program.h"

namespace oravin {

namespace {

constexpr const char* displayCapitals = "&Display Capships";
constexpr const char* displayFighters = "&Display Fighters";
constexpr const char* changedMark = "--->";

/// Where a ship is listed, and with which picture.
struct Listing {
  bool target;
  int image;
};

std::optional<Listing> ListingOf(std::int64_t kind, bool capital, bool capitalShips) {
  if (capital != capitalShips) return std::nullopt;
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
  return IsCapitalShip(host, installation.modelPath(ModelOf(ship)));
}

}  // namespace

SwitcherTab NewSwitcherTab() {
  SwitcherTab tab;
  tab.swapOrgList.columns = {{"Ship to change:", false}, {"Already changed to:", false}};
  tab.swapToList.columns = {{"Change to:", false}};
  tab.cmdSwap = {"----->", "Switches Ship", false};
  tab.cmdUnswap = {"<-----", "Unswitches Ship", false};
  tab.cmdUnswapAll = {"Unswap All", "Unswitches all ships", true};
  tab.cmdToggle = {displayCapitals, "", true};
  tab.cmdEnable = {"&Enable", "Enables editing features - see readme", true};
  tab.cmdDisable = {"D&isable / Restore", "Disables editing features - see readme", true};
  return tab;
}

bool IsImportedCapital(Host& host, const Installation& installation, const ShipRecord& ship) {
  return FileExists(host.files, installation.modelPath(ModelOf(ship))) && Capital(host, installation, ship);
}

int ImageOfImported(bool capital) { return capital ? importedCapitalImage : importedFighterImage; }

ModelClasses DisplaySwitcher(Host& host, SwitcherTab& tab, const Installation& installation, bool capitalShips) {
  ClearRows(tab.swapOrgList);
  ClearRows(tab.swapToList);
  const Ships& ships = installation.ships;
  ModelClasses classes(ships.size());
  for (std::size_t i = 0; i < ships.size(); ++i) {
    const ShipRecord& ship = ships[i];
    if (IsInert(ship)) continue;
    const bool capital = Capital(host, installation, ship);
    classes[i] = capital;
    const auto listing = ListingOf(WholeNumber(ship.ShipKind), capital, capitalShips);
    const std::string name = ship.ShipName.Trimmed();
    const std::string changed = ship.Changed ? changedMark + ship.ChangedToName.Trimmed() : std::string();
    if (listing && listing->target)
      AddRow(tab.swapOrgList, {static_cast<int>(i), {name, changed}, listing->image, false});
    if (listing) AddRow(tab.swapToList, {static_cast<int>(i), {name}, listing->image, false});
    if (ship.HasSecondPart) ++i;  // a second part is never listed by itself
  }
  EnableSwitcherControls(tab, installation);
  return classes;
}

void EnableSwitcherControls(SwitcherTab& tab, const Installation& installation) {
  const int index = OnlySelectedItem(tab.swapOrgList);
  const bool known = index >= 0 && static_cast<std::size_t>(index) < installation.ships.size();
  tab.cmdSwap.enabled = known && OnlySelectedRow(tab.swapToList);
  tab.cmdUnswap.enabled = known && installation.ships[static_cast<std::size_t>(index)].Changed;
}

void cmdToggle_Click(Host& host, SwitcherTab& tab, const Installation& installation) {
  const int index = tab.swapOrgList.rows.empty() ? 0 : tab.swapOrgList.rows.front().item;
  const bool known = index >= 0 && static_cast<std::size_t>(index) < installation.ships.size() &&
                     !IsInert(installation.ships[static_cast<std::size_t>(index)]);
  const bool capital = known && Capital(host, installation, installation.ships[static_cast<std::size_t>(index)]);
  DisplaySwitcher(host, tab, installation, !capital);
  if (tab.cmdToggle.caption == displayCapitals) {
    tab.cmdToggle.caption = displayFighters;
  } else if (tab.cmdToggle.caption == displayFighters) {
    tab.cmdToggle.caption = displayCapitals;
  }
}

void ViewModel(Files& files, const ListView& list, const Installation& installation) {
  const int index = SelectedItem(list);
  if (index < 0 || static_cast<std::size_t>(index) >= installation.ships.size()) return;
  const std::string viewer = installation.viewerPath();
  if (!FileExists(files, viewer)) return;
  const std::string model = installation.modelPath(ModelOf(installation.ships[static_cast<std::size_t>(index)]));
  platform::StartProgram(platform::AsWord(viewer) + " " + platform::AsWord(model));
}

}  // namespace oravin
