#include "texture/RestoreTcacheFile.h"

#include <algorithm>

#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "texture/Texture.h"
#include "util/File_Path.h"
#include "util/Hex_Util.h"
#include "util/whole_file.h"

namespace oravin {

namespace {

using platform::OpenFor;

constexpr std::uint64_t blockSize = 500000;
constexpr std::uint32_t largestSide = 65536;

[[noreturn]] void Refuse(const std::string& path) {
  throw RunTimeError("could not restore", path, "it does not hold the game's own 426 textures");
}

/// The offset just past the data of the last factory texture.
std::uint64_t FactoryDataEnd(Files& files, int cache, const std::string& path) {
  const std::uint64_t entry = TcacheEntryOffset(factoryTextures - 1);
  if (LengthOf(files, cache) < tcacheTableEnd) Refuse(path);
  const std::uint32_t format = ReadLongLE(files, entry, cache);
  const std::uint32_t width = ReadLongLE(files, entry + tcacheWidthInEntry, cache);
  const std::uint32_t height = ReadLongLE(files, entry + tcacheHeightInEntry, cache);
  const std::uint32_t images = ReadLongLE(files, entry + tcacheImagesInEntry, cache);
  const std::uint64_t data = ReadLongLE(files, entry + tcacheDataInEntry, cache);
  if (format < 1 || format > 2 || width > largestSide || height > largestSide || data < tcacheTableEnd) Refuse(path);
  const std::uint64_t end = data + RoundedSize(TextureDataSize(width, height, static_cast<int>(std::min(images, 64U)),
                                                               static_cast<int>(format)));
  if (end > LengthOf(files, cache)) Refuse(path);
  return end;
}

/// Copies the first `end` bytes, with the factory's count and data end in the header and the user slots zeroed: one
/// slot more than the stated count has, but none past the table.
void WriteFactoryPart(Files& files, int cache, int handle, std::uint64_t end) {
  for (std::uint64_t at = 0; at < end; at += blockSize) {
    Bytes block(static_cast<std::size_t>(std::min(blockSize, end - at)));
    Get(files, cache, at, block);
    Put(files, handle, at, block);
  }
  const int count = static_cast<int>(
      std::clamp<std::uint32_t>(ReadLongLE(files, tcacheCountOffset, cache), factoryTextures, tcacheCapacity - 1));
  Put(files, handle, tcacheCountOffset, DecToByteArray(factoryTextures));
  Put(files, handle, tcacheDataEndOffset, DecToByteArray(end));
  const int slots = count - factoryTextures + 1;
  Put(files, handle, TcacheEntryOffset(factoryTextures), Bytes(static_cast<std::size_t>(slots) * tcacheEntrySize));
}

}  // namespace

void RestoreTcacheFile(Host& host, std::string cachePath) {
  if (!FileExists(cachePath)) {
    Show(host, "Error - Path(s) not found", Icon::exclamation, "RestoreTcacheFile");
    return;
  }
  Trap(host, "RestoreTcacheFile", [&] {
    // The old cache is closed again before the new one takes its name.
    WriteBeside(host.files, cachePath, [&](int handle) {
      const OpenedFile cache(host.files, cachePath, OpenFor::reading);
      const std::uint64_t end = FactoryDataEnd(host.files, cache.handle, cachePath);
      WriteFactoryPart(host.files, cache.handle, handle, end);
    });
  });
}

int TcacheCount(Files& files, const std::string& cachePath) {
  if (!FileExists(std::string(cachePath)) || FileLength(cachePath) < tcacheHeaderSize) return 0;
  const OpenedFile cache(files, cachePath, OpenFor::reading);
  return static_cast<int>(std::min(ReadLongLE(files, tcacheCountOffset, cache.handle), 0x7FFFFFFFU));
}

}  // namespace oravin
