#include "archive/archive_table.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "base/hex_text.h"
#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/file.h"
#include "files/file_numbers.h"
#include "files/look_up.h"

namespace oravin {

namespace {

constexpr std::size_t firstBlock = 65536;
constexpr std::size_t largestReserve = 65536;

/// The file offset that no entry may reach behind.
constexpr std::uint64_t tableLimit = hogTableOffset + longestHogTable;

/// From this length on a name's end is looked for before its characters are kept: a name without an end must not take
/// memory for all the rest of the file.
constexpr std::size_t longName = std::size_t{1} << 20;

/// The table's bytes as they come from the file, block by block.
struct TableBlocks {
  File& file;
  std::uint64_t blockAt = hogTableOffset;  ///< the file offset of the block's first byte
  Bytes block = {};
  std::size_t at = 0;  ///< the next byte in the block that has not been taken
};

/// Drops what has been taken and reads on behind the rest. False at the file's end.
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

/// True when a zero byte stands anywhere behind the block: looked for without keeping what lies before it.
bool ZeroAhead(TableBlocks& table) {
  Bytes block(firstBlock);
  for (std::uint64_t at = table.blockAt + table.block.size();; at += block.size()) {
    const std::size_t count = GetSome(table.file, at, block);
    if (std::memchr(block.data(), 0, count) != nullptr) return true;
    if (count < block.size()) return false;
  }
}

[[noreturn]] void EndsEarly(const std::string& path) {
  throw FileError("could not read", path, "its table is damaged: it ends in the middle of an entry");
}

[[noreturn]] void TooLong(const std::string& path) {
  throw FileError("could not read", path, "its table is damaged: it is too long");
}

HogEntry TakeEntry(TableBlocks& table, const std::string& path) {
  while (table.block.size() - table.at < hogNameInEntry) {
    if (!ReadOn(table)) EndsEarly(path);
  }
  const void* zero = nullptr;
  std::size_t searched = hogNameInEntry;
  for (;;) {
    const std::size_t left = table.block.size() - table.at;
    if (left > searched) zero = std::memchr(table.block.data() + table.at + searched, 0, left - searched);
    if (zero != nullptr) break;
    if (table.blockAt + table.at + left > tableLimit) TooLong(path);
    if (searched < longName && left >= longName && !ZeroAhead(table)) EndsEarly(path);
    searched = left;
    if (!ReadOn(table)) EndsEarly(path);
  }
  const std::uint8_t* entry = table.block.data() + table.at;
  const std::uint64_t position = table.blockAt + table.at;
  const auto length = static_cast<std::size_t>(static_cast<const std::uint8_t*>(zero) - (entry + hogNameInEntry));
  table.at += hogNameInEntry + length + 1;
  if (table.blockAt + table.at > tableLimit) TooLong(path);
  return {TextOf({entry + hogNameInEntry, length}), BigEndian32(entry + 4), BigEndian32(entry),
          static_cast<std::uint32_t>(position)};
}

std::uint32_t RepairCount(Host& host, const std::string& path) {
  Show(host, "Error in resource.hog - Hog says number of items = 0 - attempting to correct", Icon::exclamation);
  File file(host.files, path, OpenFor::changing);
  // Little-endian, although the count is read big-endian: meant, see the header.
  Put(file, hogCountOffset, DecToByteArray(repairedHogCount));
  return repairedHogCount;
}

std::vector<HogEntry> ReadTable(Host& host, const std::string& path, bool& repaired) {
  File file(host.files, path, OpenFor::reading);
  std::uint32_t count = ReadLongBE(file, hogCountOffset);
  if (count == 0) {
    count = RepairCount(host, path);
    repaired = true;
  }
  return ReadHogTable(file, path, count);
}

}  // namespace

std::vector<HogEntry> ReadHogTable(File& file, const std::string& path, std::uint32_t count) {
  if (hogTableOffset + count * smallestHogEntry > file.length) {
    throw FileError("could not read", path,
                    "it says that it holds " + Grouped(count) + " files, more than it has room for");
  }
  std::vector<HogEntry> entries;
  entries.reserve(std::min<std::size_t>(count, largestReserve));
  TableBlocks table{file};
  for (std::uint32_t i = 0; i < count; ++i) entries.push_back(TakeEntry(table, path));
  return entries;
}

int GetHogData(Host& host, std::string& hogPath, std::vector<HogEntry>& entries, bool* repaired) {
  TrimInPlace(hogPath);
  if (!FileExists(host.files, hogPath)) Show(host, "Error - hog not found", Icon::exclamation, "GetHogData");
  bool repairedNow = false;
  entries = Trapped(host, "GetHogData", std::vector<HogEntry>(), [&] { return ReadTable(host, hogPath, repairedNow); });
  if (repaired != nullptr) *repaired = repairedNow;
  return static_cast<int>(entries.size());
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

std::uint64_t EndOf(const HogEntry& entry) {
  return std::uint64_t{entry.FatPos} + hogNameInEntry + entry.Name.size() + 1;
}

}  // namespace oravin
