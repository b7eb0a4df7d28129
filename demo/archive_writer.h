// Writes the game's archive format.
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
  std::vector<std::uint8_t> bytes;  ///< as stored (compressed content begins 10 FB)
};

/// The bytes of a whole archive with the given entries, in their order, without gaps.
std::vector<std::uint8_t> BuildArchive(const std::vector<ArchiveFile>& files);

/// An archive that is written to disk entry by entry, for archives too large for memory. Its names are known from the
/// start, so the table's size is too; the table itself is written at the end, when the sizes are known.
struct ArchiveStream {
  struct Row {
    std::string name;
    std::uint32_t offset = 0;
    std::uint32_t size = 0;
  };
  std::ofstream file;
  std::filesystem::path path;
  std::vector<Row> rows;
  std::size_t done = 0;        ///< rows whose bytes are complete
  std::uint64_t position = 0;  ///< where the next byte goes
};

/// Starts an archive at `path` (an existing file is replaced) with one entry per name, in that order.
ArchiveStream BeginArchive(const std::filesystem::path& path, std::vector<std::string> names);
/// Appends bytes to the entry that is being written; FinishEntry completes it and goes on to the next name.
void AppendToEntry(ArchiveStream& archive, std::span<const std::uint8_t> bytes);
void FinishEntry(ArchiveStream& archive);
/// Writes header and table and closes the file. Every entry must be finished. Throws std::runtime_error when the disk
/// refused a write or the archive is 2 GiB or larger (the format's readers hold offsets in 32 signed bits).
void FinishArchive(ArchiveStream& archive);

}  // namespace oravin::demo
