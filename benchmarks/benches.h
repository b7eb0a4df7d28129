#pragma once

#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>

namespace oravin::bench {

/// Each registers the benchmarks of one figure or a few.
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

/// Prints what choosing a ship on the "Ship Stats / Guns" tab takes: its statistics, its weapons and the chart.
/// @param work a folder for a sample installation
void PrintStatsTab(const std::filesystem::path& work);
/// Prints what opening a texture cache, looking at textures and importing one take.
void PrintTextureTab(const std::filesystem::path& work);
/// Prints what the archive's tab takes to open an archive of 100,000 files and to filter its list.
void PrintArchiveTab(const std::filesystem::path& work);
/// Prints how long the window takes to its first painting, beside the 0.3 s that it may take.
/// @param programs the folder of oravin and oravin-cli
void PrintStart(const std::filesystem::path& programs, const std::filesystem::path& work);

/// The most memory that runs of the command line take on an archive of 1 GiB, in MiB; negative for one that failed.
struct Peaks {
  double enable = 0;
  double unpack = 0;
  double largestModel = 0;  ///< the largest of the files that are read at once
};

/// Measures that. It comes before all else: a program that is started counts the memory of the process that started it.
Peaks MeasureMemory(const std::filesystem::path& programs, const std::filesystem::path& work);
/// Prints it beside 64 MiB and the largest file read at once.
void PrintMemory(const Peaks& peaks);

}  // namespace oravin::bench
