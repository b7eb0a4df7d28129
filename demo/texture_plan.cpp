#include "demo/texture_plan.h"

#include <stdexcept>

#include "demo/random.h"
#include "demo/ship_list.h"

namespace oravin::demo {

namespace {

constexpr int kChainImages = 8;  // 256x256 down to 2x2

std::string Numbered(const char* stem, int number) { return stem + Padded(number, 2); }

void Add(std::vector<PlannedTexture>& plan, const CacheTexture& texture, Motif motif, bool withCompanion = false) {
  // A blast grows from picture to picture: its number is the seed.
  const std::uint64_t seed = motif == Motif::kBlast ? plan.size() : SeedOf(texture.name);
  plan.push_back({texture, motif, seed, false});
  if (!withCompanion) return;
  CacheTexture companion = texture;
  companion.name = "g" + texture.name;
  plan.push_back({companion, motif, seed, true});
}

void AddShips(std::vector<PlannedTexture>& plan) {
  for (const NamedModel& model : NamedModels()) {
    const CacheTexture chain{model.stem + "1", 1, 256, 256, kChainImages};
    if (model.capital) {
      Add(plan, {model.stem + "1", 2, 256, 256, kChainImages}, Motif::kCapitalHull);
    } else {
      Add(plan, chain, Motif::kHull, true);
    }
    CacheTexture second = chain;
    second.name = model.stem + "2";
    Add(plan, second, model.capital ? Motif::kCapitalHull : Motif::kHull, true);
  }
}

}  // namespace

std::vector<PlannedTexture> PlanTextures() {
  std::vector<PlannedTexture> plan;
  for (int i = 1; i <= 8; ++i) Add(plan, {Numbered("cockpit", i), 1, 128, 128, 7}, Motif::kPanel, true);
  for (int i = 1; i <= 16; ++i) Add(plan, {Numbered("squad", i), 1, 64, 64, 1}, Motif::kInsignia, true);
  // The briefing screen's own versions of some emblems.
  for (int i = 1; i <= 6; ++i) Add(plan, {Numbered("rsquad", i), 1, 64, 64, 1}, Motif::kInsignia);
  AddShips(plan);
  for (int i = 1; i <= 12; ++i) Add(plan, {Numbered("nebula", i), 2, 256, 256, 1}, Motif::kNebula);
  for (int i = 1; i <= 8; ++i) Add(plan, {Numbered("planet", i), 2, 256, 256, 1}, Motif::kPlanet);
  for (int i = 1; i <= 12; ++i) Add(plan, {Numbered("stars", i), 2, 128, 128, 1}, Motif::kStars);
  for (int i = 1; i <= 16; ++i) Add(plan, {Numbered("panel", i), 2, 128, 64, 1}, Motif::kPanel);
  for (int i = 1; i <= 4; ++i) Add(plan, {Numbered("letters", i), 1, 256, 128, 1}, Motif::kGlyphs);
  for (int i = 1; i <= 48; ++i) Add(plan, {Numbered("blast", i), 2, 64, 64, 1}, Motif::kBlast);
  for (int i = 1; static_cast<int>(plan.size()) < kFactoryTextures; ++i) {
    Add(plan, {Numbered("flare", i), 2, i % 3 == 0 ? 64 : 32, 32, 1}, Motif::kFlare);
  }
  if (plan.size() != kFactoryTextures) throw std::logic_error("too many factory textures are planned");
  return plan;
}

Bytes BuildFactoryCache(const Palette& space, std::span<const std::uint8_t> maps) {
  const Quantizer quantizer = MakeQuantizer(space);
  const NoiseField noise = MakeNoise(426);
  const std::vector<PlannedTexture> plan = PlanTextures();
  std::size_t expected = kCacheHeaderSize + kCacheSlots * kCacheSlotSize;
  for (const PlannedTexture& planned : plan) expected += PixelBytes(planned.texture);

  CacheBuilder cache = BeginCache(expected);
  Bytes pixels;
  for (const PlannedTexture& planned : plan) {
    const CacheTexture& texture = planned.texture;
    if (planned.companion) {
      pixels = ConvertPixels(pixels, maps);
    } else {
      Picture picture = Draw(planned.motif, texture.width, texture.height, planned.seed, noise);
      pixels = texture.format == 1 ? IndexedChain(std::move(picture), texture.images, quantizer)
                                   : Colour16Chain(std::move(picture), texture.images);
    }
    AddTexture(cache, texture, pixels);
  }
  FinishCache(cache);
  return std::move(cache.bytes);
}

}  // namespace oravin::demo
