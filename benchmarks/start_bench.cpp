// The program as a process: its start, and its memory on a large archive.

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "benches.h"
#include "demo/sample.h"

namespace oravin::bench {

namespace {

namespace fs = std::filesystem;

constexpr double mayTake = 0.3;       // seconds from start to a painted window
constexpr double spareMemory = 64.0;  // MiB beside the largest file that is read at once

/// Runs a program to its end; returns its exit status, and the most memory that it held in KiB.
int RunProgram(const std::vector<std::string>& words, long& peak) {
  std::fflush(stdout);  // or the child would print what stands in the buffer once more
  const pid_t child = fork();
  if (child == 0) {
    std::vector<char*> arguments;
    for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    if (std::freopen("/dev/null", "w", stdout) == nullptr || std::freopen("/dev/null", "w", stderr) == nullptr)
      _exit(126);
    execv(arguments[0], arguments.data());
    _exit(127);
  }
  int status = 0;
  rusage usage{};
  wait4(child, &status, 0, &usage);
  peak = usage.ru_maxrss;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

void UseSample(const demo::Sample& sample) {
  setenv("XDG_CONFIG_HOME", sample.config.c_str(), 1);
  setenv("WINEPREFIX", (sample.config / "no-wine").c_str(), 1);
}

}  // namespace

void PrintStart(const fs::path& programs, const fs::path& work) {
  if (std::getenv("DISPLAY") == nullptr) {
    std::printf("Start to a painted window: not measured, because there is no display.\n");
    return;
  }
  const demo::Sample sample = demo::WriteSample(work / "start");
  UseSample(sample);
  long peak = 0;
  const std::string cli = (programs / "oravin-cli").string();
  if (RunProgram({cli, "--yes", "enable"}, peak) != 0) std::printf("oravin-cli could not enable the sample.\n");
  std::vector<double> seconds;
  for (int i = 0; i < 9; ++i) {
    const auto begin = std::chrono::steady_clock::now();
    if (RunProgram({(programs / "oravin").string(), "--exit-when-painted"}, peak) != 0) {
      std::printf("Start to a painted window: the window did not come up.\n");
      return;
    }
    seconds.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
  }
  std::sort(seconds.begin(), seconds.end());
  std::printf("%-34s %9.0f ms  %-44s %9.0f ms %8.2f\n", "Start to a painted window", seconds[4] * 1e3,
              "what it may take (wanted: below 1)", mayTake * 1e3, seconds[4] / mayTake);
}

void PrintMemory(const fs::path& programs, const fs::path& work) {
  demo::SampleOptions options;
  options.megabytes = 1024;
  const demo::Sample sample = demo::WriteSample(work / "large", options);
  UseSample(sample);
  double largest = 0;  // of the files that are read at once: models, the largest of them
  for (const auto& item : fs::directory_iterator(sample.program / "addons" / "ships")) {
    largest = std::max(largest, static_cast<double>(item.file_size()) / (1 << 20));
  }
  long peak = 0;
  const int status = RunProgram({(programs / "oravin-cli").string(), "--yes", "enable"}, peak);
  const double taken = static_cast<double>(peak) / 1024;
  std::printf("%-34s %8.1f MiB  %-44s %8.1f MiB %8.2f%s\n", "Memory of Enable, archive of 1 GiB", taken,
              "largest file read at once + 64 MiB (below 1)", largest + spareMemory, taken / (largest + spareMemory),
              status == 0 ? "" : "  (it failed)");
  fs::remove_all(work / "large");
}

}  // namespace oravin::bench
