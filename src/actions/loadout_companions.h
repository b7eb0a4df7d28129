#pragma once

#include <cstddef>
#include <string>

#include "catalogue/ship_record.h"
#include "desk/host.h"
#include "textures/cache_table.h"

/// The companions of ship textures: for the loadout screen the game keeps every 8-bit ship texture a second time, in
/// that screen's palette, under its name with a "g" before it.
namespace oravin {

/// How many of a ship record's textures are looked at.
inline constexpr std::size_t loadoutTextures = 2;

/// Makes the companions of the textures of the first `count` ship records that are marked as imported: of the first two
/// texture names of each, where they are names of 8-bit textures. Two files in the folder serve as work files and are
/// deleted again.
///
/// A companion that is there already gives ImportTexture's box about its name, and the run goes on. These end it:
/// "Error - Path(s) not found", critical, titled "LoadoutSetup": the folder or the cache is missing; "Error - Texture
/// not found", titled "LoadoutSetup"; "Error in TCACHE. Can't find NAME!", critical: an entry without a data offset.
/// @param folder holds `gloadconv.dat`
/// @return whether the run came to its end
bool LoadoutSetup(Host& host, std::string cachePath, std::string folder, const Ships& ships, std::size_t count);

/// The imported ships that LoadoutSetup has something to do for: copies of their records that name only those textures
/// which lack their companion, at most two each, and each texture once. Among a ship's first two textures that is any
/// 8-bit texture without a companion, among the others one that an import has added. A texture that is missing itself
/// lacks nothing.
Ships LackingCompanions(const TcacheBytes& cache, const Ships& ships);

/// The same for the cache's file.
/// @throws FileError when it cannot be read
Ships LackingCompanions(Files& files, const std::string& cachePath, const Ships& ships);

/// True when the cache has a free slot for each companion that LoadoutSetup would add for these ships. Its checks come
/// in the same order: a texture without data ends it, and a companion that is then refused needs a free slot, too.
/// @param cache as it will be then; nothing is read but its table
bool CompanionsHaveSlots(const TcacheBytes& cache, const Ships& lacking);

/// Fills a record from the cache by the texture's name. Where there is no such texture its fields are 0.
void ReadTcacheEntry(Host& host, const std::string& cachePath, const std::string& name, TcacheEntry& entry);

/// Writes a texture's data to a file, without any header. When the cache, the texture or the file's folder is missing,
/// the box "Error in extracting textures. Path(s) don't exist".
/// @return whether the file was written
/// @throws FileError when the texture's data do not lie in the cache
bool ExtractRaw(Host& host, std::string cachePath, const std::string& name, const std::string& outputPath);

}  // namespace oravin
