#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "files/file.h"

/// The game's archive, `resource.hog`. Numbers are big-endian and unsigned.
///
///   0   4  "BIGF"
///   4   4  the archive's size in bytes
///   8   4  the number of entries
///  12   4  H, the size of the header and the table in bytes
///  16   .  the table: entry after entry, without gaps
///
/// An entry, at its table position p:
///
///   p + 0   4    the file offset of the entry's data
///   p + 4   4    the size of the data as stored, in bytes
///   p + 8   n+1  the name, n characters and a zero byte
namespace oravin {

inline constexpr std::uint64_t hogSizeOffset = 4;
inline constexpr std::uint64_t hogCountOffset = 8;
inline constexpr std::uint64_t hogTableSizeOffset = 12;
inline constexpr std::uint64_t hogTableOffset = 16;
inline constexpr std::size_t hogNameInEntry = 8;
inline constexpr std::uint64_t smallestHogEntry = 9;

/// Longer than any real table: room for a hundred thousand names of some hundred characters each. The limit keeps a
/// damaged count from reading the archive's data as entries until memory runs out.
inline constexpr std::uint64_t longestHogTable = std::uint64_t{1} << 25;

struct HogEntry {
  std::string Name;
  std::uint32_t Size = 0;    ///< of the data as stored, in bytes
  std::uint32_t Offset = 0;  ///< of the data in the file
  std::uint32_t FatPos = 0;  ///< the file offset of the entry itself

  bool operator==(const HogEntry&) const = default;
};

/// The number of entries that the archive's header states.
/// @throws FileError
std::uint32_t HogCount(File& hog);

/// Reads that many entries of an archive's table. The rest of the header is not looked at.
/// @throws FileError of the kind `damaged` when the file has no room for that many entries, ends in the middle of one,
///   or the table is longer than longestHogTable
std::vector<HogEntry> GetHogData(File& hog, std::uint32_t count);

/// True when the file starts with "BIGF", in capitals.
bool IsBIGF(File& file);

/// The index of the first entry of that name; -1 without one. Case and spaces at the ends do not matter.
/// @param count how many of the entries are searched
int FindHogEntry(const std::vector<HogEntry>& entries, int count, const std::string& name);

/// The entries' indices by upper-case trimmed name, in table order: for many look-ups in one table.
using HogNames = std::unordered_map<std::string, std::vector<int>>;
HogNames NamesOf(const std::vector<HogEntry>& entries);

/// The indices of all entries of one name; the first is the one that FindHogEntry returns.
const std::vector<int>& EntriesNamed(const HogNames& names, const std::string& name);

/// A table and the index of its names.
struct HogTable {
  std::vector<HogEntry> entries;
  HogNames names;
};

HogTable TableOf(std::vector<HogEntry> entries);

/// The file offset just after an entry of the table.
std::uint64_t EndOf(const HogEntry& entry);

}  // namespace oravin
