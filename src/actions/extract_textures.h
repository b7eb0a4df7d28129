#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "desk/host.h"
#include "installation/installation.h"
#include "textures/texture_cache.h"

/// Extracting textures of a cache to bitmaps.
namespace oravin {

/// One run over some textures of a cache.
struct ExtractionRun {
  std::string cachePath;
  std::uint64_t cacheLength = 0;     ///< in bytes
  std::string folder;                ///< for the bitmaps, ending in a backslash
  std::set<std::string> used;        ///< replacement file names that were given out, upper case
  std::vector<std::string> renamed;  ///< "name: file" for each of them
  std::vector<std::string> leftOut;  ///< textures whose data do not lie in the cache
  std::size_t headerSize = 0;        ///< of the texture extracted last
};

/// Starts a run.
/// @param folder ends in a backslash
/// @throws FileError when the cache cannot be opened
ExtractionRun BeginExtraction(Files& files, const std::string& cachePath, const std::string& folder);

/// Extracts one texture to a bitmap of its name; an existing file is replaced. Where no file can have that name, it
/// gets another one. A texture whose data do not lie in the cache is left out. The run lists both.
/// @param installation has the template bitmaps in its program folder
/// @param table the cache's textures
/// @throws FileError when a file cannot be read or written
void ExtractNext(Files& files, const Installation& installation, ExtractionRun& run, const TcacheTable& table,
                 const TcacheEntry& entry);

/// Shows the box "Extraction complete", with what the run lists.
void ShowExtracted(Host& host, const ExtractionRun& run);

/// Extracts a texture to "temp.bmp" in the program folder and opens that in the system's paint program. A missing cache
/// gives the box "TCACHE path not found", a missing program folder "Destination path not found".
void PaintTexture(Host& host, const Installation& installation, const std::string& cachePath, const TcacheTable& table,
                  const TcacheEntry& entry);

}  // namespace oravin
