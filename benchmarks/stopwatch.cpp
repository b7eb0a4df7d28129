#include "stopwatch.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <stdexcept>
#include <vector>

namespace oravin::bench {

double Seconds(const std::function<void()>& work) {
  const auto begin = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

double OwnSeconds(const std::function<void()>& work) {
  const std::clock_t begin = std::clock();
  work();
  return static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

double MedianOf(int runs, const std::function<void()>& work, double (*clock)(const std::function<void()>& work)) {
  std::vector<double> seconds;
  for (int i = 0; i < runs; ++i) seconds.push_back(clock(work));
  std::sort(seconds.begin(), seconds.end());
  return seconds[seconds.size() / 2];
}

void RunShell(const std::string& command) {
  if (std::system(command.c_str()) != 0) throw std::runtime_error("failed: " + command);
}

void Register(const std::string& name, std::function<double()> once) {
  benchmark::RegisterBenchmark(name.c_str(),
                               [once = std::move(once)](benchmark::State& state) {
                                 for (auto _ : state) state.SetIterationTime(once());
                               })
      ->UseManualTime()
      ->Iterations(1);
}

void RegisterPair(const std::string& figure, const std::string& yardstick, std::function<double()> ours,
                  std::function<double()> theirs) {
  Register(figure + "/oravin", std::move(ours));
  Register(figure + "/" + yardstick, std::move(theirs));
}

void PrintLimit(const char* figure, double seconds, double may) {
  std::printf("%-34s %9.1f ms  %-44s %9.0f ms %8.2f\n", figure, seconds * 1e3, "what it may take (wanted: below 1)",
              may * 1e3, seconds / may);
}

}  // namespace oravin::bench
