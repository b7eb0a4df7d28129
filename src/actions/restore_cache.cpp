#include "actions/restore_cache.h"

#include <algorithm>
#include <array>

#include "base/hex_text.h"
#include "base/text.h"
#include "desk/error_trap.h"
#include "files/file.h"
#include "files/file_numbers.h"
#include "files/look_up.h"
#include "files/path.h"
#include "files/whole_file.h"
#include "textures/cache_table.h"

namespace oravin {

namespace {

constexpr const char* restoreTitle = "RestoreTcacheFile";
constexpr std::uint64_t restoreBlock = 500000;

/// Zeroes the entries from slot `from` on that an editor made: an interrupted import leaves them in unused slots.
void ZeroLeftOverSlots(File& source, int from, File& file) {
  std::array<std::uint8_t, 4> mark{};
  const Bytes nothing(tcacheEntrySize);
  for (int slot = from; slot < tcacheCapacity; ++slot) {
    Get(source, TcacheEntryOffset(slot) + tcacheMarkInEntry, mark);
    if (LittleEndian32(mark.data()) == editorMark) Put(file, TcacheEntryOffset(slot), nothing);
  }
}

/// Copies the first `end` bytes, with the factory's count and data end in the header and the user slots zeroed: one
/// slot more than the stated count has, but none past the table.
void WriteFactoryPart(File& source, const TcacheBytes& cache, File& file) {
  const std::uint64_t end = FactoryDataEnd(cache);
  Bytes block(static_cast<std::size_t>(std::min(restoreBlock, end)));
  for (std::uint64_t at = 0; at < end; at += restoreBlock) {
    const std::span piece(block.data(), static_cast<std::size_t>(std::min(restoreBlock, end - at)));
    Get(source, at, piece);
    Put(file, at, piece);
  }
  Put(file, tcacheCountOffset, DecToByteArray(factoryTextures));
  Put(file, tcacheDataEndOffset, DecToByteArray(end));
  const int slots = std::clamp(cache.count, factoryTextures, tcacheCapacity - 1) - factoryTextures + 1;
  Put(file, TcacheEntryOffset(factoryTextures), Bytes(static_cast<std::size_t>(slots) * tcacheEntrySize));
  ZeroLeftOverSlots(source, factoryTextures + slots, file);
}

/// Reads header and table of a cache that may be missing.
TcacheBytes ReadIfThere(Files& files, const std::string& path) {
  return FileExists(files, path) ? ReadTcache(files, path) : TcacheBytes();
}

/// True when a file is no more than the first bytes of another one: what an interrupted copy leaves.
bool IsBeginningOf(Files& files, const std::string& path, const std::string& whole) {
  File begun(files, path, OpenFor::reading);
  File source(files, whole, OpenFor::reading);
  const std::uint64_t length = begun.length;
  if (length >= source.length) return false;
  Bytes a;
  Bytes b;
  for (std::uint64_t at = 0; at < length; at += restoreBlock) {
    a.resize(static_cast<std::size_t>(std::min(restoreBlock, length - at)));
    b.resize(a.size());
    Get(begun, at, a);
    Get(source, at, b);
    if (a != b) return false;
  }
  return true;
}

void RestoreFrom(Files& files, const std::string& source, const TcacheBytes& cache, const std::string& cachePath) {
  // The source is closed again before the new cache takes its name.
  WriteBeside(files, cachePath, [&](File& file) {
    File from(files, source, OpenFor::reading);
    WriteFactoryPart(from, cache, file);
  });
}

void Restore(Files& files, const std::string& cachePath, const std::string& old) {
  const bool there = FileExists(files, cachePath);
  const TcacheBytes cache = ReadIfThere(files, cachePath);
  if (FactoryPartIsWhole(cache)) return RestoreFrom(files, cachePath, cache, cachePath);
  const TcacheBytes kept = ReadIfThere(files, old);
  if (!FactoryPartIsWhole(kept) || (there && !IsBeginningOf(files, cachePath, old))) {
    RequireFile(files, cachePath);
    throw FileError("could not use", cachePath, "its textures are damaged", ErrorKind::damaged);
  }
  RestoreFrom(files, old, kept, cachePath);
  if (kept.count == factoryTextures) EraseFile(files, old);
}

}  // namespace

bool RestoreTcacheFile(Host& host, const std::string& cachePath) {
  return Trap(host, restoreTitle, [&] { Restore(host.files, cachePath, ChangeExtension(cachePath, ".old")); });
}

int TcacheCount(Files& files, const std::string& cachePath) {
  if (!FileExists(files, cachePath) || FileLength(files, cachePath) < tcacheHeaderSize) return 0;
  File cache(files, cachePath, OpenFor::reading);
  return static_cast<int>(std::min(ReadLongLE(cache, tcacheCountOffset), 0x7FFFFFFFU));
}

}  // namespace oravin
