#include <algorithm>

#include "actions/edit_stats.h"
#include "app/handlers.h"
#include "base/number_text.h"
#include "base/text.h"
#include "cli/commands.h"
#include "cli/ship_names.h"
#include "cli/shortest_number.h"
#include "cli/text_table.h"

namespace oravin {

namespace {

/// The row of a statistic, counted from 0; names all of them when there is none of that label.
std::optional<std::size_t> RowOfStat(Session& session, const std::string& label) {
  const auto* const row = std::find_if(statsRows.begin(), statsRows.end(),
                                       [&](const StatsRow& candidate) { return SameName(candidate.label, label); });
  if (row != statsRows.end()) return static_cast<std::size_t>(row - statsRows.begin());
  std::string labels;
  for (const StatsRow& known : statsRows) labels += (labels.empty() ? "" : ", ") + std::string(known.label);
  SayError(session.console, "there is no statistic \"" + label + "\"; there are: " + labels);
  return std::nullopt;
}

/// Runs an action of the statistics; true when no box told of a failure.
bool RunOnStats(Session& session, const char* handler) {
  const int failuresBefore = session.console.failures;
  Run(session.main, handler);
  return session.console.failures == failuresBefore;
}

}  // namespace

std::optional<Result> ShowStats(Session& session, const Values& values) {
  const ShipRecord* ship = SelectShip(session, values.at(0));
  if (ship == nullptr) return std::nullopt;
  const auto stats = GetShipsStats(session.main.host, session.main.installation, *ship);
  if (!stats) return std::nullopt;
  Json shown = Json::array();
  std::vector<std::vector<std::string>> rows;
  for (const StatsRow& row : statsRows) {
    const float value = stats->values.at(row.field);
    shown.push_back(Json{{"label", row.label}, {"value", ShortestJson(value)}});
    rows.push_back({row.label, NumberText(value)});
  }
  return Result{{{"ship", ToUtf8(ship->ShipName.Trimmed())}, {"stats", shown}},
                TextTable({{"", false}, {"", true}}, rows)};
}

std::optional<Result> SetStat(Session& session, const Values& values) {
  const ShipRecord* ship = SelectShip(session, values.at(0));
  if (ship == nullptr) return std::nullopt;
  const auto row = RowOfStat(session, values.at(1));
  if (!row) return std::nullopt;
  LabelEdit& edited = session.main.stats.shipStatsList.edited;
  edited = {*row, values.at(2)};
  if (!RunOnStats(session, "stats.shipStatsList.AfterLabelEdit")) return std::nullopt;
  const std::string name = ToUtf8(ship->ShipName.Trimmed());
  const std::string label = statsRows.at(*row).label;
  const auto value = static_cast<float>(NumberFrom(edited.text).value_or(0));
  return Result{{{"action", "set"}, {"ship", name}, {"label", label}, {"value", ShortestJson(value)}},
                name + ": " + label + " is " + edited.text + " now.\n"};
}

std::optional<Result> CopyStats(Session& session, const Values& values) {
  const ShipRecord* from = SelectShip(session, values.at(0));
  if (from == nullptr || !RunOnStats(session, "stats.pldStatsCopy")) return std::nullopt;
  const ShipRecord* to = SelectShip(session, values.at(1));
  if (to == nullptr || !RunOnStats(session, "stats.pldStatsPaste")) return std::nullopt;
  const std::string source = ToUtf8(from->ShipName.Trimmed());
  const std::string target = ToUtf8(to->ShipName.Trimmed());
  return Result{{{"action", "copy"}, {"from", source}, {"to", target}},
                target + " has the statistics of " + source + " now.\n"};
}

std::optional<Result> RestoreStats(Session& session, const Values& values) {
  const ShipRecord* ship = SelectShip(session, values.at(0));
  if (ship == nullptr || !RunOnStats(session, "stats.cmdRestoreShipStats")) return std::nullopt;
  const std::string name = ToUtf8(ship->ShipName.Trimmed());
  return Result{{{"action", "restore"}, {"ship", name}}, name + " has its default statistics.\n"};
}

std::optional<Result> RestoreAllStats(Session& session, const Values&) {
  const int successesBefore = session.console.successes;
  if (!RunOnStats(session, "stats.cmdRestoreAllStats")) return std::nullopt;
  const bool done = session.console.successes > successesBefore;
  const std::size_t ships = done ? session.main.stats.shipEditingList.rows.size() : 0;
  return Result{{{"action", "restore-all"}, {"done", done}, {"ships", ships}},
                done ? "Ships that have their default statistics: " + std::to_string(ships) + ".\n"
                     : "The catalogue is empty; nothing was done.\n"};
}

}  // namespace oravin
