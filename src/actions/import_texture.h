#pragma once

#include <string>

#include "desk/host.h"
#include "textures/bitmap.h"

/// Adding textures to the cache: an entry in the next free slot, the pixels at the data end.
///
/// The file is patched in place. First everything is checked; then the pixels are written behind the data end and the
/// entry into a slot that is not used, and both are brought to the disk; the count and the data end come last, in one
/// write. Until then the cache is what it was.
///
/// Boxes, in the order of the checks:
///
///   "Error. Path(s) not found", titled "ImportTexture"              the cache is missing
///   "Critical Error - TCACHE is FULL! Use Disable/Restore.",        no slot is free; then the program ends
///   (ProgramEnd)
///     titled "ERROR!!!", critical
///   "Error - not a valid TCACHE file!", titled "ImportTexture",     count and data end cannot be true, or writing at
///     critical                                                      the data end would write over a texture
///   "Operation terminated", without an icon                         the bitmap does not fit (BitmapFits)
///   "A texture with the name of 'NAME' already exists." and         the name is taken
///     "Unable to import." on the next line
///   that of NameCanBeStored                                         the name cannot be stored; not for the first
///                                                                   procedure, which companions of older textures
///                                                                   are added by
namespace oravin {

/// Adds one texture.
///
/// The new entry starts as a copy of the first entry of its pixel format; where there is none, of the entry in the slot
/// before it. The data end advances by the length of the bytes in the bitmap file, also when 24-bit pixels are stored
/// in 16 bits: the last third then stays unused. That is meant.
///
/// @param bitmapPath a bitmap, or a file of pixels alone when info.pixelOffset is 0
/// @param name without blanks at its ends, 31 characters at most; what is longer is cut off
/// @return true only when the texture was added
bool ImportTexture(Host& host, std::string cachePath, std::string bitmapPath, const std::string& name,
                   const BmpInfo& info);

/// Adds one texture from a bitmap, whose values GetBMPInfo tells. An 8-bit texture gets its companion too, in the next
/// slot: its name is "g" and the texture's name, its pixels are mapped through `gloadconv.dat` in the program folder.
/// Two slots must then be free; a companion that is there already is left as it is and needs none. Missing maps are
/// learned from the cache; where that cannot be done, the box of ProvideLoadoutMaps, and the texture comes alone. A
/// file of maps that cannot be used gives the error trap's box, and nothing is written.
/// @param name as above, but 30 characters at most
/// @param programPath the program folder, ending in a backslash
bool ImportTexture(Host& host, std::string cachePath, const std::string& name, std::string bitmapPath,
                   const std::string& programPath);

/// Adds a fighter's texture and its companion from two files of pixels alone: chains of 256 x 256 to 2 x 2 pixels of 8
/// bits. Both names and two slots are made sure of before the first is written; both appear in the same moment.
bool ImportFighterTextures(Host& host, std::string cachePath, const std::string& chainPath,
                           const std::string& companionPath, const std::string& name);

}  // namespace oravin
