#include "gui/stats_menus.h"

#include <wx/menu.h>

#include <array>

#include "gui/text_edge.h"

namespace oravin::gui {

namespace {

void Append(wxMenu& menu, int id, const MenuItem& record) {
  menu.Append(id, ToScreen(record.caption))->Enable(record.enabled);
}

/// A submenu with its control array.
struct TypeMenu {
  const MenuItem& record;
  const std::vector<TypeItem>& items;
  const char* action;
};

std::array<TypeMenu, 3> TypeMenusOf(const StatsTab& tab) {
  return {{{tab.pldChangeToGun, tab.pldGunType, "stats.pldGunType"},
           {tab.pldChangeToExtGun, tab.pldExtGunType, "stats.pldExtGunType"},
           {tab.pldChangeToMissile, tab.pldMissileType, "stats.pldMissileType"}}};
}

}  // namespace

void ShowStatsMenu(ListWindow& list, const StatsTab& tab, const Action& press) {
  struct Item {
    const MenuItem& record;
    const char* action;
  };
  const std::array<Item, 3> items = {{{tab.pldStatsCopy, "stats.pldStatsCopy"},
                                      {tab.pldStatsPaste, "stats.pldStatsPaste"},
                                      {tab.pldStatsRestoreDefault, "stats.pldStatsRestoreDefault"}}};
  wxMenu menu;
  for (std::size_t i = 0; i < items.size(); ++i) {
    const MenuItem& record = items.at(i).record;
    if (&record == &tab.pldStatsRestoreDefault) menu.AppendSeparator();
    Append(menu, static_cast<int>(i), record);
  }
  const int chosen = list.GetPopupMenuSelectionFromUser(menu, list.MenuPlace());
  if (chosen != wxID_NONE) press(items.at(static_cast<std::size_t>(chosen)).action);
}

void ShowWeaponMenu(ListWindow& list, StatsTab& tab, const Action& press) {
  // The click that opens the menu may also have selected the row, which changes the menu.
  press("stats.shipWeaponsList.ItemClick");
  struct Chosen {
    const TypeItem& item;
    const char* action;
  };
  std::vector<Chosen> all;
  wxMenu menu;
  for (const TypeMenu& types : TypeMenusOf(tab)) {
    auto* submenu = new wxMenu;
    for (const TypeItem& item : types.items) {
      Append(*submenu, static_cast<int>(all.size()), item.item);
      all.push_back({item, types.action});
    }
    menu.AppendSubMenu(submenu, ToScreen(types.record.caption))->Enable(types.record.enabled);
  }
  const int chosen = list.GetPopupMenuSelectionFromUser(menu, list.MenuPlace());
  if (chosen < 0 || static_cast<std::size_t>(chosen) >= all.size()) return;
  const Chosen& item = all[static_cast<std::size_t>(chosen)];
  tab.clickedType = item.item.Index;
  press(item.action);
}

}  // namespace oravin::gui
