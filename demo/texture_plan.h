// The textures of the sample's factory cache.
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
  bool companion = false;  ///< the "g" texture of the previous one: the same picture in the loadout palette
};

/// The factory textures in slot order. Every named ship model has two: <stem>1 and <stem>2; 8-bit ones are followed by
/// their "g" companions.
std::vector<PlannedTexture> PlanTextures();

/// The bytes of the whole factory cache; `maps` is the content of gloadconv.dat.
Bytes BuildFactoryCache(const Palette& space, std::span<const std::uint8_t> maps);

}  // namespace oravin::demo
