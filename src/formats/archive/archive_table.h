#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "desk/host.h"
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
///   p + 0   4    where the entry's data begin in the file
///   p + 4   4    how many bytes these are, as stored
///   p + 8   n+1  the name, n characters and a zero byte
namespace oravin {

inline constexpr std::uint64_t hogSizeOffset = 4;
inline constexpr std::uint64_t hogCountOffset = 8;
inline constexpr std::uint64_t hogTableSizeOffset = 12;
inline constexpr std::uint64_t hogTableOffset = 16;
inline constexpr std::size_t hogNameInEntry = 8;
inline constexpr std::uint64_t smallestHogEntry = 9;

/// No table is that long: a hundred thousand names of some hundred characters each. A damaged count must not take the
/// archive's data for entries until the memory is full.
inline constexpr std::uint64_t longestHogTable = std::uint64_t{1} << 25;

/// What a damaged count of 0 is repaired to: the number of entries of the game's archive.
inline constexpr std::uint32_t repairedHogCount = 967;

struct HogEntry {
  std::string Name;
  std::uint32_t Size = 0;
  std::uint32_t Offset = 0;
  std::uint32_t FatPos = 0;  ///< where the entry itself stands in the file

  bool operator==(const HogEntry&) const = default;
};

/// Reads the archive's table.
///
/// A count of 0 is repaired: a box says so, 967 is written over it and taken for this read. The number is written
/// little-endian although it is read big-endian, so that the next read sees an enormous count. Both are meant and stay.
///
/// @param hogPath trimmed in place. A missing file gives the box "Error - hog not found" before the error trap's own
/// @param repaired set to whether the count was repaired in this read; may be left out
/// @return the number of entries; 0, and no entries, when the table cannot be read whole or is longer than
///   longestHogTable
int GetHogData(Host& host, std::string& hogPath, std::vector<HogEntry>& entries, bool* repaired = nullptr);

/// Reads so many entries of the table of an archive that is open.
/// @param path the archive's, for the error
/// @throws FileError when the file has no room for that many entries, ends in the middle of one, or their table is
///   longer than longestHogTable
std::vector<HogEntry> ReadHogTable(File& file, const std::string& path, std::uint32_t count);

/// True when the file begins with "BIGF", in capitals.
bool IsBIGF(File& file);

/// The index of the first entry of that name, without blanks at the ends and without regard to case; -1 without one.
int FindHogEntry(const std::vector<HogEntry>& entries, int count, const std::string& name);

/// Finds many names in one table: the entries' indices by upper-case trimmed name, in table order.
using HogNames = std::unordered_map<std::string, std::vector<int>>;
HogNames NamesOf(const std::vector<HogEntry>& entries);

/// The indices of the entries of one name; the first of them is what FindHogEntry returns.
const std::vector<int>& EntriesNamed(const HogNames& names, const std::string& name);

/// The position just behind an entry of the table.
std::uint64_t EndOf(const HogEntry& entry);

}  // namespace oravin
