// Colours, the two palettes of 8-bit textures and the maps between them.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "demo/bytes.h"

namespace oravin::demo {

struct Colour {
  std::uint8_t red = 0, green = 0, blue = 0;
};

using Palette = std::array<Colour, 256>;

/// The palettes of 8-bit textures in space and on the loadout screen ("g" textures).
Palette SpacePalette();
Palette LoadoutPalette();

/// The content of gloadconv.dat: eight maps of 256 bytes. Map k gives, for each index of the space palette, the nearest
/// index of the loadout palette for mipmap level k of a fighter's chain (each level a little darker).
Bytes BuildConversionMaps(const Palette& space, const Palette& loadout);

/// The pixels of the "g" companion: every byte replaced through the maps. The map depends on the byte's offset in a
/// chain of 256x256 to 2x2, whatever the texture's own size is, as in the game.
Bytes ConvertPixels(std::span<const std::uint8_t> pixels, std::span<const std::uint8_t> maps);

/// Finds the nearest colour of a palette by a table of the five highest bits per component.
struct Quantizer {
  std::vector<std::uint8_t> nearest;  // 32,768 indices
};
Quantizer MakeQuantizer(const Palette& palette);
inline std::uint8_t IndexOf(const Quantizer& quantizer, const Colour& c) {
  return quantizer.nearest[static_cast<std::size_t>((c.red >> 3) << 10 | (c.green >> 3) << 5 | (c.blue >> 3))];
}

}  // namespace oravin::demo
