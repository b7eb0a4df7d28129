#include "texture/Texture.h"

#include <cmath>

namespace oravin {

namespace {

/// Images from here on are too small to count for anything, whatever an entry claims.
constexpr int mostImages = 64;

}  // namespace

double TextureDataSize(double width, double height, int imageCount, int bytesPerPixel) {
  double total = width * height;
  for (int image = 2; image <= imageCount && image <= mostImages; ++image) {
    width /= 2;
    height /= 2;
    total += width * height;
  }
  return total * bytesPerPixel;
}

std::uint64_t RoundedSize(double size) { return size > 0 ? static_cast<std::uint64_t>(std::nearbyint(size)) : 0; }

}  // namespace oravin
