#pragma once

#include <array>
#include <optional>
#include <string>

#include "files/files.h"
#include "installation/installation.h"
#include "stats/ship_stats.h"

/// The chart next to the statistics: a ship's 15 values against the smallest, the middle and the largest of all ships,
/// and a second ship to compare.
namespace oravin {

/// A value and its place on the row's axis, from 0 (left) to 1 (right).
struct ChartMark {
  float value = 0;
  double place = 0;
};

/// One statistic. Its axis holds zero and the values of all ships; a value that is no finite number has no mark.
struct ChartRow {
  std::string label;
  double zero = 0;  ///< the place of zero: bars begin there
  std::optional<ChartMark> smallest;
  std::optional<ChartMark> middle;  ///< the median; of an even number of ships the mean of the middle two
  std::optional<ChartMark> largest;
  std::optional<ChartMark> selected;
  std::optional<ChartMark> compared;
};

struct StatsChart {
  std::string selectedName;               ///< empty while no ship is selected; then there are no rows to draw
  std::string comparedName;               ///< empty without a second ship
  bool remembered = false;                ///< a ship is remembered to compare with; it may be the selected one
  std::array<ChartRow, statsCount> rows;  ///< in the shown order
};

/// Reads the statistics of all ships and makes the chart. Ships whose statistics cannot be read do not count; a
/// two-part ship counts once.
/// @param selected,compared indices of ships; -1 for none
StatsChart ChartOf(Files& files, const Installation& installation, int selected, int compared);

}  // namespace oravin
