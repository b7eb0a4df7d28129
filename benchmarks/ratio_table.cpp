#include "ratio_table.h"

#include <algorithm>
#include <cstdio>

namespace oravin::bench {

namespace {

double Median(std::vector<double> values) {
  if (values.empty()) return 0;
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

}  // namespace

std::string InWords(double seconds) {
  char text[32];
  if (seconds < 1e-3) {
    std::snprintf(text, sizeof text, "%.1f us", seconds * 1e6);
  } else {
    std::snprintf(text, sizeof text, "%.2f ms", seconds * 1e3);
  }
  return text;
}

bool RatioTable::ReportContext(const Context&) { return true; }

void RatioTable::ReportRuns(const std::vector<Run>& runs) {
  for (const Run& run : runs) {
    if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
    const std::string whole = run.run_name.function_name;
    const std::size_t slash = whole.find('/');
    const std::string figure = whole.substr(0, slash);
    const std::string name = whole.substr(slash + 1);
    if (!figures_.contains(figure)) order_.push_back(figure);
    std::vector<Side>& sides = figures_[figure];
    auto side = std::find_if(sides.begin(), sides.end(), [&](const Side& known) { return known.name == name; });
    if (side == sides.end()) side = sides.insert(sides.end(), Side{name, {}});
    side->seconds.push_back(run.GetAdjustedRealTime() / benchmark::GetTimeUnitMultiplier(run.time_unit));
  }
}

void RatioTable::Finalize() {
  std::printf("%-34s %12s  %-44s %12s %8s\n", "figure", "Oravin", "yardstick", "its time", "ratio");
  for (const std::string& figure : order_) {
    const std::vector<Side>& sides = figures_[figure];
    const auto own = std::find_if(sides.begin(), sides.end(), [](const Side& side) { return side.name == "oravin"; });
    if (own == sides.end()) continue;
    for (const Side& side : sides) {
      if (side.name == "oravin") continue;
      const double ours = Median(own->seconds);
      const double theirs = Median(side.seconds);
      std::printf("%-34s %12s  %-44s %12s %8.2f\n", figure.c_str(), InWords(ours).c_str(), side.name.c_str(),
                  InWords(theirs).c_str(), theirs > 0 ? ours / theirs : 0.0);
    }
  }
}

}  // namespace oravin::bench
