// Reading the archive's table, against one read of the same bytes that splits them at the zeros.

#include <fcntl.h>
#include <unistd.h>

#include <cstring>
#include <fstream>
#include <string>
#include <vector>

#include "archive/archive_table.h"
#include "benches.h"
#include "demo/archive_writer.h"
#include "platform/native_path.h"

namespace oravin::bench {

namespace {

std::filesystem::path WriteArchive(const std::filesystem::path& work, int entries) {
  std::vector<demo::ArchiveFile> files;
  for (int i = 0; i < entries; ++i) files.push_back({"textures\\ships\\part" + std::to_string(i) + ".dat", {1}});
  const std::vector<std::uint8_t> bytes = demo::BuildArchive(files);
  const std::filesystem::path path = work / ("table" + std::to_string(entries) + ".hog");
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  return path;
}

/// The yardstick: the table in one read, each entry's name found by the next zero, the same fields kept.
std::vector<HogEntry> SplitAtZeros(const std::string& path, std::size_t size) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  std::vector<std::uint8_t> bytes(size);
  const ssize_t got = read(file, bytes.data(), bytes.size());
  close(file);
  std::vector<HogEntry> entries;
  std::size_t at = 16;
  while (at + 9 <= static_cast<std::size_t>(got)) {
    const auto* end = static_cast<const std::uint8_t*>(std::memchr(&bytes[at + 8], 0, bytes.size() - at - 8));
    if (end == nullptr) break;
    const auto length = static_cast<std::size_t>(end - &bytes[at + 8]);
    entries.push_back({std::string(reinterpret_cast<const char*>(&bytes[at + 8]), length), BigEndian32(&bytes[at + 4]),
                       BigEndian32(&bytes[at]), static_cast<std::uint32_t>(at)});
    at += 9 + length;
  }
  return entries;
}

}  // namespace

void AddTableReading(const std::filesystem::path& work) {
  for (const int count : {1000, 10000, 100000}) {
    const std::string native = WriteArchive(work, count).string();
    const std::string figure = "GetHogData, " + std::to_string(count) + " entries";
    benchmark::RegisterBenchmark((figure + "/oravin").c_str(), [native](benchmark::State& state) {
      Files files;
      const std::string path = platform::ToWindowsPath(native);
      for (auto _ : state) {
        File hog(files, path, OpenFor::reading);
        const std::vector<HogEntry> entries = GetHogData(hog, HogCount(hog));
        benchmark::DoNotOptimize(entries.data());
      }
    });
    std::vector<std::uint8_t> header(16);
    std::ifstream(native, std::ios::binary).read(reinterpret_cast<char*>(header.data()), 16);
    const std::size_t size = BigEndian32(&header[12]);
    benchmark::RegisterBenchmark((figure + "/one read split at zeros (wanted: below 2)").c_str(),
                                 [native, size](benchmark::State& state) {
                                   for (auto _ : state) {
                                     const std::vector<HogEntry> entries = SplitAtZeros(native, size);
                                     benchmark::DoNotOptimize(entries.data());
                                   }
                                 });
  }
}

}  // namespace oravin::bench
