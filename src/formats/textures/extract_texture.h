#pragma once

#include <cstddef>
#include <string>

#include "files/files.h"
#include "textures/texture_cache.h"

/// Textures as bitmap files.
namespace oravin {

/// A texture's name as a file name: characters that Windows forbids or that are not printable ASCII, dots and spaces at
/// the end, and device names are replaced. A name that needs none of this is returned unchanged.
std::string SafeFileName(const std::string& name);

/// The bitmap whose header and palette an 8-bit texture gets: "3D\gcube.bmp" when the name is "g" or "r" and the name
/// of another texture, else "3D\cube.bmp"; both below the program folder.
std::string TemplateFor(const TcacheTable& table, const std::string& name);

/// True when a texture's data can be read from a cache of that length. A texture of an unsupported format is not read,
/// but must not claim more bytes than the cache has.
bool CanBeExtracted(const TcacheEntry& entry, std::uint64_t cacheLength);

/// Reads the data of a texture, all its mipmap levels.
/// @throws FileError when they do not lie in the cache
Bytes ReadTextureData(Files& files, const std::string& cachePath, const TcacheEntry& entry);

/// Writes a texture to a bitmap file: the header, which describes the largest mipmap level, then all levels. A 16-bit
/// texture becomes a 24-bit bitmap, whose header has the length of the whole file. An 8-bit one gets header and palette
/// of the template, in which only width and height change: the length stays the template's.
///
/// Intentional: a texture of another format gives only zeros, as many as the header of the texture before it and its
/// own data have.
///
/// @param headerSize the length in bytes of the last header that was written, 0 for none; updated
/// @throws FileError when the data do not lie in the cache, the template is missing or the file cannot be written
void ExtractTexture(Files& files, const std::string& cachePath, const TcacheEntry& entry,
                    const std::string& templatePath, const std::string& target, std::size_t& headerSize);

}  // namespace oravin
