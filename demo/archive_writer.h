// Writer of the game's archive format.
#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <span>
#include <string>
#include <vector>

namespace oravin::demo {

/// One entry of an archive.
struct ArchiveFile {
  std::string name;
  std::vector<std::uint8_t> bytes;  ///< as stored (compressed content starts with 10 FB)
};

/// A whole archive with the given entries in this order, without gaps.
std::vector<std::uint8_t> BuildArchive(const std::vector<ArchiveFile>& files);

/// An archive that is written to disk entry by entry, for archives too large for memory. All names are known at the
/// start, and so is the table's size; the table itself is written last, when the entries' sizes are known.
struct ArchiveStream {
  struct Row {
    std::string name;
    std::uint32_t offset = 0;
    std::uint32_t size = 0;
  };
  std::ofstream file;
  std::filesystem::path path;
  std::vector<Row> rows;
  std::size_t done = 0;        ///< completed entries
  std::uint64_t position = 0;  ///< offset of the next byte
};

/// Starts an archive at `path` with one entry per name, in that order. Replaces an existing file.
ArchiveStream BeginArchive(const std::filesystem::path& path, std::vector<std::string> names);
/// Appends bytes to the current entry; FinishEntry completes it and continues with the next name.
void AppendToEntry(ArchiveStream& archive, std::span<const std::uint8_t> bytes);
void FinishEntry(ArchiveStream& archive);
/// Writes header and table and closes the file. Every entry must be finished. Throws std::runtime_error if the disk
/// refuses a write or the archive is 2 GiB or larger (readers of the format keep offsets in 32 signed bits).
void FinishArchive(ArchiveStream& archive);

}  // namespace oravin::demo
