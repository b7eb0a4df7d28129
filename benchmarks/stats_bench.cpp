// The "Ship Stats / Guns" tab: choosing a ship, and the walk over a model's chunks against one read of the file.

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <stdexcept>
#include <string>

#include "app/handlers.h"
#include "app/start_up.h"
#include "benches.h"
#include "demo/sample.h"
#include "models/attachments.h"
#include "platform/native_path.h"
#include "stopwatch.h"

namespace oravin::bench {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t modelSize = std::size_t{4} << 20;
constexpr std::size_t attachments = 100;
constexpr std::size_t attachmentSize = 108;

void AddChunk(Bytes& model, std::size_t type, std::size_t size, std::size_t count) {
  for (const std::size_t word : {type, size, count}) {
    model.push_back(static_cast<std::uint8_t>(word & 255U));
    model.push_back(static_cast<std::uint8_t>(word >> 8U));
  }
  model.resize(model.size() + size * count, 0x33);
}

/// A model of 4 MiB: chunks with the given number of 20-byte vertices, and 100 attachments at its end.
fs::path WriteModel(const fs::path& work, const std::string& name, std::size_t vertices) {
  constexpr std::size_t weapons = 6 + attachments * attachmentSize;
  Bytes model;
  model.reserve(modelSize + 20 * vertices);
  while (model.size() + 6 + 20 * vertices + weapons <= modelSize) AddChunk(model, 2, 20, vertices);
  AddChunk(model, 9, attachmentSize, attachments);
  fs::path path = work / name;
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(model.data()), static_cast<std::streamsize>(model.size()));
  return path;
}

/// The yardstick: the whole file in one read, into existing memory.
std::size_t ReadPlainly(const std::string& path, Bytes& bytes) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  const ssize_t got = read(file, bytes.data(), bytes.size());
  close(file);
  if (got < static_cast<ssize_t>(modelSize / 2)) throw std::runtime_error("could not read " + path);
  return static_cast<std::size_t>(got);
}

void AddWalk(const std::string& figure, const std::string& yardstick, const fs::path& model) {
  benchmark::RegisterBenchmark((figure + "/oravin").c_str(), [model](benchmark::State& state) {
    Files files;
    const std::string path = platform::ToWindowsPath(model.string());
    for (auto _ : state) {
      if (ReadAttachments(files, path).size() != attachments) throw std::runtime_error("the walk missed weapons");
    }
  });
  benchmark::RegisterBenchmark((figure + "/" + yardstick).c_str(), [model](benchmark::State& state) {
    Bytes bytes(modelSize);
    for (auto _ : state) benchmark::DoNotOptimize(ReadPlainly(model.string(), bytes));
  });
}

}  // namespace

void AddModels(const fs::path& work) {
  const std::string wanted = "one read of the file (wanted: below 2)";
  AddWalk("Chunk walk, 4 MiB", wanted, WriteModel(work, "large.shp", 5000));
  AddWalk("Chunk walk, 4 MiB, small meshes", wanted, WriteModel(work, "small.shp", 200));
  // Not a realistic model: each header determines the position of the next, so none can be read ahead.
  AddWalk("Chunk walk, 4 MiB of empty chunks", "one read of the file (no limit)", WriteModel(work, "empty.shp", 0));
}

void PrintStatsTab(const fs::path& work) {
  const demo::Sample sample = demo::WriteSample(work / "stats-sample");
  Main main;
  int failures = 0;
  main.host.desk.showBox = [&](const Message& box) {
    failures += box.icon == Icon::exclamation && !box.success ? 1 : 0;
    return box.buttons == Buttons::ok ? Answer::ok : Answer::yes;
  };
  Form_Load(main, {sample.game.string(), sample.program.string()});
  Run(main, "switcher.cmdEnable");
  StatsTab& tab = main.stats;
  SelectOnly(tab.shipEditingList, 0);
  Run(main, "stats.pldStatsCopy");  // the chart compares with a second ship
  std::size_t row = 0;
  double most = 0;
  const double median = MedianOf(200, [&] {
    SelectOnly(tab.shipEditingList, ++row % tab.shipEditingList.rows.size());
    most = std::max(most, Seconds([&] { Run(main, "stats.shipEditingList.ItemClick"); }));
  });
  if (failures > 0 || tab.shipStatsList.rows.empty() || tab.chart.selectedName.empty()) {
    throw std::runtime_error("choosing a ship does not show it");
  }
  PrintLimit("Choose a ship", median, 0.02);
  PrintLimit("Choose a ship, the slowest", most, 0.02);
}

}  // namespace oravin::bench
