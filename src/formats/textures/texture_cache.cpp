#include "textures/texture_cache.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/file_error.h"
#include "base/text.h"
#include "files/file.h"
#include "files/look_up.h"
#include "textures/cache_table.h"

namespace oravin {

namespace {

/// Further mipmap levels are too small to change the sum, however many an entry claims.
constexpr int mostSizedLevels = 64;

/// So many bytes of a name are cleared before a new one is written.
constexpr std::size_t clearedForName = 30;

constexpr double noFileIsSoLarge = 9223372036854775808.0;

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

TcacheTable GetTcacheTable(Files& files, const std::string& path) { return EntriesOf(ReadUsableTcache(files, path)); }

void SaveTcacheEntry(Files& files, const std::string& path, const TcacheTable& table, int index) {
  RequireFile(files, path);
  if (index < 0 || static_cast<std::size_t>(index) >= table.size() || index >= tcacheCapacity) {
    throw FileError("could not write", path, "there is no texture number " + std::to_string(index), ErrorKind::outside);
  }
  File cache(files, path, OpenFor::changing);
  Bytes slot(tcacheEntrySize);
  Get(cache, TcacheEntryOffset(index), slot);
  PutRecord(slot, table[static_cast<std::size_t>(index)]);
  Put(cache, TcacheEntryOffset(index), slot);
}

double TextureDataSize(double width, double height, int imageCount, int bytesPerPixel) {
  double total = width * height;
  for (int level = 2; level <= imageCount && level <= mostSizedLevels; ++level) {
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

}  // namespace oravin
