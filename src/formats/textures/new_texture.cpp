#include "textures/new_texture.h"

#include <algorithm>

#include "base/file_error.h"
#include "files/file.h"
#include "textures/colour.h"

namespace oravin {

namespace {

/// How far the data end may lie after the file's own end: importing a 24-bit bitmap leaves the last third of what it
/// reserves unwritten, and the largest bitmap has 256 x 256 pixels and a whole mipmap chain.
constexpr std::uint64_t unwrittenAtMost = 262144;

/// The new entry, made from an entry of the same format: the meaning of most of its bytes is only known to the game.
Bytes MakeEntry(const TcacheBytes& cache, const NewTexture& texture) {
  const auto previous = SlotBytes(cache, SlotsIn(cache) - 1);
  const int lender = SlotOfFormat(cache, texture.format);
  const auto from = lender < 0 ? previous : SlotBytes(cache, lender);
  Bytes entry(from.begin(), from.end());
  const auto put = [&](std::size_t at, std::uint32_t value) { PutLittleEndian32(&entry[at], value); };
  put(tcacheFormatInEntry, static_cast<std::uint32_t>(texture.format));
  std::fill_n(entry.begin() + tcacheNameInEntry, tcacheNameWidth, std::uint8_t{0});
  std::copy(texture.name.begin(), texture.name.end(), entry.begin() + tcacheNameInEntry);
  put(tcacheSerialInEntry, LittleEndian32(&previous[tcacheSerialInEntry]) + 1);
  put(tcacheImagesInEntry, static_cast<std::uint32_t>(texture.info.imageCount));
  put(tcacheWidthInEntry, static_cast<std::uint32_t>(texture.info.width));
  put(tcacheWidthCopyInEntry, static_cast<std::uint32_t>(texture.info.width));
  put(tcacheHeightInEntry, static_cast<std::uint32_t>(texture.info.height));
  put(tcacheHeightCopyInEntry, static_cast<std::uint32_t>(texture.info.height));
  put(tcacheDataInEntry, static_cast<std::uint32_t>(cache.dataEnd));
  put(tcacheMarkInEntry, editorMark);
  return entry;
}

}  // namespace

Bytes ReadPixels(Files& files, const std::string& path, const BmpInfo& info) {
  File file(files, path, OpenFor::reading);
  Bytes pixels(static_cast<std::size_t>(file.length - info.pixelOffset));
  Get(file, info.pixelOffset, pixels);
  return pixels;
}

NewTexture MakeTexture(const std::string& name, const BmpInfo& info, Bytes pixels) {
  NewTexture texture{name, info.depth == 2 || info.depth == 3 ? colourFormat : paletteFormat, info, {}, pixels.size()};
  if (info.depth == 3) {
    texture.pixels.resize(Size16Of24(pixels.size()));
    Convert24To16(pixels, texture.pixels);
  } else {
    texture.pixels = std::move(pixels);
  }
  return texture;
}

bool CanBeAddedTo(const TcacheBytes& cache) {
  if (cache.count < 1 || cache.count > tcacheCapacity || SlotsIn(cache) < cache.count) return false;
  if (cache.length < tcacheTableEnd || cache.dataEnd < static_cast<std::int64_t>(tcacheTableEnd)) return false;
  const auto end = static_cast<std::uint64_t>(cache.dataEnd);
  if (end > cache.length + unwrittenAtMost) return false;
  for (int slot = 0; slot < cache.count; ++slot) {
    const TcacheEntry entry = EntryOf(cache, slot);
    if (DataLiesIn(entry, cache.length) && !DataLiesIn(entry, end)) return false;
  }
  return true;
}

bool HasRoomFor(const TcacheBytes& cache, std::uint64_t reserved) {
  return static_cast<std::uint64_t>(cache.dataEnd) + reserved <= 0x7FFFFFFF;
}

void AddEntry(TcacheBytes& cache, const NewTexture& texture) {
  const auto at = static_cast<std::uint64_t>(cache.dataEnd);
  const Bytes entry = MakeEntry(cache, texture);
  cache.slots.insert(cache.slots.end(), entry.begin(), entry.end());
  cache.length = std::max(cache.length, at + texture.pixels.size());
  cache.dataEnd = static_cast<std::int32_t>(at + texture.reserved);
  ++cache.count;
}

void AddPixels(File& file, TcacheBytes& cache, const NewTexture& texture) {
  const auto at = static_cast<std::uint64_t>(cache.dataEnd);
  if (!HasRoomFor(cache, texture.reserved)) {
    throw FileError("could not write", file.path, "it would become too large");
  }
  Put(file, at, texture.pixels);
  StartFlush(file, at, texture.pixels.size());
  AddEntry(cache, texture);
}

void WriteTable(File& file, const TcacheBytes& cache, int fromSlot) {
  const auto entries = std::span(cache.slots).subspan(static_cast<std::size_t>(fromSlot) * tcacheEntrySize);
  Put(file, TcacheEntryOffset(fromSlot), entries);
  Flush(file);
  PutCounts(file, cache);
}

void PutCounts(File& file, const TcacheBytes& cache) {
  Bytes header(8);
  PutLittleEndian32(header.data(), static_cast<std::uint32_t>(cache.count));
  PutLittleEndian32(&header[4], static_cast<std::uint32_t>(cache.dataEnd));
  Put(file, tcacheCountOffset, header);
}

}  // namespace oravin
