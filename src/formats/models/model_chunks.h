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
/// The next chunk follows the last element. A stored model of the archive is followed by bytes that are not its own;
/// they are walked as well.
namespace oravin {

inline constexpr std::uint64_t chunkHeaderSize = 6;
inline constexpr std::uint32_t textureNamesChunk = 6;
inline constexpr std::uint32_t attachmentsChunk = 9;

/// The longest name that fits into an element.
inline constexpr std::size_t longestElement = 65535;

struct ModelChunk {
  std::uint32_t elementSize = 0;  ///< in bytes; may be 0
  std::uint32_t count = 0;
  std::uint64_t elements = 0;  ///< offset of the first element in the file; all of them may lie past its end
};

/// The offset after a chunk's last element, where the next chunk starts.
inline std::uint64_t EndOf(const ModelChunk& chunk) {
  return chunk.elements + std::uint64_t{chunk.elementSize} * chunk.count;
}

/// A model that is being read from start to end. No byte is read twice, and large runs of elements that nobody asks for
/// are not read at all.
struct ModelReader {
  /// @throws FileError when the file cannot be opened
  ModelReader(Files& owner, std::string modelPath);
  /// A model that is in memory.
  /// @param modelName its path in errors
  ModelReader(std::string modelName, Bytes content);

  std::string path;
  std::optional<File> file;  ///< none for a model in memory, of which the block is the whole
  std::uint64_t length;      ///< of the file in bytes
  std::uint64_t next = 0;    ///< offset of the next chunk
  Bytes block;               ///< some of the file's bytes, starting at `blockAt`
  std::uint64_t blockAt = 0;
};

/// The next chunk of one type; nothing where none is left. Up to five bytes after the last chunk, too few for a header,
/// do not matter.
/// @throws FileError when the file cannot be read
std::optional<ModelChunk> NextChunk(ModelReader& reader, std::uint32_t type);

/// Up to `count` bytes at `offset`; fewer where the file ends before. Valid until the next call.
/// @throws FileError when the file cannot be read
std::span<const std::uint8_t> BytesAt(ModelReader& reader, std::uint64_t offset, std::size_t count);

/// The characters from `offset` up to the first zero byte, which may lie past the element's end.
/// @throws FileError when there is none in the file or before longestElement, and when the file cannot be read
std::string NameAt(ModelReader& reader, std::uint64_t offset);

}  // namespace oravin
