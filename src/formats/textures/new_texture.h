#pragma once

#include <string>
#include <vector>

#include "files/file.h"
#include "textures/bitmap.h"
#include "textures/cache_table.h"

/// Textures that are being added to the cache.
namespace oravin {

/// A texture that is about to be added.
struct NewTexture {
  std::string name;
  std::int32_t format = 0;
  BmpInfo info;
  Bytes pixels;                ///< as they are stored
  std::uint64_t reserved = 0;  ///< how far it moves the data end
};

/// The bytes of a bitmap after its header. Its length must have been checked (BitmapFits).
Bytes ReadPixels(Files& files, const std::string& path, const BmpInfo& info);

/// A texture of a bitmap's pixels; 24-bit ones are converted to the cache's 16 bits.
NewTexture MakeTexture(const std::string& name, const BmpInfo& info, Bytes pixels);

/// True when data can be written at the data end without overwriting the table or a texture.
bool CanBeAddedTo(const TcacheBytes& cache);

/// True when the data end still fits 32 signed bits after textures are added.
/// @param reserved how far they move the data end together, in bytes
bool HasRoomFor(const TcacheBytes& cache, std::uint64_t reserved);

/// Adds a texture's entry to the table in memory, with count and data end.
/// @param cache has a free slot, and room for the texture
void AddEntry(TcacheBytes& cache, const NewTexture& texture);

/// Writes a texture's pixels at the data end and adds its entry to the table in memory, with count and data end. The
/// file's own table does not change (see WriteTable).
/// @param cache has a free slot
/// @throws FileError when the data end would not fit 32 signed bits, or the file cannot be written
void AddPixels(File& file, TcacheBytes& cache, const NewTexture& texture);

/// Writes the entries from one slot on, flushes the file, and then writes count and data end in one write. Until then
/// the cache has none of the new textures.
void WriteTable(File& file, const TcacheBytes& cache, int fromSlot);

/// Writes count and data end into the header, in one write.
void PutCounts(File& file, const TcacheBytes& cache);

}  // namespace oravin
