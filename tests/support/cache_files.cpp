#include "support/cache_files.h"

#include <algorithm>

namespace oravin::test {

Bytes Little(std::uint32_t value) {
  Bytes bytes(4);
  PutLittleEndian32(bytes.data(), value);
  return bytes;
}

std::uint32_t LongAt(const Bytes& bytes, std::size_t offset) { return LittleEndian32(&bytes.at(offset)); }
void SetLong(Bytes& bytes, std::size_t offset, std::uint32_t value) { PutLittleEndian32(&bytes.at(offset), value); }

Bytes Cache(int textures, int side, int format) {
  demo::CacheBuilder cache = demo::BeginCache(300000);
  for (int i = 0; i < textures; ++i) {
    const demo::CacheTexture texture{"t" + std::to_string(i), format, side, side, 2};
    demo::AddTexture(cache, texture, Bytes(demo::PixelBytes(texture), static_cast<std::uint8_t>(1 + i % 255)));
  }
  demo::FinishCache(cache);
  return cache.bytes;
}

Bytes CacheWith(const std::vector<demo::CacheTexture>& more) {
  demo::CacheBuilder cache = demo::BeginCache(300000);
  for (int i = 0; i < 426; ++i) {
    const demo::CacheTexture texture{"t" + std::to_string(i), 1, 4, 4, 2};
    demo::AddTexture(cache, texture, Pattern(20, static_cast<unsigned>(i)));
  }
  unsigned seed = 426;
  for (const demo::CacheTexture& texture : more) {
    demo::AddTexture(cache, texture, Pattern(demo::PixelBytes(texture), seed++));
  }
  demo::FinishCache(cache);
  return cache.bytes;
}

void SetName(Bytes& cache, int slot, const std::string& name) {
  const auto at = cache.begin() + 12 + 240 * slot + 72;
  std::fill_n(at, 32, std::uint8_t{0});
  std::copy(name.begin(), name.end(), at);
}

Bytes After(Bytes cache, const Added& texture) {
  const std::uint32_t count = LongAt(cache, 4);
  const std::uint32_t end = LongAt(cache, 8);
  std::size_t lender = 0;
  while (lender < count && LongAt(cache, 12 + 240 * lender) != texture.format) ++lender;
  if (lender == count) lender = count - 1;
  const std::size_t e = 12 + std::size_t{240} * count;
  std::copy_n(cache.begin() + 12 + static_cast<std::ptrdiff_t>(240 * lender), 240,
              cache.begin() + static_cast<std::ptrdiff_t>(e));
  SetLong(cache, e, texture.format);
  SetLong(cache, e + 64, texture.width);
  SetLong(cache, e + 68, texture.height);
  SetName(cache, static_cast<int>(count), texture.name);
  SetLong(cache, e + 104, LongAt(cache, e - 240 + 104) + 1);
  SetLong(cache, e + 116, texture.images);
  SetLong(cache, e + 120, texture.width);
  SetLong(cache, e + 124, texture.height);
  SetLong(cache, e + 192, 474747);
  SetLong(cache, e + 224, end);
  SetLong(cache, 4, count + 1);
  SetLong(cache, 8, end + texture.reserved);
  cache.resize(std::max<std::size_t>(cache.size(), end + texture.stored.size()));
  std::copy(texture.stored.begin(), texture.stored.end(), cache.begin() + end);
  return cache;
}

Bytes Bitmap(int width, int height, int bits, const Bytes& pixels) {
  const std::size_t begin = bits == 8 ? 1078 : 54;
  Bytes file(begin);
  file[0] = 'B';
  file[1] = 'M';
  SetLong(file, 2, static_cast<std::uint32_t>(begin + pixels.size()));
  SetLong(file, 10, static_cast<std::uint32_t>(begin));
  SetLong(file, 14, 40);
  SetLong(file, 18, static_cast<std::uint32_t>(width));
  SetLong(file, 22, static_cast<std::uint32_t>(height));
  file[26] = 1;
  file[28] = static_cast<std::uint8_t>(bits);
  for (std::size_t i = 0; i < 256 && bits == 8; ++i) {
    SetLong(file, 54 + 4 * i, static_cast<std::uint32_t>(i * 0x010101));
  }
  file.insert(file.end(), pixels.begin(), pixels.end());
  return file;
}

Bytes Pattern(std::size_t count, unsigned seed) {
  Bytes bytes(count);
  for (std::size_t i = 0; i < count; ++i) bytes[i] = static_cast<std::uint8_t>(seed + i);
  return bytes;
}

Bytes LoadoutMapsForTests() {
  Bytes maps;
  for (std::size_t i = 0; i < 2048; ++i) maps.push_back(static_cast<std::uint8_t>(i + i / 256 + 1));
  return maps;
}

Bytes Mapped(Bytes pixels) {
  const std::size_t ends[] = {65536, 81920, 86016, 87040, 87296, 87360, 87376};
  const Bytes maps = LoadoutMapsForTests();
  for (std::size_t i = 0; i < pixels.size(); ++i) {
    std::size_t level = 0;
    while (level < 7 && i >= ends[level]) ++level;
    pixels[i] = maps[256 * level + pixels[i]];
  }
  return pixels;
}

}  // namespace oravin::test
