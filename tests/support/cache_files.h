#pragma once

#include <string>
#include <vector>

#include "base/bytes.h"
#include "demo/cache_writer.h"

/// Caches and bitmaps put together byte by byte, and what they must be after a texture was added.
namespace oravin::test {

/// A number as caches and bitmaps store it.
Bytes Little(std::uint32_t value);
std::uint32_t LongAt(const Bytes& bytes, std::size_t offset);
void SetLong(Bytes& bytes, std::size_t offset, std::uint32_t value);

/// A cache with so many textures t0, t1, ... of one size with two mipmap levels, each with its own pixels.
Bytes Cache(int textures, int side = 4, int format = 1);

/// The same 4 x 4 cache of 426 textures of 8 bits with more textures after them; pixel i of texture n is (n + i) &
/// 255.
Bytes CacheWith(const std::vector<demo::CacheTexture>& more);

/// Sets the name in a slot.
void SetName(Bytes& cache, int slot, const std::string& name);

/// What a cache must be after one texture more.
struct Added {
  std::string name;
  std::uint32_t format;
  std::uint32_t width;
  std::uint32_t height;
  std::uint32_t images;
  Bytes stored;            ///< the pixels as the cache holds them
  std::uint32_t reserved;  ///< how far the data end moves
};
Bytes After(Bytes cache, const Added& texture);

/// A bitmap without a palette, or with one of 256 shades of grey for 8 bits. Rows are as they are given.
Bytes Bitmap(int width, int height, int bits, const Bytes& pixels);

/// So many bytes that differ.
Bytes Pattern(std::size_t count, unsigned seed = 1);

/// Loadout maps of which each moves an index by another distance, and pixels that went through them in the plainest
/// way.
Bytes LoadoutMapsForTests();
Bytes Mapped(Bytes pixels);

}  // namespace oravin::test
