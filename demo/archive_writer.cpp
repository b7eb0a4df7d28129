// The archive. All numbers are 32 bits, big-endian.
//
//   0   "BIGF"
//   4   size of the archive
//   8   number of entries
//   12  size of header and table, which is the offset of the first entry's bytes
//   16  the table, one row after another: offset of the bytes, size of the bytes, name, one zero byte
//   ..  the bytes of the entries
#include "demo/archive_writer.h"

#include <limits>
#include <stdexcept>
#include <utility>

#include "demo/bytes.h"

namespace oravin::demo {

namespace {

constexpr std::size_t kHeaderSize = 16;

std::uint64_t TableEnd(const std::vector<ArchiveStream::Row>& rows) {
  std::uint64_t end = kHeaderSize;
  for (const auto& row : rows) end += 8 + row.name.size() + 1;
  return end;
}

Bytes HeaderAndTable(const std::vector<ArchiveStream::Row>& rows, std::uint64_t archiveSize) {
  if (archiveSize > std::uint64_t{std::numeric_limits<std::int32_t>::max()}) {
    throw std::runtime_error("the archive would be 2 GiB or larger");
  }
  const std::uint64_t end = TableEnd(rows);
  Bytes bytes;
  bytes.reserve(static_cast<std::size_t>(end));
  PutText(bytes, "BIGF");
  PutBig32(bytes, static_cast<std::uint32_t>(archiveSize));
  PutBig32(bytes, static_cast<std::uint32_t>(rows.size()));
  PutBig32(bytes, static_cast<std::uint32_t>(end));
  for (const auto& row : rows) {
    PutBig32(bytes, row.offset);
    PutBig32(bytes, row.size);
    PutText(bytes, row.name);
    bytes.push_back(0);
  }
  return bytes;
}

}  // namespace

std::vector<std::uint8_t> BuildArchive(const std::vector<ArchiveFile>& files) {
  std::vector<ArchiveStream::Row> rows;
  rows.reserve(files.size());
  for (const ArchiveFile& file : files) rows.push_back({file.name, 0, static_cast<std::uint32_t>(file.bytes.size())});
  std::uint64_t position = TableEnd(rows);
  for (auto& row : rows) {
    row.offset = static_cast<std::uint32_t>(position);
    position += row.size;
  }
  Bytes archive = HeaderAndTable(rows, position);
  archive.reserve(static_cast<std::size_t>(position));
  for (const ArchiveFile& file : files) archive.insert(archive.end(), file.bytes.begin(), file.bytes.end());
  return archive;
}

ArchiveStream BeginArchive(const std::filesystem::path& path, std::vector<std::string> names) {
  ArchiveStream archive;
  archive.path = path;
  archive.rows.reserve(names.size());
  for (std::string& name : names) archive.rows.push_back({std::move(name), 0, 0});
  archive.position = TableEnd(archive.rows);
  std::error_code ignored;
  std::filesystem::remove(path, ignored);
  archive.file.open(path, std::ios::binary | std::ios::trunc);
  archive.file.seekp(static_cast<std::streamoff>(archive.position));
  if (!archive.rows.empty()) archive.rows[0].offset = static_cast<std::uint32_t>(archive.position);
  return archive;
}

void AppendToEntry(ArchiveStream& archive, std::span<const std::uint8_t> bytes) {
  archive.file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  archive.position += bytes.size();
}

void FinishEntry(ArchiveStream& archive) {
  ArchiveStream::Row& row = archive.rows.at(archive.done++);
  row.size = static_cast<std::uint32_t>(archive.position - row.offset);
  if (archive.done < archive.rows.size()) {
    archive.rows[archive.done].offset = static_cast<std::uint32_t>(archive.position);
  }
}

void FinishArchive(ArchiveStream& archive) {
  if (archive.done != archive.rows.size()) throw std::logic_error("an entry of the archive was not written");
  const Bytes head = HeaderAndTable(archive.rows, archive.position);
  archive.file.seekp(0);
  archive.file.write(reinterpret_cast<const char*>(head.data()), static_cast<std::streamsize>(head.size()));
  archive.file.close();
  if (!archive.file) throw std::runtime_error("cannot write " + archive.path.string());
}

}  // namespace oravin::demo
