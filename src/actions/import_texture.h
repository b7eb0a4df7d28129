#pragma once

#include <string>
#include <vector>

#include "desk/error_trap.h"
#include "desk/host.h"
#include "installation/installation.h"
#include "textures/bitmap.h"
#include "textures/loadout_maps.h"
#include "textures/new_texture.h"

/// Adding textures to the cache: an entry in the next free slot, the pixels at the data end.
///
/// The file is changed in place, after all checks: the pixels are written after the data end and the entry into an
/// unused slot, then the file is flushed, and count and data end come last, in one write. Until then the cache has none
/// of the new textures.
///
/// Message boxes, in the order of the checks; the errors' words are in desk/error_boxes.cpp under "ImportTexture":
///
///   "Error. Path(s) not found"                          the cache is missing
///   "Critical Error - TCACHE is FULL! Use               no slot is free; then the program ends (ProgramEnd)
///     Disable/Restore.", titled "ERROR!!!", critical
///   "Error - not a valid TCACHE file!", critical        count and data end cannot be true, or writing at the data end
///                                                       would overwrite a texture
///   "Operation terminated", without an icon             the bitmap does not fit (BitmapFits)
///   "A texture with the name of 'NAME' already exists." the name is taken
///     and "Unable to import." on the next line
namespace oravin {

/// Adds one texture.
///
/// The new entry starts as a copy of the first entry of its pixel format; where there is none, of the entry in the slot
/// before it. Intentional: the data end advances by the length of the bytes in the bitmap file, also when 24-bit pixels
/// are stored in 16 bits; the last third then stays unused.
///
/// @param bitmapPath a bitmap, or a file of pixels alone when info.pixelOffset is 0
/// @param name without spaces at its ends, 31 characters at most; what is longer is cut off
/// @return true only when the texture was added
bool ImportTexture(Host& host, const std::string& cachePath, const std::string& bitmapPath, const std::string& name,
                   const BmpInfo& info);

/// Adds textures whose pixels are in memory, all in the same moment: all names, slots and sides are checked before
/// anything is written.
/// @return true only when they were added
bool ImportTextures(Host& host, const std::string& cachePath, const std::vector<NewTexture>& textures);

/// Makes a fighter's mipmap chain from a bitmap (ConvertFighterText) and adds it with its companion (CompanionOf).
/// Missing maps are learned from the cache; where that fails, the box of ProvideLoadoutMaps, and the chain is added
/// alone. More boxes, listed in desk/error_boxes.cpp under "ConvertFighterText" and "ConvertTexture": the bitmap is
/// missing or is no fighter's, the maps are missing.
/// @param name as above, but 30 characters at most
/// @return true only when the texture was added
bool ImportFighterTextures(Host& host, const Installation& installation, const std::string& bitmapPath,
                           const BmpInfo& info, const std::string& name);

/// An 8-bit texture's companion for the loadout screen: its name is "g" and the texture's name, its pixels are the
/// texture's through the maps.
NewTexture CompanionOf(const NewTexture& texture, const LoadoutMaps& maps);

/// The errors for three of the boxes listed above.
FileError CacheIsFull(const std::string& cachePath);
FileError CacheIsDamaged(const std::string& cachePath);
FileError BitmapDoesNotFit(const std::string& bitmapPath);

/// Shows the box of a full cache and ends the program.
[[noreturn]] void EndForFullCache(Host& host);

/// Shows the box for a name that another texture has.
void ShowNameTaken(Host& host, const std::string& name);

/// The error trap of everything that adds textures: a full cache ends the program after its box.
template <typename Value, typename Body>
Value TrappedImport(Host& host, Value neutral, Body&& body) {
  try {
    return std::forward<Body>(body)();
  } catch (const FileError& error) {
    if (error.kind == ErrorKind::tooMany) EndForFullCache(host);
    ShowTrapped(host, "ImportTexture", error);
    return neutral;
  }
}

}  // namespace oravin
