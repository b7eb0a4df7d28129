#include "demo/palettes.h"

#include <algorithm>
#include <cstddef>

namespace oravin::demo {

namespace {

// Sixteen hues of sixteen shades each.
constexpr std::array<Colour, 16> kHues{{{255, 255, 255},
                                        {190, 205, 225},
                                        {180, 205, 165},
                                        {230, 205, 160},
                                        {160, 180, 230},
                                        {225, 125, 95},
                                        {205, 185, 210},
                                        {230, 220, 190},
                                        {96, 120, 255},
                                        {64, 220, 255},
                                        {64, 255, 150},
                                        {255, 240, 90},
                                        {255, 160, 50},
                                        {235, 40, 45},
                                        {220, 70, 190},
                                        {140, 80, 235}}};

Colour Shade(const Colour& hue, int level, int levels) {
  const auto part = [&](int v) { return static_cast<std::uint8_t>(v * level / levels); };
  return {part(hue.red), part(hue.green), part(hue.blue)};
}

int Distance(const Colour& a, int red, int green, int blue) {
  const int r = a.red - red;
  const int g = a.green - green;
  const int b = a.blue - blue;
  return 3 * r * r + 4 * g * g + 2 * b * b;
}

std::uint8_t Nearest(const Palette& palette, int red, int green, int blue) {
  std::size_t best = 0;
  int bestDistance = Distance(palette[0], red, green, blue);
  for (std::size_t i = 1; i < palette.size(); ++i) {
    const int distance = Distance(palette[i], red, green, blue);
    if (distance < bestDistance) {
      bestDistance = distance;
      best = i;
    }
  }
  return static_cast<std::uint8_t>(best);
}

}  // namespace

Palette SpacePalette() {
  Palette palette;
  for (std::size_t i = 0; i < palette.size(); ++i) palette[i] = Shade(kHues[i / 16], static_cast<int>(i % 16), 15);
  return palette;
}

Palette LoadoutPalette() {
  // The loadout palette is warmer, its shades run from bright to dark, and its hues have another order.
  Palette palette;
  for (std::size_t i = 0; i < palette.size(); ++i) {
    Colour colour = Shade(kHues[(i / 16 * 5 + 3) % 16], 16 - static_cast<int>(i % 16), 16);
    colour.red = static_cast<std::uint8_t>(std::min(255, colour.red + 8));
    palette[i] = colour;
  }
  return palette;
}

Bytes BuildConversionMaps(const Palette& space, const Palette& loadout) {
  Bytes maps;
  maps.reserve(2048);
  for (int level = 0; level < 8; ++level) {
    const auto part = [&](int v) { return v * (40 - level) / 40; };
    for (const Colour& c : space) maps.push_back(Nearest(loadout, part(c.red), part(c.green), part(c.blue)));
  }
  return maps;
}

Bytes ConvertPixels(std::span<const std::uint8_t> pixels, std::span<const std::uint8_t> maps) {
  Bytes converted(pixels.size());
  std::size_t begin = 0;
  std::size_t image = std::size_t{256} * 256;
  for (std::size_t level = 0; level < 8 && begin < pixels.size(); ++level) {
    const bool last = level == 7;
    const std::size_t end = last ? pixels.size() : std::min(pixels.size(), begin + image);
    const auto map = maps.subspan(level * 256, 256);
    for (std::size_t i = begin; i < end; ++i) converted[i] = map[pixels[i]];
    begin = end;
    image /= 4;
  }
  return converted;
}

Quantizer MakeQuantizer(const Palette& palette) {
  Quantizer quantizer;
  quantizer.nearest.resize(32768);
  for (std::size_t i = 0; i < quantizer.nearest.size(); ++i) {
    const auto part = [&](std::size_t shift) { return static_cast<int>((i >> shift) & 31U) * 255 / 31; };
    quantizer.nearest[i] = Nearest(palette, part(10), part(5), part(0));
  }
  return quantizer;
}

}  // namespace oravin::demo
