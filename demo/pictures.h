// Draws the pictures of the sample's textures.
#pragma once

#include <cstdint>
#include <vector>

#include "demo/bytes.h"
#include "demo/palettes.h"

namespace oravin::demo {

/// A picture; its rows stand bottom up, as bitmaps and the texture cache hold them.
struct Picture {
  int width = 0;
  int height = 0;
  std::vector<Colour> pixels;
};

/// A tile of 256x256 cloudy noise that fits together at its edges.
struct NoiseField {
  std::vector<std::uint8_t> values;
};
NoiseField MakeNoise(std::uint64_t seed);

/// What a picture shows.
enum class Motif { kHull, kCapitalHull, kPanel, kInsignia, kNebula, kPlanet, kStars, kBlast, kFlare, kGlyphs, kCube };

/// Draws a motif; the seed chooses its colours and details (of a blast, seed modulo 16 is its age).
Picture Draw(Motif motif, int width, int height, std::uint64_t seed, const NoiseField& noise);

/// The pixel bytes of the picture and of images - 1 halved ones after it (both sides must stay whole), as palette
/// indices or as 16-bit colours (5 bits red, 6 green, 5 blue; low byte first).
Bytes IndexedChain(Picture picture, int images, const Quantizer& quantizer);
Bytes Colour16Chain(Picture picture, int images);
/// The pixel bytes of the picture as blue, green, red.
Bytes Colour24(const Picture& picture);

}  // namespace oravin::demo
