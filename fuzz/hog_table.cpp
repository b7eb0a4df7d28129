// Fuzzes the reader of the archive's table: it must find what a plain reader of the same bytes finds, throw when the
// table runs past the end, and write nothing. Loading the table for an action writes only the repaired count.

#include <algorithm>
#include <optional>

#include "actions/load_table.h"
#include "archive/archive_table.h"
#include "base/bytes.h"
#include "base/file_error.h"
#include "input_file.h"

namespace {

using oravin::Bytes;
using oravin::HogEntry;

constexpr Bytes::difference_type countAt = 8;

/// The table read in the simplest way; nothing when it runs past the end.
std::optional<std::vector<HogEntry>> PlainTable(const Bytes& file, std::uint64_t count) {
  std::vector<HogEntry> entries;
  std::size_t at = 16;
  for (std::uint64_t i = 0; i < count; ++i) {
    if (file.size() < at + 8) return std::nullopt;
    const auto nameBegin = file.begin() + static_cast<std::ptrdiff_t>(at) + 8;
    const auto nameEnd = std::find(nameBegin, file.end(), 0);
    if (nameEnd == file.end()) return std::nullopt;
    entries.push_back({std::string(nameBegin, nameEnd), oravin::BigEndian32(&file[at + 4]),
                       oravin::BigEndian32(&file[at]), static_cast<std::uint32_t>(at)});
    at = static_cast<std::size_t>(nameEnd - file.begin()) + 1;
  }
  return entries;
}

/// What the reader returns for the count that the file states; nothing when it throws.
std::optional<std::vector<HogEntry>> ReadTable(oravin::Files& files, const std::string& path) {
  try {
    oravin::File hog(files, path, oravin::OpenFor::reading);
    return oravin::GetHogData(hog, oravin::HogCount(hog));
  } catch (const oravin::FileError&) {
    return std::nullopt;
  }
}

void CheckLookUps(const std::vector<HogEntry>& entries) {
  using namespace oravin;
  const HogNames names = NamesOf(entries);
  for (std::size_t i = 0; i < std::min<std::size_t>(entries.size(), 50); ++i) {
    const int found = FindHogEntry(entries, static_cast<int>(entries.size()), entries[i].Name);
    fuzz::Require(found >= 0 && found <= static_cast<int>(i), "every name is found");
    fuzz::Require(EntriesNamed(names, entries[i].Name).front() == found, "both ways of looking find the same entry");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace oravin;
  fuzz::WriteInput("resource.hog", {data, size});
  fuzz::CountingHost here;
  const std::string path = fuzz::Folder().windows + "resource.hog";
  Bytes file(data, data + size);
  const bool headed = size >= 12;
  const auto plain = headed ? PlainTable(file, BigEndian32(&file[8])) : std::nullopt;
  fuzz::Require(ReadTable(here.host.files, path) == plain, "the reader finds the plain reader's entries, or throws");
  fuzz::Require(fuzz::ReadInput("resource.hog") == file, "the reader writes nothing");

  const LoadedTable loaded = LoadHogTable(here.host, path);
  const bool zero = headed && BigEndian32(&file[8]) == 0;
  const auto expected = zero ? PlainTable(file, repairedHogCount) : plain;
  fuzz::Require(loaded.table.entries == expected.value_or(std::vector<HogEntry>()), "the same entries are loaded");
  fuzz::Require(loaded.repaired == zero, "a count of 0 is repaired and no other");
  fuzz::Require(here.boxes == (zero ? 1 : 0) + (expected ? 0 : 1), "every trouble has its one box");
  if (zero) {
    const Bytes fixed = {0xC7, 0x03, 0x00, 0x00};
    std::copy(fixed.begin(), fixed.end(), file.begin() + countAt);
  }
  fuzz::Require(fuzz::ReadInput("resource.hog") == file, "nothing but the count is written");
  CheckLookUps(loaded.table.entries);
  return 0;
}
