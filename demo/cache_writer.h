// Writes the game's texture cache.
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

/// What a slot of the cache says of its texture.
struct CacheTexture {
  std::string name;  ///< at most 31 characters
  int format = 1;    ///< bytes per pixel: 1 palettised, 2 16-bit colour
  int width = 0;     ///< of the largest image, in pixels
  int height = 0;    ///< of the largest image, in pixels
  int images = 1;    ///< in the chain of halved sizes
};

/// A cache that is being built: its bytes so far.
struct CacheBuilder {
  Bytes bytes;
  std::uint32_t textures = 0;
};

/// The length of the pixel data of a texture whose images all have whole sides: the sum over the images, in bytes.
std::size_t PixelBytes(const CacheTexture& texture);

/// An empty cache: header and 1000 empty slots; room for `expectedBytes` is set aside.
CacheBuilder BeginCache(std::size_t expectedBytes);
/// Adds a texture in the next slot; `pixels` must be PixelBytes(texture) long. Throws std::length_error when they are
/// not, or the cache is full.
void AddTexture(CacheBuilder& cache, const CacheTexture& texture, std::span<const std::uint8_t> pixels);
/// Writes count and data end into the header; the cache's bytes are then complete.
void FinishCache(CacheBuilder& cache);

}  // namespace oravin::demo
