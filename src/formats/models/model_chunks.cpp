#include "models/model_chunks.h"

#include <algorithm>

#include "base/file_error.h"

namespace oravin {

namespace {

constexpr std::size_t blockSize = std::size_t{1} << 16;
constexpr std::size_t nameStep = 64;  // most names are shorter

std::uint32_t Word(const std::uint8_t* at) { return at[0] + std::uint32_t{at[1]} * 256; }

}  // namespace

ModelReader::ModelReader(Files& owner, std::string modelPath)
    : path(std::move(modelPath)), file(std::in_place, owner, path, OpenFor::reading), length(file->length) {}

ModelReader::ModelReader(std::string modelName, Bytes content)
    : path(std::move(modelName)), length(content.size()), block(std::move(content)) {}

std::span<const std::uint8_t> BytesAt(ModelReader& reader, std::uint64_t offset, std::size_t count) {
  if (offset >= reader.length) return {};
  const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(count, reader.length - offset));
  const bool inBlock = offset >= reader.blockAt && offset - reader.blockAt <= reader.block.size() &&
                       wanted <= reader.block.size() - (offset - reader.blockAt);
  if (!inBlock) {
    const std::size_t most = std::max(blockSize, wanted);
    reader.block.resize(static_cast<std::size_t>(std::min<std::uint64_t>(most, reader.length - offset)));
    reader.blockAt = offset;
    Get(*reader.file, offset, reader.block);
  }
  return std::span(reader.block).subspan(static_cast<std::size_t>(offset - reader.blockAt), wanted);
}

std::optional<ModelChunk> NextChunk(ModelReader& reader, std::uint32_t type) {
  for (;;) {
    const auto header = BytesAt(reader, reader.next, chunkHeaderSize);
    if (header.size() < chunkHeaderSize) return std::nullopt;
    // Within the block only headers are read, so that very many small chunks are fast.
    const std::uint8_t* const end = reader.block.data() + reader.block.size();
    const std::uint8_t* at = header.data();
    for (;;) {
      const ModelChunk chunk{Word(at + 2), Word(at + 4), reader.next + chunkHeaderSize};
      const std::uint64_t size = EndOf(chunk) - reader.next;
      reader.next += size;
      if (Word(at) == type) return chunk;
      if (size + chunkHeaderSize > static_cast<std::uint64_t>(end - at)) break;
      at += size;
    }
  }
}

std::string NameAt(ModelReader& reader, std::uint64_t offset) {
  std::string name;
  for (;;) {
    const auto bytes = BytesAt(reader, offset + name.size(), nameStep);
    const auto end = std::find(bytes.begin(), bytes.end(), std::uint8_t{0});
    name.append(bytes.begin(), end);
    if (end != bytes.end() && name.size() <= longestElement) return name;
    if (bytes.empty() || name.size() > longestElement) {
      throw FileError("could not read", reader.path, "a texture's name in it has no end");
    }
  }
}

}  // namespace oravin
