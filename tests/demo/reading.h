// Readers for the tests of the sample installation, written from the formats and sharing nothing with the writers.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <span>
#include <string>
#include <vector>

namespace oravin::demo::reading {

using Bytes = std::vector<std::uint8_t>;

std::uint32_t Little16(std::span<const std::uint8_t> bytes, std::size_t at);
std::uint32_t Little32(std::span<const std::uint8_t> bytes, std::size_t at);
std::uint32_t Big32(std::span<const std::uint8_t> bytes, std::size_t at);
std::string TextAt(std::span<const std::uint8_t> bytes, std::size_t at);
Bytes FileBytes(const std::filesystem::path& path);

/// A path of the system's temporary folder that nobody else uses; nothing is there yet.
std::filesystem::path FreshPath(const std::string& name);

/// Every file below a folder, by its path relative to it.
std::map<std::string, Bytes> AllFiles(const std::filesystem::path& folder);

/// How often each form of command occurred.
struct Forms {
  std::size_t shortCopies = 0, mediumCopies = 0, longCopies = 0, literalRuns = 0, ends = 0;
  std::array<std::size_t, 4> literalsOnCopies{};
  std::size_t farthest = 0;     ///< the largest distance
  std::size_t longest = 0;      ///< the longest copy
  std::size_t overlapping = 0;  ///< copies longer than their distance
};

/// Decodes one compressed entry. Throws std::runtime_error when the stream is malformed in any way: it runs out,
/// reaches before its start, gives another length than it declares, or has bytes left after its end command.
Bytes Decode(std::span<const std::uint8_t> entry, Forms* forms = nullptr);

struct Entry {
  std::string name;
  std::size_t offset = 0, size = 0;
};
/// The table of an archive; throws std::runtime_error when it contradicts the header or the file's length.
std::vector<Entry> ReadTable(std::span<const std::uint8_t> archive);

struct Chunk {
  std::uint32_t type = 0, elementSize = 0, count = 0;
  std::size_t elements = 0;  ///< offset of the first element
};
/// The chunks of a model; throws std::runtime_error when the walk does not end exactly at the file's end.
std::vector<Chunk> WalkChunks(std::span<const std::uint8_t> model);

}  // namespace oravin::demo::reading
