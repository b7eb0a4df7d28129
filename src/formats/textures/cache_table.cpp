#include "textures/cache_table.h"

#include <algorithm>
#include <array>

#include "base/file_error.h"
#include "base/text.h"
#include "files/file.h"
#include "files/look_up.h"

namespace oravin {

namespace {

std::int32_t Signed(const std::uint8_t* at) { return static_cast<std::int32_t>(LittleEndian32(at)); }

}  // namespace

TcacheBytes ReadTcache(File& file) {
  TcacheBytes cache;
  cache.length = file.length;
  if (cache.length < tcacheHeaderSize) return cache;
  std::array<std::uint8_t, tcacheHeaderSize> header{};
  Get(file, 0, header);
  cache.count = Signed(&header[tcacheCountOffset]);
  cache.dataEnd = Signed(&header[tcacheDataEndOffset]);
  const std::uint64_t there = (cache.length - tcacheHeaderSize) / tcacheEntrySize;
  const auto used = static_cast<std::uint64_t>(std::clamp(cache.count, 0, tcacheCapacity));
  cache.slots.resize(static_cast<std::size_t>(std::min(there, used) * tcacheEntrySize));
  Get(file, tcacheHeaderSize, cache.slots);
  return cache;
}

TcacheBytes ReadTcache(Files& files, const std::string& path) {
  RequireFile(files, path);
  File cache(files, path, OpenFor::reading);
  return ReadTcache(cache);
}

TcacheBytes ReadUsableTcache(Files& files, const std::string& path) {
  TcacheBytes cache = ReadTcache(files, path);
  if (cache.count < 1 || cache.count > tcacheCapacity || SlotsIn(cache) < cache.count) {
    throw FileError("could not use", path, "it is no texture cache", ErrorKind::wrongFormat);
  }
  return cache;
}

int SlotsIn(const TcacheBytes& cache) { return static_cast<int>(cache.slots.size() / tcacheEntrySize); }

std::span<const std::uint8_t> SlotBytes(const TcacheBytes& cache, int slot) {
  return std::span(cache.slots).subspan(static_cast<std::size_t>(slot) * tcacheEntrySize, tcacheEntrySize);
}

std::string NameIn(std::span<const std::uint8_t> slot) {
  const auto name = slot.subspan(tcacheNameInEntry, tcacheNameWidth);
  return {name.begin(), std::find(name.begin(), name.end(), 0)};
}

TcacheEntry EntryOf(const TcacheBytes& cache, int slot) {
  const auto bytes = SlotBytes(cache, slot);
  TcacheEntry entry;
  entry.name = NameIn(bytes);
  entry.entryOffset = static_cast<std::uint32_t>(TcacheEntryOffset(slot));
  entry.imageCount = Signed(&bytes[tcacheImagesInEntry]);
  entry.width = Signed(&bytes[tcacheWidthInEntry]);
  entry.height = Signed(&bytes[tcacheHeightInEntry]);
  entry.pixelFormat = Signed(&bytes[tcacheFormatInEntry]);
  entry.dataOffset = Signed(&bytes[tcacheDataInEntry]);
  return entry;
}

TcacheTable EntriesOf(const TcacheBytes& cache) {
  TcacheTable table;
  table.reserve(static_cast<std::size_t>(SlotsIn(cache)));
  for (int slot = 0; slot < SlotsIn(cache); ++slot) table.push_back(EntryOf(cache, slot));
  return table;
}

int SlotNamed(const TcacheBytes& cache, const std::string& name) {
  for (int slot = 0; slot < SlotsIn(cache); ++slot) {
    if (SameName(NameIn(SlotBytes(cache, slot)), name)) return slot;
  }
  return -1;
}

int SlotOfFormat(const TcacheBytes& cache, std::int32_t pixelFormat) {
  for (int slot = 0; slot < SlotsIn(cache); ++slot) {
    if (Signed(&SlotBytes(cache, slot)[tcacheFormatInEntry]) == pixelFormat) return slot;
  }
  return -1;
}

bool FactoryPartIsWhole(const TcacheBytes& cache) {
  if (cache.count < factoryTextures || SlotsIn(cache) < factoryTextures || cache.length < tcacheTableEnd) return false;
  if (cache.dataEnd < static_cast<std::int64_t>(tcacheTableEnd)) return false;
  // A restore cuts the cache at the end of slot 425's data, so these must be there.
  const TcacheEntry last = EntryOf(cache, factoryTextures - 1);
  if (DataSizeOf(last).value_or(0) == 0 || !DataLiesIn(last, cache.length)) return false;
  const std::uint64_t end = FactoryDataEnd(cache);
  for (int slot = 0; slot < factoryTextures; ++slot) {
    if (!DataLiesIn(EntryOf(cache, slot), end)) return false;
  }
  return true;
}

std::uint64_t FactoryDataEnd(const TcacheBytes& cache) {
  const TcacheEntry last = EntryOf(cache, factoryTextures - 1);
  return static_cast<std::uint64_t>(last.dataOffset) + DataSizeOf(last).value_or(0);
}

}  // namespace oravin
