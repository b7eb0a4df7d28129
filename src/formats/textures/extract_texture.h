#pragma once

#include <cstddef>
#include <string>

#include "files/files.h"
#include "textures/texture_cache.h"

/// Textures as bitmap files.
namespace oravin {

/// A texture's name as a name that a file can bear: characters that Windows forbids or that are no plain ones, dots and
/// blanks at the end, and names of devices are replaced. A name that is no trouble stays as it is.
std::string SafeFileName(const std::string& name);

/// The bitmap that lends its header and palette to an 8-bit texture: "3D\gcube.bmp" for one whose name is "g" or "r"
/// and the name of another texture, else "3D\cube.bmp"; both below the program folder.
std::string TemplateFor(const TcacheTable& table, const std::string& name);

/// True when a texture's data can be read: they lie in a cache of that length. A texture of an unsupported format is
/// not read, but must not claim more bytes than the cache has.
bool CanBeExtracted(const TcacheEntry& entry, std::uint64_t cacheLength);

/// Reads the data of a texture, all its images.
/// @throws FileError when they do not lie in the cache
Bytes ReadTextureData(Files& files, const std::string& cachePath, const TcacheEntry& entry);

/// Writes a texture to a bitmap file: the header, which describes the largest image, then all images. A 16-bit texture
/// becomes a bitmap of 24 bits, whose header states the length of the whole file. An 8-bit one takes header and palette
/// of the template, in which width and height are set and nothing else: the length too is the template's.
///
/// A texture of another format gives zeros only: its data's size, behind as many as the header of the texture before it
/// had. That is meant.
///
/// @param headerSize the length of the last header that was written, in bytes; 0 for none. Renewed
/// @throws FileError when the data do not lie in the cache, the template is missing or the file cannot be written
void ExtractTexture(Files& files, const std::string& cachePath, const TcacheEntry& entry,
                    const std::string& templatePath, const std::string& target, std::size_t& headerSize);

}  // namespace oravin
