#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "files/file.h"
#include "files/files.h"

/// A ship model (`*.shp`) as far as the program reads it: chunks from offset 0 to the end of the file. All integers are
/// little-endian and unsigned.
///
///     0  2  type: 6 texture names, 9 weapon attachments; all others are passed over
///     2  2  size of one element in bytes
///     4  2  number of elements
///     6     the elements
///
/// The next chunk begins behind the last element. A stored model of the archive is followed by bytes that are not its
/// own; they are walked as well.
namespace oravin {

inline constexpr std::uint64_t chunkHeaderSize = 6;
inline constexpr std::uint32_t textureNamesChunk = 6;
inline constexpr std::uint32_t attachmentsChunk = 9;

/// The longest name that an element has room for.
inline constexpr std::size_t longestElement = 65535;

struct ModelChunk {
  std::uint32_t elementSize = 0;  ///< in bytes; may be 0
  std::uint32_t count = 0;
  std::uint64_t elements = 0;  ///< where the first element begins in the file; all of them may lie past its end
};

/// Where the elements of a chunk end, and the next chunk begins. Never before the chunk's own end.
inline std::uint64_t EndOf(const ModelChunk& chunk) {
  return chunk.elements + std::uint64_t{chunk.elementSize} * chunk.count;
}

/// A model that is being read from its beginning to its end. No byte is read twice, and elements that nobody asks for
/// are not read at all where they are many.
struct ModelReader {
  /// @throws FileError when the file cannot be opened
  ModelReader(Files& owner, std::string modelPath);
  /// A model whose bytes are in memory already, under the name that errors give it.
  ModelReader(std::string modelName, Bytes content);

  std::string path;
  std::optional<File> file;  ///< none for a model in memory, whose bytes are all in the block
  std::uint64_t length;      ///< of the file in bytes
  std::uint64_t next = 0;    ///< where the next chunk begins
  Bytes block;               ///< some of the file's bytes, beginning at `blockAt`
  std::uint64_t blockAt = 0;
};

/// The next chunk of one type; nothing where none is left. A header that the file has not room for is none: up to five
/// bytes behind the last chunk do not matter.
/// @throws FileError when the file cannot be read
std::optional<ModelChunk> NextChunk(ModelReader& reader, std::uint32_t type);

/// Up to `count` bytes at `offset`; fewer where the file ends before. They are good until the next call.
/// @throws FileError when the file cannot be read
std::span<const std::uint8_t> BytesAt(ModelReader& reader, std::uint64_t offset, std::size_t count);

/// The characters from `offset` up to the first zero byte, which may stand behind the element's own end.
/// @throws FileError when there is none in the file or before longestElement, and when the file cannot be read
std::string NameAt(ModelReader& reader, std::uint64_t offset);

}  // namespace oravin
