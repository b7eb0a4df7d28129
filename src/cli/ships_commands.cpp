#include "app/handlers.h"
#include "base/text.h"
#include "cli/commands.h"
#include "cli/ship_names.h"
#include "cli/ships_table.h"
#include "cli/switcher_rows.h"

namespace oravin {

namespace {

/// The record of the ship that is selected as the one to change.
const ShipRecord& SelectedTarget(const Main& main) {
  return main.installation.ships.at(static_cast<std::size_t>(SelectedItem(main.switcher.swapOrgList)));
}

std::string SelectedSourceName(const Main& main) {
  const ListView& list = main.switcher.swapToList;
  return list.rows.at(*SelectedRow(list)).texts.at(0);
}

/// Says why a name cannot be chosen where the Switcher tab does not list it.
void SayNotListed(Session& session, const std::string& name) {
  const Ships& ships = session.main.installation.ships;
  const int index = FindShip(ships, name);
  if (index < 0) {
    SayUnknownShip(session, name);
    return;
  }
  const ShipRecord& ship = ships[static_cast<std::size_t>(index)];
  const std::string known = "\"" + ship.ShipName.Trimmed() + "\"";
  SayError(session.console, IsStock(ship) ? known + " is not listed on the Switcher tab"
                                          : known + " is an imported ship; only the game's own ships can be changed");
}

bool SelectPairOrSay(Session& session, const std::string& target, const std::string& source) {
  const ChosenPair chosen = SelectPair(session.main, target, source);
  if (chosen.selected) return true;
  if (!chosen.targetListed) SayNotListed(session, target);
  if (!chosen.sourceListed) SayNotListed(session, source);
  if (chosen.targetListed && chosen.sourceListed) {
    SayError(session.console, "\"" + Trim(target) + "\" and \"" + Trim(source) +
                                  "\" cannot be switched: one is a capital ship, the other a fighter, and the Switcher "
                                  "tab lists them apart");
  }
  return false;
}

}  // namespace

std::optional<Result> ListShips(Session& session, const Values&) {
  const Ships& ships = session.main.installation.ships;
  Json document = Json::array();
  for (std::size_t i = 0; i < ships.size(); ++i) {
    if (!IsInert(ships[i])) document.push_back(JsonOf(ships[i], i));
  }
  const std::string text = document.empty() ? "The catalogue is empty; \"enable\" fills it.\n" : ShipsTable(ships);
  return Result{document, text};
}

std::optional<Result> SwapShips(Session& session, const Values& values) {
  if (!SelectPairOrSay(session, values.at(0), values.at(1))) return std::nullopt;
  const ShipRecord before = SelectedTarget(session.main);
  const std::string target = before.ShipName.Trimmed();
  const std::string source = SelectedSourceName(session.main);
  const int failuresBefore = session.console.failures;
  Run(session.main, "switcher.cmdSwap");
  if (session.console.failures > failuresBefore) return std::nullopt;
  const ShipRecord& after = SelectedTarget(session.main);
  const bool done = after.ChangedToName != before.ChangedToName;
  const std::string unchanged =
      SameName(target, source) ? " is to be switched to itself" : " is switched to " + source + " already";
  const std::string text =
      done ? target + " is switched to " + source + "." : target + unchanged + "; nothing was done.";
  return Result{{{"action", "swap"},
                 {"target", ToUtf8(target)},
                 {"source", ToUtf8(source)},
                 {"done", done},
                 {"changed", after.Changed}},
                ToUtf8(text) + "\n"};
}

std::optional<Result> UnswapOne(Session& session, const Values& values) {
  if (!SelectTarget(session.main, values.at(0))) {
    SayNotListed(session, values.at(0));
    return std::nullopt;
  }
  const bool wasChanged = SelectedTarget(session.main).Changed;
  const int failuresBefore = session.console.failures;
  Run(session.main, "switcher.cmdUnswap");
  if (session.console.failures > failuresBefore) return std::nullopt;
  const ShipRecord& after = SelectedTarget(session.main);
  const std::string target = ToUtf8(after.ShipName.Trimmed());
  const bool done = wasChanged && !after.Changed;
  return Result{{{"action", "unswap"}, {"target", target}, {"done", done}, {"changed", after.Changed}},
                target + (done ? " is put back.\n" : " is not changed; nothing was done.\n")};
}

std::optional<Result> UnswapAll(Session& session, const Values&) {
  Main& main = session.main;
  const Ships before = main.installation.ships;
  const int failuresBefore = session.console.failures;
  Run(main, "switcher.cmdUnswapAll");
  if (session.console.failures > failuresBefore) return std::nullopt;
  Json back = Json::array();
  for (std::size_t i = 0; i < before.size(); ++i) {
    if (IsInert(before[i]) || !before[i].Changed || main.installation.ships.at(i).Changed) continue;
    back.push_back(
        Json{{"target", ToUtf8(before[i].ShipName.Trimmed())}, {"source", ToUtf8(before[i].ChangedToName.Trimmed())}});
    if (before[i].HasSecondPart) ++i;  // both parts are one ship
  }
  const std::string text = back.empty() ? "No ship is changed; nothing was done.\n"
                                        : "Ships that are put back: " + std::to_string(back.size()) + ".\n";
  return Result{{{"action", "unswap-all"}, {"done", !back.empty()}, {"ships", back}}, text};
}

}  // namespace oravin
