#include "demo/template_writer.h"

#include <numeric>

#include "demo/bitmap_writer.h"

namespace oravin::demo {

namespace {

constexpr std::size_t kCubeColours = 216;
constexpr std::size_t kGreys = 40;

}  // namespace

Palette CubePalette() {
  Palette palette;
  const auto part = [](std::size_t step) { return static_cast<std::uint8_t>(step % 6 * 51); };
  for (std::size_t i = 0; i < kCubeColours; ++i) palette[i] = {part(i / 36), part(i / 6), part(i)};
  for (std::size_t i = 0; i < kGreys; ++i) {
    const auto shade = static_cast<std::uint8_t>((i + 1) * 255 / (kGreys + 1));
    palette[kCubeColours + i] = {shade, shade, shade};
  }
  return palette;
}

Bytes BuildTemplate() {
  Bytes pixels(256);
  std::iota(pixels.begin(), pixels.end(), std::uint8_t{0});
  return BuildBitmap8(16, 16, CubePalette(), pixels);
}

}  // namespace oravin::demo
