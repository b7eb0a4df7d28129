#include "cli/commands.h"
#include "cli/ship_names.h"
#include "cli/shortest_number.h"
#include "cli/text_table.h"
#include "ships/shipstats.h"
#include "util/number_text.h"
#include "util/text.h"

namespace oravin {

namespace {

/// Reads a ship's statistics: an imported ship's stand in the defaults, unless it has no block of its own.
bool StatsOf(Main& main, const ShipRecord& ship, ShipStats& stats) {
  const auto index = static_cast<int>(WholeNumber(ship.StatsIndex));
  const bool fromDefaults = ship.Imported && index != 0;
  std::string path = main.installation.GamePath + (fromDefaults ? "shipstats.def" : "shipstats.bin");
  return GetShipsStats(main.host, path, index, stats);
}

}  // namespace

std::optional<Result> ShowStats(Session& session, const Values& values) {
  const Ships& ships = session.main.installation.ships;
  const int index = FindShip(ships, values.at(0));
  if (index < 0) {
    SayUnknownShip(session, values.at(0));
    return std::nullopt;
  }
  const ShipRecord& ship = ships[static_cast<std::size_t>(index)];
  ShipStats stats;
  if (!StatsOf(session.main, ship, stats)) return std::nullopt;
  Json shown = Json::array();
  std::vector<std::vector<std::string>> rows;
  for (const StatsRow& row : statsRows) {
    const float value = stats.values.at(row.field);
    shown.push_back(Json{{"label", row.label}, {"value", ShortestJson(value)}});
    rows.push_back({row.label, NumberText(value)});
  }
  return Result{{{"ship", ToUtf8(ship.ShipName.Trimmed())}, {"stats", shown}},
                TextTable({{"", false}, {"", true}}, rows)};
}

}  // namespace oravin
