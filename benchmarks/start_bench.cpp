// The program as a process: start-up time, and memory on a large archive.

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <vector>

#include "benches.h"
#include "demo/archive_writer.h"
#include "demo/sample.h"
#include "stopwatch.h"

namespace oravin::bench {

namespace {

namespace fs = std::filesystem;

constexpr double mayTake = 0.3;       // seconds from start to a painted window
constexpr double mayOpen = 0.25;      // seconds from opening a large archive to its painted list
constexpr double spareMemory = 64.0;  // MiB in addition to the largest file that is read as a whole

/// Runs a program to its end; returns its exit status and its peak memory in KiB.
int RunProgram(const std::vector<std::string>& words, long& peak) {
  std::fflush(stdout);  // else the child would print the buffer again
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

/// An archive of a hundred thousand files.
fs::path WriteManyFiles(const fs::path& work) {
  constexpr int count = 100000;
  std::vector<std::string> names;
  for (int i = 0; i < count; ++i) names.push_back("folder" + std::to_string(i / 100) + "\\file" + std::to_string(i));
  demo::ArchiveStream archive = demo::BeginArchive(work / "many.hog", names);
  for (int i = 0; i < count; ++i) demo::FinishEntry(archive);
  demo::FinishArchive(archive);
  return work / "many.hog";
}

/// A program's peak memory in MiB; negative if it does not exit with that status.
double PeakOf(const std::vector<std::string>& words, int expected) {
  long peak = 0;
  return RunProgram(words, peak) == expected ? static_cast<double>(peak) / 1024 : -1;
}

/// Prints a peak and its limit: the spare memory plus the largest file that is read as a whole, in MiB.
void PrintPeak(const char* figure, double peak, double largest) {
  if (peak < 0) {
    std::printf("%-34s it failed\n", figure);
    return;
  }
  std::printf("%-34s %8.1f MiB  %-44s %8.1f MiB %8.2f\n", figure, peak, "largest file read at once + 64 MiB (below 1)",
              largest + spareMemory, peak / (largest + spareMemory));
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
  const auto start = [&](const std::vector<std::string>& more) {
    std::vector<std::string> words = {(programs / "oravin").string(), "--exit-when-painted"};
    words.insert(words.end(), more.begin(), more.end());
    return MedianOf(9, [&] {
      if (RunProgram(words, peak) != 0) throw std::runtime_error("the window did not come up");
    });
  };
  const double empty = start({});
  PrintLimit("Start to a painted window", empty, mayTake);
  // The time for the archive is the difference to a start without it.
  const double opened = start({WriteManyFiles(work).string()});
  PrintLimit("Open 100,000 entries, painted", std::max(0.0, opened - empty), mayOpen);
}

Peaks MeasureMemory(const fs::path& programs, const fs::path& work) {
  constexpr int oneFileNotExtracted = 1;  // two of the archive's entries have the same file name
  Peaks peaks;
  long any = 0;
  const fs::path folder = work / "large";
  RunProgram({(programs / "oravin-demo").string(), folder.string(), "--megabytes", "1024"}, any);
  const demo::Sample sample = demo::DescribeSample(folder);
  UseSample(sample);
  for (const auto& item : fs::directory_iterator(sample.program / "addons" / "ships")) {
    peaks.largestModel = std::max(peaks.largestModel, static_cast<double>(item.file_size()) / (1 << 20));
  }
  const std::string cli = (programs / "oravin-cli").string();
  peaks.enable = PeakOf({cli, "--yes", "enable"}, 0);
  const fs::path out = folder / "out";
  fs::create_directories(out);
  const std::string archive = (sample.game / "resource.hog").string();
  peaks.unpack = PeakOf({cli, "--yes", "hog", "unpack", archive, "--to", out.string()}, oneFileNotExtracted);
  fs::remove_all(folder);
  return peaks;
}

void PrintMemory(const Peaks& peaks) {
  PrintPeak("Memory of Enable, archive of 1 GiB", peaks.enable, peaks.largestModel);
  // Its entries are smaller than the read buffer, so the largest one adds nothing.
  PrintPeak("Memory of unpacking that archive", peaks.unpack, 0);
}

}  // namespace oravin::bench
