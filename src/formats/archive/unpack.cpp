#include "archive/unpack.h"

#include <algorithm>
#include <array>

#include "archive/archive_table.h"
#include "archive/decompress.h"
#include "archive/disguise.h"
#include "base/file_error.h"
#include "base/text.h"
#include "files/file.h"
#include "files/file_numbers.h"
#include "files/look_up.h"
#include "files/path.h"
#include "files/whole_file.h"

namespace oravin {

namespace {

constexpr std::uint64_t unpackBlock = 1U << 20U;

/// A compressed entry's bytes and storedExcess more, up to the longest possible stream; zeros past the archive's end.
Bytes ReadCompressed(File& hog, std::uint32_t size, std::uint32_t offset) {
  std::array<std::uint8_t, 5> header{};
  GetSome(hog, offset, header);
  const std::uint64_t unpacked = BigEndian32(&header[1]) & 0xFFFFFFU;
  Bytes stored(static_cast<std::size_t>(std::min(size + storedExcess, LongestStream(unpacked))));
  GetSome(hog, offset, stored);
  return stored;
}

/// The next bytes of a stored entry; zeros past the archive's end.
/// @param at how many of its `length` bytes have been read before
Bytes StoredBlock(File& hog, std::uint32_t offset, std::uint64_t at, std::uint64_t length) {
  Bytes block(static_cast<std::size_t>(std::min(unpackBlock, length - at)));
  GetSome(hog, offset + at, block);
  return block;
}

void WriteStored(File& hog, File& file, std::uint32_t size, std::uint32_t offset) {
  const std::uint64_t length = size + storedExcess;
  for (std::uint64_t at = 0; at < length; at += unpackBlock) {
    Put(file, at, StoredBlock(hog, offset, at, length));
  }
}

/// True when a file holds what WriteStored would write.
bool SameAsStored(File& hog, const std::string& path, std::uint32_t size, std::uint32_t offset) {
  const std::uint64_t length = size + storedExcess;
  File loose(*hog.files, path, OpenFor::reading);
  Bytes block;
  for (std::uint64_t at = 0; at < length; at += unpackBlock) {
    const Bytes stored = StoredBlock(hog, offset, at, length);
    block.resize(stored.size());
    Get(loose, at, block);
    if (block != stored) return false;
  }
  return true;
}

/// Writes one more temporary file. Two ships may share a model: then the destination is committed once, with what was
/// written last.
void AddOnce(Files& files, WholeFiles& together, const std::string& destination,
             const std::function<void(File& file)>& write) {
  std::erase_if(together.paths, [&](const std::string& path) { return SameName(path, destination); });
  AddWhole(files, together, destination, write);
}

}  // namespace

bool LiesInside(const File& hog, const HogEntry& entry) {
  return std::uint64_t{entry.Offset} + entry.Size <= hog.length;
}

bool IsCompressed(File& hog, const HogEntry& entry) {
  return entry.Size >= 2 && ReadWordBE(hog, entry.Offset) == compressedSignature;
}

std::uint64_t UnpackedSize(File& hog, std::uint32_t size, std::uint32_t offset) {
  if (offset + std::uint64_t{5} > hog.length) return size + storedExcess;
  const bool compressed = ReadWordBE(hog, offset) == compressedSignature;
  return compressed ? Read24BE(hog, std::uint64_t{offset} + 2) : size + storedExcess;
}

std::uint32_t UnpackEntry(Files& files, const std::string& hogPath, const std::string& destination, std::uint32_t size,
                          std::uint32_t offset) {
  WholeFiles alone;
  const std::uint32_t signature = AddUnpacked(files, alone, hogPath, destination, size, offset);
  CommitWhole(files, alone);
  return signature;
}

std::uint32_t AddUnpacked(Files& files, WholeFiles& together, const std::string& hogPath,
                          const std::string& destination, std::uint32_t size, std::uint32_t offset) {
  File hog(files, hogPath, OpenFor::reading);
  if (std::uint64_t{offset} + size > hog.length) {
    throw FileError("could not unpack", destination, "its place in " + hogPath + " lies past that file's end",
                    ErrorKind::outside);
  }
  const std::uint32_t signature = ReadWordBE(hog, offset);
  if (signature != compressedSignature) {
    AddOnce(files, together, destination, [&](File& file) { WriteStored(hog, file, size, offset); });
    return signature;
  }
  Unpacked unpacked;
  Decompress(ReadCompressed(hog, size, offset), unpacked, destination);
  AddOnce(files, together, destination, [&](File& file) { Put(file, 0, unpacked.Span()); });
  return signature;
}

Bytes ContentOf(File& hog, const HogEntry& entry, std::uint64_t most) {
  if (!LiesInside(hog, entry)) {
    throw FileError("could not unpack", entry.Name, "its place lies past the archive's end", ErrorKind::outside);
  }
  if (entry.Size > most) throw FileError("could not unpack", entry.Name, "it is too large to be right");
  if (!IsCompressed(hog, entry)) {
    Bytes stored(entry.Size);
    Get(hog, entry.Offset, stored);
    return stored;
  }
  Unpacked unpacked;
  Decompress(ReadCompressed(hog, entry.Size, entry.Offset), unpacked, entry.Name);
  return {unpacked.Span().begin(), unpacked.Span().end()};
}

Bytes UnpackedContent(File& hog, const HogEntry& entry, std::uint64_t most) {
  Bytes content = ContentOf(hog, entry, most);
  if (entry.Size >= 2 && ReadWordBE(hog, entry.Offset) == compressedSignature) return content;
  const std::size_t own = content.size();
  content.resize(own + static_cast<std::size_t>(storedExcess));
  GetSome(hog, std::uint64_t{entry.Offset} + own, std::span(content).subspan(own));
  return content;
}

bool SameAsUnpacked(Files& files, const std::string& hogPath, const std::string& path, std::uint32_t size,
                    std::uint32_t offset) {
  File hog(files, hogPath, OpenFor::reading);
  const std::uint64_t length = UnpackedSize(hog, size, offset);
  if (std::uint64_t{offset} + size > hog.length || FileLength(files, path) != length) return false;
  if (ReadWordBE(hog, offset) != compressedSignature) {
    return SameAsStored(hog, path, size, offset);
  }
  const Bytes loose = ReadWhole(files, path, length);
  Unpacked unpacked;
  Decompress(ReadCompressed(hog, size, offset), unpacked, path);
  return std::equal(loose.begin(), loose.end(), unpacked.Span().begin(), unpacked.Span().end());
}

}  // namespace oravin
