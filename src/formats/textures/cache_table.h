#pragma once

#include <span>
#include <string>

#include "files/file.h"
#include "textures/texture_cache.h"

/// The cache's header and table as raw bytes, for the procedures that search and change them.
namespace oravin {

struct TcacheBytes {
  std::int32_t count = 0;    ///< as in the header, not checked
  std::int32_t dataEnd = 0;  ///< as in the header, not checked
  std::uint64_t length = 0;  ///< of the whole file, in bytes
  Bytes slots;               ///< the used slots that are in the file, at most 1000
};

/// Reads header and used slots in one go. A file too short for a header gives zeros.
TcacheBytes ReadTcache(File& file);

/// Opens and reads a cache.
/// @throws FileError of the kind `missing`, or when it cannot be read
TcacheBytes ReadTcache(Files& files, const std::string& path);

/// Reads a cache whose count is 1 to 1000 and whose used slots are all in the file.
/// @throws FileError of the kinds `missing` and `wrongFormat`, or when it cannot be read
TcacheBytes ReadUsableTcache(Files& files, const std::string& path);

/// How many slots have been read.
int SlotsIn(const TcacheBytes& cache);

/// The bytes of one slot that has been read.
std::span<const std::uint8_t> SlotBytes(const TcacheBytes& cache, int slot);

/// The name in a slot's bytes: up to its zero byte, never past its 32 bytes.
std::string NameIn(std::span<const std::uint8_t> slot);

/// The texture of one slot that has been read.
TcacheEntry EntryOf(const TcacheBytes& cache, int slot);

/// The textures of all slots that have been read.
TcacheTable EntriesOf(const TcacheBytes& cache);

/// The first slot with that texture name, without regard to case and to spaces at the ends; -1 when there is none.
int SlotNamed(const TcacheBytes& cache, const std::string& name);

/// The first slot of a pixel format; -1 when there is none.
int SlotOfFormat(const TcacheBytes& cache, std::int32_t pixelFormat);

/// True when the game's own part of the cache is whole: there are 426 textures or more, the data of the first 426 end
/// at or before the end of slot 425's data (where a restore cuts the file) and the data end lies after the table.
bool FactoryPartIsWhole(const TcacheBytes& cache);

/// Just past the data of slot 425; only for a cache whose factory part is whole.
std::uint64_t FactoryDataEnd(const TcacheBytes& cache);

}  // namespace oravin
