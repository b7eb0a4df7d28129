#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/bytes.h"
#include "files/files.h"

/// The game's texture cache, `tcachehw.dat`. Numbers are 32-bit, signed and little-endian.
///
///        0    4  a format marker, 102; never checked
///        4    4  the number of textures, N, 1 to 1000
///        8    4  the data end: the offset of the next texture's data
///       12  240  the entry of slot 0, and so on for 1000 slots; those from N on are unused
///   240012    .  the textures' data
///
/// An entry:
///
///     0   4  pixel format: 1 for 8-bit, 2 for 16-bit; also the bytes a pixel takes
///    64   4  width in pixels of the largest mipmap level
///    68   4  height
///    72  32  name, ended by a zero byte
///   104   4  serial
///   116   4  number of mipmap levels, each half as wide and high as the one before
///   120   8  width and height again
///   192   4  474747 in entries that an editor made
///   224   4  offset of the texture's data in the file
///
/// The file belongs to the game: Oravin reads it, adds to it and cuts it back, but never creates one.
namespace oravin {

inline constexpr std::uint64_t tcacheHeaderSize = 12;
inline constexpr std::uint64_t tcacheEntrySize = 240;
inline constexpr int tcacheCapacity = 1000;
inline constexpr int factoryTextures = 426;
inline constexpr std::uint64_t tcacheTableEnd = tcacheHeaderSize + tcacheCapacity * tcacheEntrySize;
inline constexpr std::uint32_t tcacheMarker = 102;
inline constexpr std::uint32_t editorMark = 474747;
inline constexpr std::uint64_t tcacheCountOffset = 4;
inline constexpr std::uint64_t tcacheDataEndOffset = 8;
inline constexpr std::uint64_t tcacheFormatInEntry = 0;
inline constexpr std::uint64_t tcacheWidthInEntry = 64;
inline constexpr std::uint64_t tcacheHeightInEntry = 68;
inline constexpr std::uint64_t tcacheNameInEntry = 72;
inline constexpr std::uint64_t tcacheSerialInEntry = 104;
inline constexpr std::uint64_t tcacheImagesInEntry = 116;
inline constexpr std::uint64_t tcacheWidthCopyInEntry = 120;
inline constexpr std::uint64_t tcacheHeightCopyInEntry = 124;
inline constexpr std::uint64_t tcacheMarkInEntry = 192;
inline constexpr std::uint64_t tcacheDataInEntry = 224;
inline constexpr std::size_t tcacheNameWidth = 32;
/// The longest name of a new texture: leaves one byte for the "g" of its companion and one for the zero.
inline constexpr std::size_t longestTextureName = 30;

inline constexpr std::int32_t paletteFormat = 1;  ///< 8-bit pixels: indices into a palette that is not in the cache
inline constexpr std::int32_t colourFormat = 2;   ///< 16-bit pixels: 5 bits red, 6 green, 5 blue

/// Offset of a slot's entry in the file.
constexpr std::uint64_t TcacheEntryOffset(int slot) {
  return tcacheHeaderSize + static_cast<std::uint64_t>(slot) * tcacheEntrySize;
}

static_assert(TcacheEntryOffset(factoryTextures - 1) == 102012);
static_assert(TcacheEntryOffset(factoryTextures) == 102252);
static_assert(tcacheTableEnd == 240012);

/// One texture of the cache, as its slot describes it.
struct TcacheEntry {
  std::string name;               ///< at most 32 characters
  std::uint32_t entryOffset = 0;  ///< of the slot, in the file
  std::int32_t imageCount = 0;    ///< mipmap levels
  std::int32_t width = 0;         ///< of the largest mipmap level, in pixels
  std::int32_t height = 0;
  std::int32_t pixelFormat = 0;
  std::int32_t dataOffset = 0;  ///< of its data, in the file

  bool operator==(const TcacheEntry&) const = default;
};

/// The used slots of a cache, in their order.
using TcacheTable = std::vector<TcacheEntry>;

/// Reads the table of a cache.
/// @throws FileError of the kind `missing`; of the kind `wrongFormat` when the count is below 1 or above 1000, or the
///   file is too short for its count
TcacheTable GetTcacheTable(Files& files, const std::string& path);

/// Writes name, number of mipmap levels, sizes and data offset of one record into its slot. Everything else in the slot
/// stays, the pixel format too. Intentional: only the first 30 of the name's 32 bytes are cleared before.
/// @param index of the record in the table
/// @throws FileError of the kind `missing`; of the kind `outside` when the table has no such record; when the file ends
///   before the slot, or cannot be written
void SaveTcacheEntry(Files& files, const std::string& path, const TcacheTable& table, int index);

/// The length in bytes of a texture's data: its mipmap levels one after the other. Halving is exact: an odd side gives
/// fractions, which are summed as they are. RoundedSize turns the sum into a number of bytes.
double TextureDataSize(double width, double height, int imageCount, int bytesPerPixel);

/// A data size as a whole number of bytes: the nearest, halves to even. A size that no file can have gives 2^63.
std::uint64_t RoundedSize(double size);

/// The length of an entry's data in bytes; nothing when a side is negative or the size is above the 2 GB that 32-bit
/// signed offsets can reach.
std::optional<std::uint64_t> DataSizeOf(const TcacheEntry& entry);

/// True when the entry's data lie wholly in a file of that length, after the table. Data of no size lie anywhere.
bool DataLiesIn(const TcacheEntry& entry, std::uint64_t fileLength);

}  // namespace oravin
