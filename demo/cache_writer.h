// Writer of the game's texture cache.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "demo/bytes.h"

namespace oravin::demo {

inline constexpr std::size_t kCacheHeaderSize = 12;
inline constexpr std::size_t kCacheSlotSize = 240;
inline constexpr std::size_t kCacheSlots = 1000;
inline constexpr int kFactoryTextures = 426;

/// A texture's entry in the cache.
struct CacheTexture {
  std::string name;  ///< at most 31 characters
  int format = 1;    ///< bytes per pixel: 1 palettised, 2 16-bit colour
  int width = 0;     ///< of the largest mipmap level, in pixels
  int height = 0;    ///< of the largest mipmap level, in pixels
  int images = 1;    ///< number of mipmap levels
};

/// A cache under construction.
struct CacheBuilder {
  Bytes bytes;
  std::uint32_t textures = 0;
};

/// The size of a texture's pixel data in bytes, summed over its mipmap levels, whose sides must all be integers.
std::size_t PixelBytes(const CacheTexture& texture);

/// An empty cache: header and 1000 empty slots; memory for `expectedBytes` is reserved.
CacheBuilder BeginCache(std::size_t expectedBytes);
/// Adds a texture in the next slot; `pixels` must be PixelBytes(texture) long. Throws std::length_error if they are
/// not, or if the cache is full.
void AddTexture(CacheBuilder& cache, const CacheTexture& texture, std::span<const std::uint8_t> pixels);
/// Writes count and data end to the header, which completes the cache.
void FinishCache(CacheBuilder& cache);

}  // namespace oravin::demo
