// Usage: oravin-bench PROGRAMS WORK. PROGRAMS is the folder of oravin, oravin-cli and oravin-demo, WORK a folder for
// temporary files.

#include <cstdio>

#include "benches.h"
#include "ratio_table.h"

int main(int argc, char** argv) {
  using namespace oravin::bench;
  benchmark::Initialize(&argc, argv);
  if (argc != 3) {
    std::fprintf(stderr, "Usage: oravin-bench PROGRAMS WORK\n");
    return 2;
  }
  const std::filesystem::path programs = std::filesystem::absolute(argv[1]);
  const std::filesystem::path work = std::filesystem::absolute(argv[2]);
  std::filesystem::create_directories(work);
  const Peaks peaks = MeasureMemory(programs, work);
  AddDecompress();
  AddTableReading(work);
  AddInstallation(work);
  AddExtraction(work);
  AddTextures(work);
  AddModels(work);
  AddImports(work);
  RatioTable table;
  benchmark::RunSpecifiedBenchmarks(&table);
  PrintArchiveTab(work);
  PrintTextureTab(work);
  PrintStatsTab(work);
  PrintStart(programs, work);
  PrintMemory(peaks);
  return 0;
}
