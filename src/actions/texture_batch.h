#pragma once

#include <optional>
#include <string>

#include "desk/host.h"
#include "textures/cache_table.h"
#include "textures/loadout_maps.h"

/// Adding many textures to the cache in one go. The pixels are written behind the data end as they come; entries, count
/// and data end follow when the batch is committed. Until then the cache is what it was.
namespace oravin {

struct TextureBatch {
  std::string cachePath;
  std::string mapsPath;  ///< of the loadout maps, which the companions of 8-bit textures are made through
  TcacheBytes cache;     ///< with the textures of the batch
  TcacheBytes begun;     ///< as it was when the batch began; its slots are not kept
  Bytes replaced;        ///< what stood in the file where the entries were written at the commit
  std::optional<LoadoutMaps> maps;
  bool counting = false;    ///< only the table in memory grows; the file stays as it is, and nothing is committed
  bool mapsSought = false;  ///< `maps` is all there is to be had; they are not looked for again
};

/// What counts as installed already when the texture's name stands in the cache.
enum class AlreadyThere {
  byName,   ///< any added texture of that name
  byPixels  ///< an added texture of that name that is the same picture
};

enum class AddedTexture {
  added,
  installed,  ///< it was there already
  nameTaken,  ///< another texture bears the name (the box of ImportTexture), and that is the one to use
  refused     ///< one of the other boxes of ImportTexture, or the name cannot be stored (NameCanBeStored)
};

/// Begins a batch.
///
/// Boxes titled "ImportTexture": "Error. Path(s) not found" for a missing cache, "Error - not a valid TCACHE file!" for
/// one whose count or data end cannot be true, and the error trap's.
/// @param programPath the program folder, ending in a backslash
bool BeginTextures(Host& host, const std::string& cachePath, const std::string& programPath, TextureBatch& batch);

/// Adds one texture from a bitmap, and its companion where it has 8 bits, as ImportTexture does. The maps are learned
/// from the cache where they are missing; where that cannot be done, one box for the batch says so, and
/// textures come without companions. With the rule byPixels a texture that is there already, but
/// not as one of the game's own, gets the companion that it lacks. A full cache gives ImportTexture's box and ends the
/// program (ProgramEnd).
/// @param name without blanks at its ends; what is longer than 30 characters is cut off
AddedTexture AddTexture(Host& host, TextureBatch& batch, const std::string& name, const std::string& bitmapPath,
                        AlreadyThere rule);

/// A place in a batch to go back to.
struct BatchMark {
  std::int32_t count = 0;
  std::int32_t dataEnd = 0;
  std::uint64_t length = 0;
};

BatchMark MarkOf(const TcacheBytes& cache);
BatchMark MarkOf(const TextureBatch& batch);

/// Takes back what was added since the mark; the file gets the length that it had then.
/// @throws FileError when the file cannot be cut; the textures are taken back all the same
void GoBackTo(Files& files, TextureBatch& batch, const BatchMark& mark);

/// Makes the textures of the batch part of the cache. Without any the file is not touched.
/// @throws FileError when the file cannot be written
void CommitTextures(Files& files, TextureBatch& batch);

/// Takes the whole batch back, committed or not: the file becomes what it was, byte for byte.
/// @throws FileError when the file cannot be written
void TakeBackTextures(Files& files, TextureBatch& batch);

}  // namespace oravin
