#include "cli/ships_table.h"

#include "cli/text_table.h"

namespace oravin {

std::string ShipsTable(const Ships& ships) {
  const std::vector<TextColumn> columns = {
      {"Index", true},          {"Name", false},       {"File", false},    {"Kind", true},      {"Stats", true},
      {"Archive offset", true}, {"Stored size", true}, {"Table at", true}, {"Imported", false}, {"Changed to", false}};
  std::vector<std::vector<std::string>> rows;
  for (std::size_t i = 0; i < ships.size(); ++i) {
    const ShipRecord& ship = ships[i];
    if (IsInert(ship)) continue;
    rows.push_back({std::to_string(i), ship.ShipName.Trimmed(), ModelOf(ship),
                    std::to_string(WholeNumber(ship.ShipKind)), std::to_string(WholeNumber(ship.StatsIndex)),
                    std::to_string(Unsigned32(ship.HogOffset)), std::to_string(Unsigned32(ship.HogSize)),
                    std::to_string(Unsigned32(ship.HogFatPos)), ship.Imported ? "yes" : "no",
                    ship.ChangedToName.Trimmed()});
  }
  return TextTable(columns, rows);
}

}  // namespace oravin
