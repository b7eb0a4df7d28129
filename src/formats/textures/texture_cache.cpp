#include "textures/texture_cache.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/file.h"
#include "files/look_up.h"
#include "textures/cache_table.h"

namespace oravin {

namespace {

constexpr const char* tableTitle = "GetTcacheTable";

/// Images from here on are too small to count for anything, whatever an entry claims.
constexpr int mostSizedImages = 64;

/// The bytes of a name that are cleared before a new one is written.
constexpr std::size_t clearedForName = 30;

constexpr double noFileIsSoLarge = 9223372036854775808.0;

std::uint32_t OffsetOrNone(int slot) { return slot < 0 ? 0 : static_cast<std::uint32_t>(TcacheEntryOffset(slot)); }

void PutRecord(Bytes& slot, const TcacheEntry& entry) {
  const auto name = slot.begin() + tcacheNameInEntry;
  std::fill_n(name, clearedForName, std::uint8_t{0});
  const std::string text = Trim(entry.name).substr(0, tcacheNameWidth);
  std::copy(text.begin(), text.end(), name);
  const auto put = [&](std::size_t at, std::int32_t value) {
    PutLittleEndian32(&slot[at], static_cast<std::uint32_t>(value));
  };
  put(tcacheImagesInEntry, entry.imageCount);
  put(tcacheWidthInEntry, entry.width);
  put(tcacheWidthCopyInEntry, entry.width);
  put(tcacheHeightInEntry, entry.height);
  put(tcacheHeightCopyInEntry, entry.height);
  put(tcacheDataInEntry, entry.dataOffset);
}

}  // namespace

int GetTcacheTable(Host& host, std::string path, TcacheTable& table) {
  TrimInPlace(path);
  if (!FileExists(host.files, path)) {
    Show(host, "Error - Path(s) not found.", Icon::exclamation, tableTitle);
    return 0;
  }
  return Trapped(host, tableTitle, 0, [&] {
    const TcacheBytes cache = ReadTcache(host.files, path);
    if (cache.count < 1 || cache.count > tcacheCapacity || SlotsIn(cache) < cache.count) {
      Show(host, "Error - not a valid tcache file", Icon::exclamation, tableTitle);
      return 0;
    }
    TcacheTable entries;
    entries.reserve(static_cast<std::size_t>(cache.count));
    for (int slot = 0; slot < cache.count; ++slot) entries.push_back(EntryOf(cache, slot));
    table = std::move(entries);
    return static_cast<int>(cache.count);
  });
}

void SaveTcacheEntry(Host& host, std::string path, const TcacheTable& table, int index) {
  TrimInPlace(path);
  if (!FileExists(host.files, path)) {
    Show(host, "Error - Path(s) not found.", Icon::exclamation, tableTitle);
    return;
  }
  if (index < 0 || static_cast<std::size_t>(index) >= table.size() || index >= tcacheCapacity) {
    throw FileError("could not write", path, "there is no texture number " + std::to_string(index));
  }
  File cache(host.files, path, OpenFor::changing);
  Bytes slot(tcacheEntrySize);
  Get(cache, TcacheEntryOffset(index), slot);
  PutRecord(slot, table[static_cast<std::size_t>(index)]);
  Put(cache, TcacheEntryOffset(index), slot);
}

std::uint32_t FindStructOffset(Host& host, std::string path, const std::string& name) {
  TrimInPlace(path);
  if (!FileExists(host.files, path)) {
    Show(host, "TCACHE file not found", Icon::exclamation, "FindStructOffset");
    return 0;
  }
  return Trapped(host, "FindStructOffset", std::uint32_t{0},
                 [&] { return OffsetOrNone(SlotNamed(ReadTcache(host.files, path), name)); });
}

std::uint32_t FindStructType(Host& host, std::string path, std::int32_t pixelFormat) {
  TrimInPlace(path);
  if (!FileExists(host.files, path)) {
    Show(host, "TCACHE file not found", Icon::exclamation, "FindStructType");
    return 0;
  }
  return Trapped(host, "FindStructType", std::uint32_t{0},
                 [&] { return OffsetOrNone(SlotOfFormat(ReadTcache(host.files, path), pixelFormat)); });
}

double TextureDataSize(double width, double height, int imageCount, int bytesPerPixel) {
  double total = width * height;
  for (int image = 2; image <= imageCount && image <= mostSizedImages; ++image) {
    width /= 2;
    height /= 2;
    total += width * height;
  }
  return total * bytesPerPixel;
}

std::uint64_t RoundedSize(double size) {
  if (!(size > 0)) return 0;
  return static_cast<std::uint64_t>(std::nearbyint(std::min(size, noFileIsSoLarge)));
}

std::optional<std::uint64_t> DataSizeOf(const TcacheEntry& entry) {
  constexpr std::uint64_t most = 0x7FFFFFFF;
  if (entry.width < 0 || entry.height < 0) return std::nullopt;
  const std::uint64_t size =
      RoundedSize(TextureDataSize(entry.width, entry.height, entry.imageCount, entry.pixelFormat));
  return size <= most ? std::optional(size) : std::nullopt;
}

bool DataLiesIn(const TcacheEntry& entry, std::uint64_t fileLength) {
  const auto size = DataSizeOf(entry);
  if (!size) return false;
  if (*size == 0) return true;
  return entry.dataOffset >= static_cast<std::int64_t>(tcacheTableEnd) &&
         static_cast<std::uint64_t>(entry.dataOffset) + *size <= fileLength;
}

std::uint64_t MemMappedFile(Host& host, std::string path, Bytes& buffer, std::uint64_t startOffset,
                            std::uint64_t& endOffset) {
  constexpr const char* title = "MemMappedFile";
  TrimInPlace(path);
  if (!FileExists(host.files, path)) {
    Show(host, "Path(s) not found", Icon::exclamation, title);
    return 0;
  }
  File file(host.files, path, OpenFor::reading);
  const std::uint64_t length = file.length;
  if (endOffset == 0) endOffset = length;
  if (length == 0) {
    Show(host, "File is empty", Icon::information, title);
    return 0;
  }
  if (startOffset >= endOffset) {
    // An assertion that reports and continues.
    Show(host, "Expression (startOffset < endOffset) is false", Icon::information, title);
  }
  if (endOffset > length) throw FileError("could not read", path, "it ends too early");
  buffer.assign(static_cast<std::size_t>(endOffset - std::min(startOffset, endOffset)), 0);
  Get(file, startOffset, buffer);
  return buffer.size();
}

}  // namespace oravin
