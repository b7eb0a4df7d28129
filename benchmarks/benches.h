#pragma once

#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>

namespace oravin::bench {

/// Each registers the benchmarks of one or a few figures.
void AddDecompress();
/// @param work a folder for the files that are read
void AddTableReading(const std::filesystem::path& work);
/// @param work a folder for sample installations
void AddInstallation(const std::filesystem::path& work);
/// @param work a folder for an archive of 500 MiB and what is extracted from it
void AddExtraction(const std::filesystem::path& work);

/// @param work a folder for texture caches
void AddTextures(const std::filesystem::path& work);

/// @param work a folder for ship models
void AddModels(const std::filesystem::path& work);

/// @param work a folder for enabled sample installations and ship packs
void AddImports(const std::filesystem::path& work);

/// Prints the time to choose a ship on the "Ship Stats / Guns" tab: its statistics, its weapons and the chart.
/// @param work a folder for a sample installation
void PrintStatsTab(const std::filesystem::path& work);
/// Prints the times to open a texture cache, to show textures and to import one.
void PrintTextureTab(const std::filesystem::path& work);
/// Prints the times to open an archive of 100,000 files on its tab and to filter its list.
void PrintArchiveTab(const std::filesystem::path& work);
/// Prints the time to the window's first paint, and the limit of 0.3 s.
/// @param programs the folder of oravin and oravin-cli
void PrintStart(const std::filesystem::path& programs, const std::filesystem::path& work);

/// Peak memory of the command line on an archive of 1 GiB, in MiB; negative if a run failed.
struct Peaks {
  double enable = 0;
  double unpack = 0;
  double largestModel = 0;  ///< the largest file that is read as a whole
};

/// Measures it. Must run first: a child process's peak includes the memory of its parent.
Peaks MeasureMemory(const std::filesystem::path& programs, const std::filesystem::path& work);
/// Prints it, and the limit: 64 MiB plus the largest file that is read as a whole.
void PrintMemory(const Peaks& peaks);

}  // namespace oravin::bench
