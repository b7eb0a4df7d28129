#pragma once

#include <span>
#include <string>

#include "files/file.h"
#include "textures/texture_cache.h"

/// The cache's header and table as they stand in the file, for the procedures that search and change them.
namespace oravin {

struct TcacheBytes {
  std::int32_t count = 0;    ///< as the header states it, whatever that is
  std::int32_t dataEnd = 0;  ///< the same
  std::uint64_t length = 0;  ///< of the whole file, in bytes
  Bytes slots;               ///< the used slots that the file really has, at most 1000
};

/// Reads header and used slots in one go. A file that is too short for a header counts as one of zeros.
TcacheBytes ReadTcache(File& file);
TcacheBytes ReadTcache(Files& files, const std::string& path);

/// How many slots have been read.
int SlotsIn(const TcacheBytes& cache);

/// The bytes of one slot that has been read.
std::span<const std::uint8_t> SlotBytes(const TcacheBytes& cache, int slot);

/// The name in a slot's bytes: up to its zero byte, never past its 32 bytes.
std::string NameIn(std::span<const std::uint8_t> slot);

/// What one slot says of its texture.
TcacheEntry EntryOf(const TcacheBytes& cache, int slot);

/// The first slot whose texture bears the name; -1 when none does.
int SlotNamed(const TcacheBytes& cache, const std::string& name);

/// The first slot of a pixel format; -1 when there is none.
int SlotOfFormat(const TcacheBytes& cache, std::int32_t pixelFormat);

/// True when the game's own part of the cache is whole: 426 textures or more, whose data lie in the file and before the
/// end of slot 425's data, which the cache is cut at, and a data end behind the table.
bool FactoryPartIsWhole(const TcacheBytes& cache);

/// Just past the data of slot 425; only for a cache whose factory part is whole.
std::uint64_t FactoryDataEnd(const TcacheBytes& cache);

}  // namespace oravin
