#include "app/show_changes.h"

#include "tabs/imported_list.h"
#include "tabs/stats_show.h"

namespace oravin {

namespace {

void ShowStatsTab(Main& main) {
  DisplayShipEdit(main.stats, main.installation.ships);
  ShowShipAgain(main.host, main.stats, main.installation);
}

/// Gives the stats tab the new indices of the ships that it shows and remembers.
void MoveStatsTab(StatsTab& tab, const RemovalResult& removal) {
  if (const auto row = SelectedRow(tab.shipEditingList)) {
    int& ship = tab.shipEditingList.rows[*row].item;
    ship = IndexAfter(removal, ship);
  }
  if (!tab.remembered) return;
  tab.remembered->index = IndexAfter(removal, tab.remembered->index);
  if (tab.remembered->index < 0) tab.remembered.reset();
}

}  // namespace

void FillLists(Main& main) {
  ShowKind(main.switcher, ShipsShown::fighters);
  RefillShipLists(main);
}

void RefillShipLists(Main& main) {
  const ModelClasses known = DisplaySwitcher(main.host, main.switcher, main.installation, main.switcher.shown);
  ShowStatsTab(main);
  DisplayImported(main.host, main.imports, main.installation, known);
}

void EmptyLists(Main& main) {
  ShowKind(main.switcher, ShipsShown::fighters);
  ClearRows(main.switcher.swapOrgList);
  ClearRows(main.switcher.swapToList);
  EnableSwitcherControls(main.switcher, main.installation);
  ShowStatsTab(main);
  DisplayImported(main.host, main.imports, main.installation);
}

void ShowChanges(Main& main, const SwapResult& result) {
  if (result.listed) ShowMark(main.switcher, main.installation, result.target);
  EnableSwitcherControls(main.switcher, main.installation);
  if (result.done) ShowStatsTab(main);
}

void ShowAllUnswapped(Main& main) {
  ClearMarks(main.switcher);
  EnableSwitcherControls(main.switcher, main.installation);
  ShowStatsTab(main);
}

void ShowChanges(Main& main, const RemovalResult& result) {
  if (!result.begun) return;
  if (result.done) MoveStatsTab(main.stats, result);
  RefillShipLists(main);
}

}  // namespace oravin
