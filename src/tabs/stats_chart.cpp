#include "tabs/stats_chart.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "base/file_error.h"
#include "installation/stats_source.h"

namespace oravin {

namespace {

/// Opens a file of statistics; a closed one where that fails.
File OpenIfThere(Files& files, const std::string& path) {
  try {
    return File(files, path, OpenFor::reading);
  } catch (const FileError&) {
    return {};
  }
}

/// Every ship's statistics by its index; nothing for those that cannot be read.
std::vector<std::optional<ShipStats>> AllStats(Files& files, const Installation& installation) {
  File current = OpenIfThere(files, installation.statsPath());
  File defaults = OpenIfThere(files, installation.defaultsPath());
  std::vector<std::optional<ShipStats>> all(installation.ships.size());
  for (std::size_t i = 0; i < all.size(); ++i) {
    const ShipRecord& ship = installation.ships[i];
    if (IsInert(ship)) continue;
    const StatsSource source = SourceOf(installation, ship);
    File& file = source.path == installation.defaultsPath() ? defaults : current;
    if (IsOpen(file)) {
      try {
        all[i] = ReadBlock(file, source.index);
      } catch (const FileError&) {
        all[i].reset();
      }
    }
    if (ship.HasSecondPart) ++i;
  }
  return all;
}

float Middle(const std::vector<float>& sorted) {
  const std::size_t half = sorted.size() / 2;
  if (sorted.size() % 2 == 1) return sorted[half];
  return static_cast<float>((double{sorted[half - 1]} + double{sorted[half]}) / 2);
}

ChartRow RowOf(const StatsRow& stat, const std::vector<std::optional<ShipStats>>& all, std::size_t selected,
               std::size_t compared) {
  ChartRow row;
  row.label = stat.label;
  std::vector<float> values;
  for (const auto& stats : all) {
    if (stats && std::isfinite(stats->values.at(stat.field))) values.push_back(stats->values.at(stat.field));
  }
  if (values.empty()) return row;
  std::sort(values.begin(), values.end());
  const double from = std::min(0.0, double{values.front()});
  const double width = std::max(0.0, double{values.back()}) - from;
  const auto mark = [&](float value) {
    return ChartMark{value, width > 0 ? std::clamp((double{value} - from) / width, 0.0, 1.0) : 0.0};
  };
  const auto markOf = [&](std::size_t ship) -> std::optional<ChartMark> {
    if (ship >= all.size() || !all[ship] || !std::isfinite(all[ship]->values.at(stat.field))) return std::nullopt;
    return mark(all[ship]->values.at(stat.field));
  };
  row.zero = mark(0).place;
  row.smallest = mark(values.front());
  row.middle = mark(Middle(values));
  row.largest = mark(values.back());
  row.selected = markOf(selected);
  row.compared = markOf(compared);
  return row;
}

}  // namespace

StatsChart ChartOf(Files& files, const Installation& installation, int selected, int compared) {
  StatsChart chart;
  const ShipRecord* ship = ShipAt(installation, selected);
  const ShipRecord* other = ShipAt(installation, compared);
  if (ship == nullptr) return chart;
  chart.selectedName = ship->ShipName.Trimmed();
  if (other != nullptr) chart.comparedName = other->ShipName.Trimmed();
  const auto all = AllStats(files, installation);
  for (std::size_t i = 0; i < statsCount; ++i) {
    chart.rows.at(i) = RowOf(statsRows.at(i), all, static_cast<std::size_t>(selected),
                             other == nullptr ? all.size() : static_cast<std::size_t>(compared));
  }
  return chart;
}

}  // namespace oravin
