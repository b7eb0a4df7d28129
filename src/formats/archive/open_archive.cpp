#include "archive/open_archive.h"

#include <algorithm>
#include <array>

#include "base/file_error.h"
#include "files/file_numbers.h"
#include "files/look_up.h"
#include "files/path.h"

namespace oravin {

namespace {

constexpr std::uint32_t mostEntries = 100000;

struct Header {
  std::uint32_t size = 0;
  std::uint32_t count = 0;
  std::uint32_t tableSize = 0;
};

/// The header of an archive or of its table's backup.
Header HeaderOf(File& file) {
  return {ReadLongBE(file, hogSizeOffset), HogCount(file), ReadLongBE(file, hogTableSizeOffset)};
}

bool IsDamaged(const Header& header) { return header.count == 0 || header.count > mostEntries; }

HogEntry EntryInFile(File& hog, const HogEntry& known) {
  HogEntry entry;
  entry.FatPos = known.FatPos;
  entry.Offset = ReadLongBE(hog, entry.FatPos);
  entry.Size = ReadLongBE(hog, std::uint64_t{entry.FatPos} + 4);
  Bytes name(known.Name.size() + 1);
  Get(hog, std::uint64_t{entry.FatPos} + hogNameInEntry, name);
  entry.Name = TextOf(name);
  entry.Name.resize(std::min(entry.Name.find('\0'), known.Name.size()));
  return entry;
}

}  // namespace

std::string FatBackupOf(const std::string& hogPath) { return ChangeExtension(hogPath, ".FAT"); }

void OpenArchiveFile(Files& files, OpenArchive& archive) {
  archive.whyReadOnly = WhyNotWritable(files, archive.path);
  archive.file = File(files, archive.path, archive.whyReadOnly.empty() ? OpenFor::changing : OpenFor::reading);
}

OpenArchive OpenArchiveAt(Files& files, const std::string& path) {
  OpenArchive archive;
  archive.path = path;
  OpenArchiveFile(files, archive);
  if (!IsBIGF(archive.file)) throw FileError("could not open", path, "it is no archive", ErrorKind::wrongFormat);
  return archive;
}

TableReading ReadArchiveTable(OpenArchive& archive) {
  Header header = HeaderOf(archive.file);
  if (IsDamaged(header)) {
    Files& files = *archive.file.files;
    const std::string backup = FatBackupOf(archive.path);
    if (!FileExists(files, backup)) return {TableCondition::noBackup, header.count};
    File file(files, backup, OpenFor::reading);
    header = HeaderOf(file);
    if (IsDamaged(header)) return {TableCondition::backupDamaged, header.count};
  }
  archive.entries = GetHogData(archive.file, header.count);
  archive.size = header.size;
  archive.tableSize = header.tableSize;
  return {TableCondition::readable, header.count};
}

bool IsAsRead(OpenArchive& archive, std::size_t index) {
  const HogEntry& entry = archive.entries.at(index);
  return EntryInFile(archive.file, entry) == entry;
}

void WriteEntry(OpenArchive& archive, std::size_t index, const EntryChange& change) {
  HogEntry& entry = archive.entries.at(index);
  const std::uint64_t at = entry.FatPos;
  std::array<std::uint8_t, 4> number{};
  PutBigEndian32(number.data(), change.offset);
  Put(archive.file, at, number);
  PutBigEndian32(number.data(), change.size);
  Put(archive.file, at + 4, number);
  // The zero byte after the name stays where it is.
  if (!change.name.empty()) Put(archive.file, at + hogNameInEntry, BytesOf(change.name));
  Flush(archive.file);
  entry = EntryInFile(archive.file, entry);
}

}  // namespace oravin
