// Draws the pictures of the sample's textures.
#pragma once

#include <cstdint>
#include <vector>

#include "demo/bytes.h"
#include "demo/palettes.h"

namespace oravin::demo {

/// A picture; rows are bottom up, as in bitmaps and the texture cache.
struct Picture {
  int width = 0;
  int height = 0;
  std::vector<Colour> pixels;
};

/// A seamless tile of 256x256 cloud noise.
struct NoiseField {
  std::vector<std::uint8_t> values;
};
NoiseField MakeNoise(std::uint64_t seed);

/// Motifs of the pictures.
enum class Motif { kHull, kCapitalHull, kPanel, kInsignia, kNebula, kPlanet, kStars, kBlast, kFlare, kGlyphs, kCube };

/// Draws a motif; the seed selects its colours and details (for a blast, seed modulo 16 is its age).
Picture Draw(Motif motif, int width, int height, std::uint64_t seed, const NoiseField& noise);

/// The pixel bytes of the picture and of images - 1 further mipmap levels (all sides must be integers), as palette
/// indices or as 16-bit colours (5 bits red, 6 green, 5 blue; little-endian).
Bytes IndexedChain(Picture picture, int images, const Quantizer& quantizer);
Bytes Colour16Chain(Picture picture, int images);
/// The pixel bytes of the picture as blue, green, red.
Bytes Colour24(const Picture& picture);

}  // namespace oravin::demo
