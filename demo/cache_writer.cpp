// The texture cache, all numbers 32 bits, little-endian:
//
//   0   format marker, 102
//   4   number of textures
//   8   data end: just past the last byte of pixel data
//   12  1000 slots of 240 bytes, the unused ones zero
//   240012  pixel data, one run per texture
//
// A slot:
//
//   0    pixel format           104  serial number       192  mark of imported textures, 0 here
//   4    60 bytes of the game   108  8 bytes of the game 196  28 bytes of the game
//   64   width                  116  number of levels    224  offset of the pixel data
//   68   height                 120  width again         228  12 bytes of the game
//   72   name, 32 bytes         124  height again
//                               128  64 bytes of the game
#include "demo/cache_writer.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "demo/random.h"

namespace oravin::demo {

namespace {

constexpr std::uint32_t kCacheMarker = 102;
constexpr std::uint32_t kFirstSerial = 1001;
constexpr std::size_t kDataBegin = kCacheHeaderSize + kCacheSlots * kCacheSlotSize;
static_assert(kDataBegin == 240012);

// The game's own fields look like those of a drawing surface: sizes, flags, colour masks, stale addresses.
Bytes BuildSlot(const CacheTexture& texture, std::uint32_t serial, std::uint32_t dataOffset) {
  Random random{SeedOf(texture.name)};
  const auto width = static_cast<std::uint32_t>(texture.width);
  const auto height = static_cast<std::uint32_t>(texture.height);
  const auto format = static_cast<std::uint32_t>(texture.format);
  const auto address = [&] { return 0x00400000U + Below(random, 0x01000000) * 4; };
  Bytes slot;
  PutLittle32(slot, format);
  for (const std::uint32_t v : {108U, 0x00021007U, height, width, width * format, address()}) PutLittle32(slot, v);
  // Size of the pixel format, its flags (colour or palette), bits, masks of red, green and blue.
  using Words = std::array<std::uint32_t, 6>;
  const Words pixelFormat = format == 2 ? Words{32, 0x40, 16, 0xF800, 0x07E0, 0x001F} : Words{32, 0x60, 8, 0, 0, 0};
  for (const std::uint32_t v : pixelFormat) PutLittle32(slot, v);
  for (int i = 0; i < 3; ++i) PutLittle32(slot, address());
  PutLittle32(slot, width);
  PutLittle32(slot, height);
  PutField(slot, texture.name, 32);
  PutLittle32(slot, serial);
  PutLittle32(slot, address());
  PutLittle32(slot, 1);
  PutLittle32(slot, static_cast<std::uint32_t>(texture.images));
  PutLittle32(slot, width);
  PutLittle32(slot, height);
  for (int i = 0; i < 16; ++i) PutLittle32(slot, i < texture.images ? address() : 0);
  PutLittle32(slot, 0);
  for (int i = 0; i < 7; ++i) PutLittle32(slot, i % 2 == 0 ? address() : 0x3F800000U);
  PutLittle32(slot, dataOffset);
  for (int i = 0; i < 3; ++i) PutLittle32(slot, Below(random, 256));
  return slot;
}

}  // namespace

std::size_t PixelBytes(const CacheTexture& texture) {
  std::size_t total = 0;
  auto width = static_cast<std::size_t>(texture.width);
  auto height = static_cast<std::size_t>(texture.height);
  for (int i = 0; i < texture.images; ++i) {
    total += width * height;
    width /= 2;
    height /= 2;
  }
  return total * static_cast<std::size_t>(texture.format);
}

CacheBuilder BeginCache(std::size_t expectedBytes) {
  CacheBuilder cache;
  cache.bytes.reserve(expectedBytes);
  cache.bytes.resize(kDataBegin);
  return cache;
}

void AddTexture(CacheBuilder& cache, const CacheTexture& texture, std::span<const std::uint8_t> pixels) {
  if (cache.textures == kCacheSlots) throw std::length_error("the texture cache is full");
  if (pixels.size() != PixelBytes(texture)) throw std::length_error("wrong number of pixel bytes for " + texture.name);
  const Bytes slot = BuildSlot(texture, kFirstSerial + cache.textures, static_cast<std::uint32_t>(cache.bytes.size()));
  if (slot.size() != kCacheSlotSize) throw std::logic_error("wrong size of a texture's slot");
  const std::size_t at = kCacheHeaderSize + cache.textures * kCacheSlotSize;
  std::copy(slot.begin(), slot.end(), cache.bytes.begin() + static_cast<std::ptrdiff_t>(at));
  cache.bytes.insert(cache.bytes.end(), pixels.begin(), pixels.end());
  ++cache.textures;
}

void FinishCache(CacheBuilder& cache) {
  SetLittle32(cache.bytes, 0, kCacheMarker);
  SetLittle32(cache.bytes, 4, cache.textures);
  SetLittle32(cache.bytes, 8, static_cast<std::uint32_t>(cache.bytes.size()));
}

}  // namespace oravin::demo
