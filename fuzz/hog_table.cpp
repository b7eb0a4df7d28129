// Fuzzes the reader of the archive's table: it must find what a plain reader of the same bytes finds, refuse what runs
// past the end, and write nothing but the repaired count.

#include <algorithm>

#include "archive/archive_table.h"
#include "base/bytes.h"
#include "input_file.h"

namespace {

using oravin::Bytes;
using oravin::HogEntry;

constexpr Bytes::difference_type countAt = 8;

/// The table read in the plainest way; empty when it runs past the end.
std::vector<HogEntry> PlainTable(const Bytes& file, std::uint64_t count) {
  std::vector<HogEntry> entries;
  std::size_t at = 16;
  for (std::uint64_t i = 0; i < count; ++i) {
    if (file.size() < at + 8) return {};
    const auto nameBegin = file.begin() + static_cast<std::ptrdiff_t>(at) + 8;
    const auto nameEnd = std::find(nameBegin, file.end(), 0);
    if (nameEnd == file.end()) return {};
    entries.push_back({std::string(nameBegin, nameEnd), oravin::BigEndian32(&file[at + 4]),
                       oravin::BigEndian32(&file[at]), static_cast<std::uint32_t>(at)});
    at = static_cast<std::size_t>(nameEnd - file.begin()) + 1;
  }
  return entries;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace oravin;
  fuzz::WriteInput("resource.hog", {data, size});
  fuzz::CountingHost here;
  std::string path = fuzz::Folder().windows + "resource.hog";
  std::vector<HogEntry> entries;
  bool repaired = false;
  const int count = GetHogData(here.host, path, entries, &repaired);

  Bytes file(data, data + size);
  const bool zero = size >= 12 && BigEndian32(&file[8]) == 0;
  const auto expected = size < 12 ? std::vector<HogEntry>() : PlainTable(file, zero ? 967 : BigEndian32(&file[8]));
  fuzz::Require(entries == expected, "the plain reader finds the same entries");
  fuzz::Require(count == static_cast<int>(entries.size()), "the count is the number of entries");
  fuzz::Require(repaired == zero, "a count of 0 is repaired and no other");
  fuzz::Require(here.boxes == (zero ? 1 : 0) + (entries.empty() ? 1 : 0), "every trouble has its one box");
  if (zero) {
    const Bytes fixed = {0xC7, 0x03, 0x00, 0x00};
    std::copy(fixed.begin(), fixed.end(), file.begin() + countAt);
  }
  fuzz::Require(fuzz::ReadInput("resource.hog") == file, "nothing but the count is written");

  const HogNames names = NamesOf(entries);
  for (std::size_t i = 0; i < std::min<std::size_t>(entries.size(), 50); ++i) {
    const int found = FindHogEntry(entries, count, entries[i].Name);
    fuzz::Require(found >= 0 && found <= static_cast<int>(i), "every name is found");
    fuzz::Require(EntriesNamed(names, entries[i].Name).front() == found, "both ways of looking find the same entry");
  }
  return 0;
}
