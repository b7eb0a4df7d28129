#include "cli/ship_names.h"

#include <algorithm>

#include "base/text.h"
#include "installation/stats_source.h"

namespace oravin {

void SayUnknownShip(Session& session, const std::string& name) {
  const bool empty = session.main.installation.ships.empty();
  SayError(session.console,
           "no ship is named \"" + name + "\"" + (empty ? "; the catalogue is empty, \"enable\" fills it" : ""));
}

std::optional<std::size_t> RowShowing(const ListView& list, const std::string& name) {
  const auto row = std::find_if(list.rows.begin(), list.rows.end(), [&](const ListRow& candidate) {
    return !candidate.texts.empty() && SameName(candidate.texts.front(), name);
  });
  if (row == list.rows.end()) return std::nullopt;
  return static_cast<std::size_t>(row - list.rows.begin());
}

const ShipRecord* SelectShip(Session& session, const std::string& name) {
  StatsTab& tab = session.main.stats;
  SelectOnly(tab.shipEditingList, RowShowing(tab.shipEditingList, name));
  const ShipRecord* ship = ShipAt(session.main.installation, SelectedShip(tab));
  if (ship == nullptr) SayUnknownShip(session, name);
  return ship;
}

}  // namespace oravin
