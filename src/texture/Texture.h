#pragma once

#include <cstdint>

/// The game's texture cache, `tcachehw.dat`. Numbers are 32-bit, signed and little-endian.
///
///        0    4  a format marker
///        4    4  the number of textures, N, 1 to 1000
///        8    4  the data end: where the next texture's data will begin
///       12  240  the entry of slot 0, and so on for 1000 slots; those from N on are not used
///   240012    .  the textures' data
///
/// An entry:
///
///     0   4  pixel format: 1 for 8-bit, 2 for 16-bit; also the bytes a pixel takes
///    64   4  width in pixels of the largest image
///    68   4  height
///    72  32  name, ended by a zero byte
///   104   4  serial
///   116   4  number of images, each half as wide and high as the one before
///   120   8  width and height again
///   192   4  474747 in entries that an editor made
///   224   4  where the texture's data begin in the file
namespace oravin {

inline constexpr std::uint64_t tcacheHeaderSize = 12;
inline constexpr std::uint64_t tcacheEntrySize = 240;
inline constexpr int tcacheCapacity = 1000;
inline constexpr int factoryTextures = 426;
inline constexpr std::uint64_t tcacheTableEnd = tcacheHeaderSize + tcacheCapacity * tcacheEntrySize;
inline constexpr std::uint64_t tcacheCountOffset = 4;
inline constexpr std::uint64_t tcacheDataEndOffset = 8;
inline constexpr std::uint64_t tcacheWidthInEntry = 64;
inline constexpr std::uint64_t tcacheHeightInEntry = 68;
inline constexpr std::uint64_t tcacheImagesInEntry = 116;
inline constexpr std::uint64_t tcacheDataInEntry = 224;

/// The begin of a slot's entry in the file.
constexpr std::uint64_t TcacheEntryOffset(int slot) {
  return tcacheHeaderSize + static_cast<std::uint64_t>(slot) * tcacheEntrySize;
}

static_assert(TcacheEntryOffset(factoryTextures - 1) == 102012);
static_assert(TcacheEntryOffset(factoryTextures) == 102252);
static_assert(tcacheTableEnd == 240012);

/// The length in bytes of a texture's data: its images one after the other. Halving is exact, so that an odd side gives
/// fractions, which are summed as they are; RoundedSize makes a number of bytes of it.
double TextureDataSize(double width, double height, int imageCount, int bytesPerPixel);

/// A data size as a whole number of bytes: the nearest, halves to the even neighbour.
std::uint64_t RoundedSize(double size);

}  // namespace oravin
