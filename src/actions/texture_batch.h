#pragma once

#include <functional>
#include <optional>
#include <string>

#include "desk/host.h"
#include "installation/installation.h"
#include "textures/bitmap.h"
#include "textures/cache_table.h"
#include "textures/loadout_maps.h"

/// Adding many textures to the cache in one go. The pixels are written after the data end at once; entries, count and
/// data end follow when the batch is committed. Until then the cache has none of the new textures.
namespace oravin {

struct TextureBatch {
  std::string cachePath;
  TcacheBytes cache;                ///< with the textures of the batch
  TcacheBytes begun;                ///< as it was when the batch began, without its slots
  Bytes replaced;                   ///< the file's old bytes where the commit wrote the entries
  std::optional<LoadoutMaps> maps;  ///< for the companions of 8-bit textures
  bool counting = false;    ///< only the table in memory grows; the file does not change and nothing is committed
  bool mapsSought = false;  ///< `maps` is final: they are not looked for again
};

/// What counts as installed already when the texture's name is in the cache.
enum class AlreadyThere {
  byName,   ///< any added texture of that name
  byPixels  ///< an added texture of that name with the same pixels
};

enum class AddedTexture {
  added,
  installed,       ///< it was there already
  nameTaken,       ///< another texture has the name, and that is the one to use
  cannotBeStored,  ///< the cache cannot store the name (IsCodePageText)
  refused          ///< after one of the other boxes
};

/// Starts a batch; false after one of ImportTexture's boxes for the cache.
bool BeginTextures(Host& host, const Installation& installation, TextureBatch& batch);

/// True when an editor added a texture of that name to the cache.
bool IsInstalled(const TextureBatch& batch, const std::string& name);

/// Adds one texture from a bitmap, and its companion where it has 8 bits.
/// @param name without spaces at its ends, at most 30 characters
/// @param provideMaps called before a companion is made; true when `batch.maps` are there
/// @throws FileError CacheIsFull, BitmapDoesNotFit, or when a file cannot be read or written
AddedTexture AddBitmap(Files& files, TextureBatch& batch, const std::string& name, const std::string& bitmapPath,
                       const BmpInfo& info, const std::function<bool()>& provideMaps);

/// The same with boxes: that of GetBMPInfo, those of ImportTexture, that of NameCanBeStored. The maps are learned from
/// the cache where they are missing; where that cannot be done, one box for the batch says so, and textures come
/// without companions. With the rule byPixels a texture that is installed already also gets the companion that it
/// lacks. A full cache ends the program (ProgramEnd).
/// @param name without spaces at its ends; what is longer than 30 characters is cut off
AddedTexture AddTexture(Host& host, const Installation& installation, TextureBatch& batch, const std::string& name,
                        const std::string& bitmapPath, AlreadyThere rule);

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

/// Makes the textures of the batch part of the cache. An empty batch does not touch the file.
/// @throws FileError when the file cannot be written
void CommitTextures(Files& files, TextureBatch& batch);

/// Takes the whole batch back, committed or not: the file gets its old content, byte for byte.
/// @throws FileError when the file cannot be written
void TakeBackTextures(Files& files, TextureBatch& batch);

}  // namespace oravin
