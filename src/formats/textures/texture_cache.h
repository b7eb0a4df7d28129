#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/bytes.h"
#include "desk/host.h"

/// The game's texture cache, `tcachehw.dat`. Numbers are 32-bit, signed and little-endian.
///
///        0    4  a format marker, 102; never checked
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
///
/// The file belongs to the game: it is read, added to and cut back, but never made from nothing.
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
/// The longest name that is given to a texture. One byte is left for the "g" of its companion, one for the zero.
inline constexpr std::size_t longestTextureName = 30;

inline constexpr std::int32_t paletteFormat = 1;  ///< 8-bit pixels: indices of a palette that the cache does not hold
inline constexpr std::int32_t colourFormat = 2;   ///< 16-bit pixels: 5 bits red, 6 green, 5 blue

/// The begin of a slot's entry in the file.
constexpr std::uint64_t TcacheEntryOffset(int slot) {
  return tcacheHeaderSize + static_cast<std::uint64_t>(slot) * tcacheEntrySize;
}

static_assert(TcacheEntryOffset(factoryTextures - 1) == 102012);
static_assert(TcacheEntryOffset(factoryTextures) == 102252);
static_assert(tcacheTableEnd == 240012);

/// What a slot of the cache says of its texture.
struct TcacheEntry {
  std::string name;               ///< at most 32 characters
  std::uint32_t entryOffset = 0;  ///< of the slot, in the file
  std::int32_t imageCount = 0;
  std::int32_t width = 0;  ///< of the largest image, in pixels
  std::int32_t height = 0;
  std::int32_t pixelFormat = 0;
  std::int32_t dataOffset = 0;  ///< where its data begin in the file

  bool operator==(const TcacheEntry&) const = default;
};

/// The used slots of a cache, in their order.
using TcacheTable = std::vector<TcacheEntry>;

/// Reads the table of a cache.
///
/// A missing file gives the box "Error - Path(s) not found.", a count below 1 or above 1000, or a file that is too
/// short for its count, "Error - not a valid tcache file"; both are titled "GetTcacheTable".
///
/// @param table replaced whole; left as it was on every error
/// @return the number of textures; 0 on any error
int GetTcacheTable(Host& host, std::string path, TcacheTable& table);

/// Writes the name, the number of images, the sizes and the data offset of one record back into its slot; everything
/// else in the slot stays, the pixel format too. Of the name's 32 bytes only the first 30 are cleared before: that is
/// meant. A missing file gives the box "Error - Path(s) not found." titled "GetTcacheTable": that is meant, too.
///
/// @throws FileError when the table has no such record, the file ends before the slot, or it cannot be written
void SaveTcacheEntry(Host& host, std::string path, const TcacheTable& table, int index);

/// Finds a texture by its name, without regard to case and to blanks at the ends.
/// @return the offset of the first such entry in the file; 0 when there is none. A missing file gives the box "TCACHE
///   file not found" titled "FindStructOffset"
std::uint32_t FindStructOffset(Host& host, std::string path, const std::string& name);

/// Finds the first texture of a pixel format.
/// @return the offset of its entry in the file; 0 when there is none. A missing file gives the box "TCACHE file not
///   found" titled "FindStructType"
std::uint32_t FindStructType(Host& host, std::string path, std::int32_t pixelFormat);

/// The length in bytes of a texture's data: its images one after the other. Halving is exact, so that an odd side gives
/// fractions, which are summed as they are; RoundedSize makes a number of bytes of it.
double TextureDataSize(double width, double height, int imageCount, int bytesPerPixel);

/// A data size as a whole number of bytes: the nearest, halves to the even neighbour. Sizes that no file can have come
/// out as 2^63.
std::uint64_t RoundedSize(double size);

/// The length of an entry's data in bytes; nothing when a side is negative, or no cache could hold so much, since its
/// offsets are 32-bit and signed.
std::optional<std::uint64_t> DataSizeOf(const TcacheEntry& entry);

/// True when the entry's data lie wholly in a file of that length, behind the table. No data lie anywhere.
bool DataLiesIn(const TcacheEntry& entry, std::uint64_t fileLength);

/// Reads a range of a file's bytes into memory (nothing is mapped).
///
/// Boxes titled "MemMappedFile": "Path(s) not found" for a missing file; "File is empty" for an empty one; "Expression
/// (startOffset < endOffset) is false", after which the procedure goes on, as is meant: there is nothing to read then.
///
/// @param buffer what was read
/// @param endOffset just past the last byte; 0 stands for the file's length, which is written back here
/// @return how many bytes were read
/// @throws FileError when the file ends before `endOffset`
std::uint64_t MemMappedFile(Host& host, std::string path, Bytes& buffer, std::uint64_t startOffset,
                            std::uint64_t& endOffset);

}  // namespace oravin
