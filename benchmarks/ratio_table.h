#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace oravin::bench {

/// Collects the medians of all benchmarks and prints each figure with its yardsticks. Benchmarks are named
/// "figure/oravin" and "figure/yardstick NAME (wanted RATIO)"; the ratio is time over time, so less is better.
class RatioTable : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context& context) override;
  void ReportRuns(const std::vector<Run>& runs) override;
  void Finalize() override;

 private:
  struct Side {
    std::string name;
    std::vector<double> seconds;
  };
  std::vector<std::string> order_;
  std::map<std::string, std::vector<Side>> figures_;
};

/// A time in a suitable unit.
std::string InWords(double seconds);

}  // namespace oravin::bench
