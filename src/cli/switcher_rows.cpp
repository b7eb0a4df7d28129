#include "cli/switcher_rows.h"

#include <algorithm>
#include <optional>

#include "app/handlers.h"
#include "util/text.h"

namespace oravin {

namespace {

constexpr int displays = 2;  // fighters and capital ships

std::optional<std::size_t> FindRow(const ListView& list, const std::string& name) {
  const auto row = std::find_if(list.rows.begin(), list.rows.end(), [&](const ListRow& candidate) {
    return !candidate.texts.empty() && SameName(candidate.texts.front(), name);
  });
  if (row == list.rows.end()) return std::nullopt;
  return static_cast<std::size_t>(row - list.rows.begin());
}

/// Turns to the next display; the first one is what start-up shows.
void TurnTo(Main& main, int display) {
  if (display > 0) Run(main, "switcher.cmdToggle");
}

}  // namespace

ChosenPair SelectPair(Main& main, const std::string& target, const std::string& source) {
  ChosenPair chosen;
  for (int display = 0; display < displays; ++display) {
    TurnTo(main, display);
    const auto targetRow = FindRow(main.switcher.swapOrgList, target);
    const auto sourceRow = FindRow(main.switcher.swapToList, source);
    chosen.targetListed = chosen.targetListed || targetRow;
    chosen.sourceListed = chosen.sourceListed || sourceRow;
    if (!targetRow || !sourceRow) continue;
    SelectOnly(main.switcher.swapOrgList, targetRow);
    SelectOnly(main.switcher.swapToList, sourceRow);
    chosen.selected = true;
    break;
  }
  return chosen;
}

bool SelectTarget(Main& main, const std::string& target) {
  for (int display = 0; display < displays; ++display) {
    TurnTo(main, display);
    const auto row = FindRow(main.switcher.swapOrgList, target);
    if (!row) continue;
    SelectOnly(main.switcher.swapOrgList, row);
    return true;
  }
  return false;
}

}  // namespace oravin
