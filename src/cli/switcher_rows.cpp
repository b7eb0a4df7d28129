#include "cli/switcher_rows.h"

#include "app/handlers.h"
#include "cli/ship_names.h"

namespace oravin {

namespace {

constexpr int displays = 2;  // fighters and capital ships

/// Turns to the next display; the first one is what start-up shows.
void TurnTo(Main& main, int display) {
  if (display > 0) Run(main, "switcher.cmdToggle");
}

}  // namespace

ChosenPair SelectPair(Main& main, const std::string& target, const std::string& source) {
  ChosenPair chosen;
  for (int display = 0; display < displays; ++display) {
    TurnTo(main, display);
    const auto targetRow = RowShowing(main.switcher.swapOrgList, target);
    const auto sourceRow = RowShowing(main.switcher.swapToList, source);
    chosen.targetListed = chosen.targetListed || targetRow;
    chosen.sourceListed = chosen.sourceListed || sourceRow;
    if (!targetRow || !sourceRow) continue;
    SelectOnly(main.switcher.swapOrgList, targetRow);
    SelectOnly(main.switcher.swapToList, sourceRow);
    Run(main, "switcher.swapToList.ItemClick");
    chosen.selected = true;
    break;
  }
  return chosen;
}

bool SelectTarget(Main& main, const std::string& target) {
  for (int display = 0; display < displays; ++display) {
    TurnTo(main, display);
    const auto row = RowShowing(main.switcher.swapOrgList, target);
    if (!row) continue;
    SelectOnly(main.switcher.swapOrgList, row);
    Run(main, "switcher.swapOrgList.ItemClick");
    return true;
  }
  return false;
}

}  // namespace oravin
