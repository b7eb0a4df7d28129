#include "support/fighter_bitmap.h"

#include <cmath>

#include "support/cache_files.h"

namespace oravin::test {

namespace {

Bytes ReducedPlainly(const Bytes& bitmap, int level) {
  const int block = 1 << level;
  const int side = 256 >> level;
  Bytes pixels;
  for (int row = 0; row < side; ++row) {
    for (int column = 0; column < side; ++column) {
      int average[3];
      for (int part = 0; part < 3; ++part) {
        double sum = 0;
        for (int y = 0; y < block; ++y) {
          for (int x = 0; x < block; ++x) {
            const std::size_t at = static_cast<std::size_t>((row * block + y) * 256 + column * block + x);
            sum += bitmap[54 + 4U * bitmap[1078 + at] + static_cast<std::size_t>(part)];
          }
        }
        average[part] = static_cast<int>(std::floor(sum / (block * block) + 0.5));
      }
      int best = 0;
      long bestDistance = -1;
      for (int i = 0; i < 256; ++i) {
        long distance = 0;
        for (int part = 0; part < 3; ++part) {
          const long d = bitmap[static_cast<std::size_t>(54 + 4 * i + part)] - average[part];
          distance += d * d;
        }
        if (bestDistance < 0 || distance < bestDistance) {
          best = i;
          bestDistance = distance;
        }
      }
      pixels.push_back(static_cast<std::uint8_t>(best));
    }
  }
  return pixels;
}

}  // namespace

Bytes Fighter() {
  Bytes pixels(65536);
  for (std::size_t i = 0; i < pixels.size(); ++i) pixels[i] = static_cast<std::uint8_t>(i * i / 97 + i / 256 * 3);
  Bytes file = Bitmap(256, 256, 8, pixels);
  for (std::size_t i = 0; i < 256; ++i) {
    SetLong(file, 54 + 4 * i, static_cast<std::uint32_t>(i * 40503 % 0x1000000));
  }
  return file;
}

Bytes ChainOf(const Bytes& bitmap) {
  Bytes chain(bitmap.begin() + 1078, bitmap.begin() + 1078 + 65536);
  for (int level = 1; level < 8; ++level) {
    const Bytes image = ReducedPlainly(bitmap, level);
    chain.insert(chain.end(), image.begin(), image.end());
  }
  return chain;
}

}  // namespace oravin::test
