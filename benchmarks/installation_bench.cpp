// Enabling and swapping on a sample installation, against cp on the bytes that have to be written.

#include <set>
#include <string>
#include <utility>

#include "app/handlers.h"
#include "app/start_up.h"
#include "benches.h"
#include "demo/sample.h"
#include "stopwatch.h"

namespace oravin::bench {

namespace {

namespace fs = std::filesystem;

/// A run of the program over a sample, answering every question with Yes.
struct Run {
  explicit Run(const demo::Sample& sample) {
    main.host.desk.showBox = [](const Message& box) { return box.buttons == Buttons::ok ? Answer::ok : Answer::yes; };
    Form_Load(main, {sample.game.string(), sample.program.string()});
  }
  Main main;
};

std::set<fs::path> FilesBelow(const fs::path& folder) {
  std::set<fs::path> files;
  for (const auto& item : fs::recursive_directory_iterator(folder)) {
    if (item.is_regular_file()) files.insert(item.path());
  }
  return files;
}

std::string Quoted(const fs::path& path) { return "'" + path.string() + "'"; }

/// Copies of all that enabling writes anew, in a folder of their own, for cp to copy.
fs::path WhatEnableWrites(const demo::Sample& sample, const fs::path& work) {
  std::set<fs::path> before = FilesBelow(sample.game);
  before.merge(FilesBelow(sample.program));
  {
    Run run(sample);
    oravin::Run(run.main, "switcher.cmdEnable");
  }
  const fs::path written = work / "written";
  fs::create_directories(written);
  for (const fs::path& root : {sample.game, sample.program}) {
    for (const fs::path& file : FilesBelow(root)) {
      if (before.contains(file)) continue;
      const fs::path to = written / root.filename() / fs::relative(file, root);
      fs::create_directories(to.parent_path());
      fs::copy_file(file, to);
    }
  }
  return written;
}

void AddEnable(const demo::Sample& sample, const fs::path& written, const fs::path& work) {
  benchmark::RegisterBenchmark(
      "Enable/oravin",
      [sample](benchmark::State& state) {
        Run run(sample);
        for (auto _ : state) {
          oravin::Run(run.main, "switcher.cmdDisable");
          state.SetIterationTime(Seconds([&] { oravin::Run(run.main, "switcher.cmdEnable"); }));
        }
      })
      ->UseManualTime()
      ->Iterations(5);
  const std::string copy = "cp -r " + Quoted(written) + " " + Quoted(work / "copied");
  // The game's files are on the disk when Enable is done.
  const std::string durable = copy + " && sync $(find " + Quoted(work / "copied") + ")";
  for (const auto& [name, command] : {std::pair("cp of what it writes (wanted: below 2)", copy),
                                      std::pair("cp and sync of what it writes", durable)}) {
    benchmark::RegisterBenchmark((std::string("Enable/") + name).c_str(),
                                 [work, command](benchmark::State& state) {
                                   for (auto _ : state) {
                                     fs::remove_all(work / "copied");
                                     state.SetIterationTime(Seconds([&] { RunShell(command); }));
                                   }
                                 })
        ->UseManualTime()
        ->Iterations(5);
  }
}

void AddSwap(const demo::Sample& sample, const fs::path& work) {
  benchmark::RegisterBenchmark("Swap/oravin",
                               [sample](benchmark::State& state) {
                                 Run run(sample);
                                 if (run.main.installation.ships.empty()) oravin::Run(run.main, "switcher.cmdEnable");
                                 SelectOnly(run.main.switcher.swapOrgList, 0);
                                 SelectOnly(run.main.switcher.swapToList, 1);
                                 for (auto _ : state) {
                                   state.SetIterationTime(Seconds([&] { oravin::Run(run.main, "switcher.cmdSwap"); }));
                                   oravin::Run(run.main, "switcher.cmdUnswap");
                                 }
                               })
      ->UseManualTime()
      ->Iterations(20);
  benchmark::RegisterBenchmark(
      "Swap/cp of the model (wanted: below 2)",
      [sample, work](benchmark::State& state) {
        fs::path model;
        {
          Run run(sample);
          if (run.main.installation.ships.empty()) oravin::Run(run.main, "switcher.cmdEnable");
          const int index = run.main.switcher.swapToList.rows.at(1).item;
          model = sample.game / "ships" / ModelOf(run.main.installation.ships.at(static_cast<std::size_t>(index)));
        }
        for (auto _ : state) {
          fs::remove(work / "model.copy");
          state.SetIterationTime(Seconds([&] { RunShell("cp " + Quoted(model) + " " + Quoted(work / "model.copy")); }));
        }
      })
      ->UseManualTime()
      ->Iterations(20);
}

}  // namespace

void AddInstallation(const fs::path& work) {
  const demo::Sample sample = demo::WriteSample(work / "sample");
  const fs::path written = WhatEnableWrites(sample, work);
  AddEnable(sample, written, work);
  AddSwap(sample, work);
}

}  // namespace oravin::bench
