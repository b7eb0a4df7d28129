// Which textures the factory cache of the sample holds.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "demo/cache_writer.h"
#include "demo/pictures.h"

namespace oravin::demo {

/// One texture of the factory cache.
struct PlannedTexture {
  CacheTexture texture;
  Motif motif = Motif::kHull;
  std::uint64_t seed = 0;
  bool companion = false;  ///< the "g" texture of the one before it: the same picture in the loadout palette
};

/// The factory textures in the order of their slots. Every named ship model has two: <stem>1 and <stem>2, and those of
/// 8 bits are followed by their "g" companions.
std::vector<PlannedTexture> PlanTextures();

/// The bytes of the whole factory cache; `maps` is the content of gloadconv.dat.
Bytes BuildFactoryCache(const Palette& space, std::span<const std::uint8_t> maps);

}  // namespace oravin::demo
