#include "archive/archive_table.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "base/file_error.h"
#include "base/text.h"
#include "files/file_numbers.h"

namespace oravin {

namespace {

constexpr std::size_t firstBlock = 65536;
constexpr std::size_t largestReserve = 65536;

/// No entry may end after this file offset.
constexpr std::uint64_t tableLimit = hogTableOffset + longestHogTable;

/// From this length on, the end of a name is searched for before its characters are kept: a name without an end must
/// not load the rest of the file into memory.
constexpr std::size_t longName = std::size_t{1} << 20;

/// The table's bytes, read block by block.
struct TableBlocks {
  File& file;
  std::uint64_t blockAt = hogTableOffset;  ///< file offset of the block's first byte
  Bytes block = {};
  std::size_t at = 0;  ///< index of the next unread byte in the block
};

/// Drops the bytes already read and appends the next ones. False at the file's end.
bool ReadOn(TableBlocks& table) {
  table.block.erase(table.block.begin(), table.block.begin() + static_cast<std::ptrdiff_t>(table.at));
  table.blockAt += table.at;
  table.at = 0;
  const std::size_t kept = table.block.size();
  table.block.resize(kept + std::max(firstBlock, kept));  // a name without an end doubles the block, to the file's end
  const std::span<std::uint8_t> fresh(table.block.data() + kept, table.block.size() - kept);
  const std::size_t count = GetSome(table.file, table.blockAt + kept, fresh);
  table.block.resize(kept + count);
  return count > 0;
}

/// True when a zero byte comes anywhere after the block. Keeps none of what it searches.
bool ZeroAhead(TableBlocks& table) {
  Bytes block(firstBlock);
  for (std::uint64_t at = table.blockAt + table.block.size();; at += block.size()) {
    const std::size_t count = GetSome(table.file, at, block);
    if (std::memchr(block.data(), 0, count) != nullptr) return true;
    if (count < block.size()) return false;
  }
}

[[noreturn]] void Damaged(const TableBlocks& table, const std::string& why) {
  throw FileError("could not read", table.file.path, why, ErrorKind::damaged);
}

[[noreturn]] void EndsEarly(const TableBlocks& table) {
  Damaged(table, "its table is damaged: it ends in the middle of an entry");
}

[[noreturn]] void TooLong(const TableBlocks& table) { Damaged(table, "its table is damaged: it is too long"); }

HogEntry TakeEntry(TableBlocks& table) {
  while (table.block.size() - table.at < hogNameInEntry) {
    if (!ReadOn(table)) EndsEarly(table);
  }
  const void* zero = nullptr;
  std::size_t searched = hogNameInEntry;
  for (;;) {
    const std::size_t left = table.block.size() - table.at;
    if (left > searched) zero = std::memchr(table.block.data() + table.at + searched, 0, left - searched);
    if (zero != nullptr) break;
    if (table.blockAt + table.at + left > tableLimit) TooLong(table);
    if (searched < longName && left >= longName && !ZeroAhead(table)) EndsEarly(table);
    searched = left;
    if (!ReadOn(table)) EndsEarly(table);
  }
  const std::uint8_t* entry = table.block.data() + table.at;
  const std::uint64_t position = table.blockAt + table.at;
  const auto length = static_cast<std::size_t>(static_cast<const std::uint8_t*>(zero) - (entry + hogNameInEntry));
  table.at += hogNameInEntry + length + 1;
  if (table.blockAt + table.at > tableLimit) TooLong(table);
  return {TextOf({entry + hogNameInEntry, length}), BigEndian32(entry + 4), BigEndian32(entry),
          static_cast<std::uint32_t>(position)};
}

}  // namespace

std::uint32_t HogCount(File& hog) { return ReadLongBE(hog, hogCountOffset); }

std::vector<HogEntry> GetHogData(File& hog, std::uint32_t count) {
  TableBlocks table{hog};
  if (hogTableOffset + count * smallestHogEntry > hog.length) {
    Damaged(table, "it says that it holds " + Grouped(count) + " files, more than it has room for");
  }
  std::vector<HogEntry> entries;
  entries.reserve(std::min<std::size_t>(count, largestReserve));
  for (std::uint32_t i = 0; i < count; ++i) entries.push_back(TakeEntry(table));
  return entries;
}

bool IsBIGF(File& file) {
  std::array<std::uint8_t, 4> magic{};
  return GetSome(file, 0, magic) == magic.size() && TextOf(magic) == "BIGF";
}

int FindHogEntry(const std::vector<HogEntry>& entries, int count, const std::string& name) {
  const std::size_t known = std::min(entries.size(), static_cast<std::size_t>(std::max(count, 0)));
  for (std::size_t i = 0; i < known; ++i) {
    if (SameName(entries[i].Name, name)) return static_cast<int>(i);
  }
  return -1;
}

HogNames NamesOf(const std::vector<HogEntry>& entries) {
  HogNames names;
  names.reserve(entries.size());
  for (std::size_t i = 0; i < entries.size(); ++i) {
    names[UpperCase(Trim(entries[i].Name))].push_back(static_cast<int>(i));
  }
  return names;
}

const std::vector<int>& EntriesNamed(const HogNames& names, const std::string& name) {
  static const std::vector<int> none;
  const auto found = names.find(UpperCase(Trim(name)));
  return found == names.end() ? none : found->second;
}

HogTable TableOf(std::vector<HogEntry> entries) {
  HogTable table;
  table.names = NamesOf(entries);
  table.entries = std::move(entries);
  return table;
}

std::uint64_t EndOf(const HogEntry& entry) {
  return std::uint64_t{entry.FatPos} + hogNameInEntry + entry.Name.size() + 1;
}

}  // namespace oravin
