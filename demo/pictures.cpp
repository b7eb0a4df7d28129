#include "demo/pictures.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

#include "demo/random.h"

namespace oravin::demo {

namespace {

constexpr int kTile = 256;

// Index of a pixel in an array of rows of the given width.
std::size_t PlaceOf(int x, int y, int width) {
  return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
}

std::uint8_t Part(int value) { return static_cast<std::uint8_t>(std::clamp(value, 0, 255)); }

Colour Lit(const Colour& c, int light) {  // 256 keeps the colour
  return {Part(c.red * light / 256), Part(c.green * light / 256), Part(c.blue * light / 256)};
}

Colour Mix(const Colour& a, const Colour& b, int share) {  // of b, in 1/256
  const auto part = [share](int x, int y) { return Part((x * (256 - share) + y * share) / 256); };
  return {part(a.red, b.red), part(a.green, b.green), part(a.blue, b.blue)};
}

int NoiseAt(const NoiseField& noise, int x, int y) { return noise.values[PlaceOf(x & 255, y & 255, kTile)]; }

// A pseudo-random number that depends only on its arguments.
int Scatter(int x, int y, std::uint64_t seed) {
  const std::uint64_t column = static_cast<std::uint32_t>(x);
  const std::uint64_t row = static_cast<std::uint32_t>(y);
  std::uint64_t h = seed + column * 0x9E3779B97F4A7C15U;
  h = (h ^ (h >> 29)) * 0xBF58476D1CE4E5B9U + row * 0x94D049BB133111EBU;
  h = (h ^ (h >> 31)) * 0x94D049BB133111EBU;
  return static_cast<int>((h >> 40) & 255U);
}

Colour PickHue(Random& random) {
  constexpr std::array<Colour, 8> kPaints{{{150, 158, 170},
                                           {120, 132, 112},
                                           {170, 150, 120},
                                           {110, 124, 156},
                                           {160, 90, 70},
                                           {140, 140, 140},
                                           {96, 112, 120},
                                           {176, 170, 150}}};
  return kPaints[Below(random, kPaints.size())];
}

template <typename ColourAt>
Picture Paint(int width, int height, const ColourAt& colourAt) {
  Picture picture{width, height, {}};
  picture.pixels.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) picture.pixels.push_back(colourAt(x, y));
  }
  return picture;
}

// Plates with bevelled edges and rivets, a coloured stripe, grime; lit windows on a capital ship.
Picture DrawHull(int width, int height, std::uint64_t seed, const NoiseField& noise, bool windows) {
  Random random{seed};
  const Colour paint = PickHue(random);
  const Colour stripe = {Part(Between(random, 40, 255)), Part(Between(random, 20, 180)),
                         Part(Between(random, 20, 220))};
  const int stripeY = Between(random, 32, height - 48);
  const int plateW = 24 << Below(random, 2);
  const int plateH = 16 << Below(random, 3);
  const int shiftX = Between(random, 0, 255);
  const int shiftY = Between(random, 0, 255);
  return Paint(width, height, [&](int x, int y) {
    const int row = y / plateH;
    const int shift = Scatter(row, 0, seed) % 4 * plateW / 4;  // the joints in a row of plates
    const int column = (x + shift) / plateW;
    const int inX = (x + shift) % plateW;
    const int inY = y % plateH;
    int light = 215 + Scatter(column, row, seed) / 8 + (NoiseAt(noise, x + shiftX, y + shiftY) - 128) / 3;
    if (inX == 0 || inY == 0) light -= 60;
    if (inX == 1 || inY == plateH - 1) light += 25;
    if (inX % 8 == 4 && inY == 3) light -= 50;
    const bool onStripe = y >= stripeY && y < stripeY + 14;
    Colour colour = Lit(onStripe ? Mix(paint, stripe, 190) : paint, light);
    if (windows && inY / 3 % 2 == 1 && inX % 4 < 2 && Scatter(x / 4, y / 3, seed) > 190) {
      colour = {250, 230, 150};
    }
    return colour;
  });
}

// A cockpit panel: dials and rows of lamps on brushed metal.
Picture DrawPanel(int width, int height, std::uint64_t seed, const NoiseField& noise) {
  Random random{seed};
  const Colour metal = PickHue(random);
  const int pitch = 32;
  return Paint(width, height, [&](int x, int y) {
    const int dx = x % pitch - pitch / 2;
    const int dy = y % pitch - pitch / 2;
    const int square = dx * dx + dy * dy;
    const int cell = Scatter(x / pitch, y / pitch, seed);
    const int light = 120 + NoiseAt(noise, x / 8, y) / 4;
    if (cell < 120) {
      if (square > 150 && square < 196) return Colour{220, 220, 210};
      if (square <= 150) return std::abs(dx * (cell - 60) - dy * 40) < 60 ? Colour{255, 90, 40} : Colour{16, 24, 28};
    } else if (dx % 6 == 0 && dy % 5 == 0 && std::abs(dy) < 11) {
      return Scatter(x, y, seed) > 128 ? Colour{64, 255, 190} : Colour{40, 70, 60};
    }
    return Lit(metal, light);
  });
}

// A squadron's emblem: a roundel, a chevron or a star on a plate.
Picture DrawInsignia(int width, int height, std::uint64_t seed, const NoiseField& noise) {
  Random random{seed};
  const Colour ground = PickHue(random);
  const Colour ink = {Part(Between(random, 120, 255)), Part(Between(random, 0, 200)), Part(Between(random, 0, 255))};
  const auto shape = Below(random, 3);
  return Paint(width, height, [&](int x, int y) {
    const int dx = (x * 2 + 1 - width) * 128 / width;
    const int dy = (y * 2 + 1 - height) * 128 / height;
    const int square = dx * dx + dy * dy;
    bool inked = false;
    if (shape == 0) inked = (square < 110 * 110 && square > 80 * 80) || square < 40 * 40;
    if (shape == 1) inked = std::abs(dy + std::abs(dx) - 40) < 28 && std::abs(dx) < 100;
    if (shape == 2) inked = std::abs(dx) * std::abs(dy) < 900 && square < 112 * 112;
    return Lit(inked ? ink : ground, 190 + NoiseAt(noise, x * 2, y * 2) / 4);
  });
}

Picture DrawNebula(int width, int height, std::uint64_t seed, const NoiseField& noise) {
  Random random{seed};
  const Colour a = {Part(Between(random, 60, 220)), Part(Between(random, 20, 120)), Part(Between(random, 80, 255))};
  const Colour b = {Part(Between(random, 20, 120)), Part(Between(random, 60, 220)), Part(Between(random, 60, 200))};
  const int shift = Between(random, 0, 255);
  return Paint(width, height, [&](int x, int y) {
    const int cloud = NoiseAt(noise, x + shift, y);
    const int veil = NoiseAt(noise, y - shift, x * 2);
    if (Scatter(x, y, seed) == 255 && cloud < 160) return Colour{255, 250, 240};
    return Lit(Mix(a, b, veil), std::max(0, cloud - 70) * 2);
  });
}

Picture DrawPlanet(int width, int height, std::uint64_t seed, const NoiseField& noise) {
  Random random{seed};
  const Colour sea = {Part(Between(random, 20, 160)), Part(Between(random, 40, 140)), Part(Between(random, 60, 200))};
  const Colour land = {Part(Between(random, 90, 220)), Part(Between(random, 80, 180)), Part(Between(random, 40, 120))};
  const int shift = Between(random, 0, 255);
  return Paint(width, height, [&](int x, int y) {
    const int dx = (x * 2 + 1 - width) * 128 / width;
    const int dy = (y * 2 + 1 - height) * 128 / height;
    const int square = dx * dx + dy * dy;
    if (square > 118 * 118) return Scatter(x, y, seed) > 252 ? Colour{220, 220, 235} : Colour{};
    const int ground = NoiseAt(noise, x + shift, y * 2);
    const int light = 256 - square * 130 / (118 * 118) + (dy - dx) / 2;
    return Lit(ground > 130 ? land : sea, std::max(20, light));
  });
}

Picture DrawStars(int width, int height, std::uint64_t seed, const NoiseField& noise) {
  return Paint(width, height, [&](int x, int y) {
    const int star = Scatter(x, y, seed);
    if (star >= 253) return Lit({255, 248, 230}, 80 + Scatter(y, x, seed) * 2 / 3);
    const int glow = NoiseAt(noise, x, y) / 12;
    return Colour{Part(glow / 2), Part(glow / 2), Part(glow)};
  });
}

// A fireball; the seed is its age.
Picture DrawBlast(int width, int height, std::uint64_t seed, const NoiseField& noise) {
  const int age = static_cast<int>(seed % 16);
  return Paint(width, height, [&](int x, int y) {
    const int dx = (x * 2 + 1 - width) * 128 / width;
    const int dy = (y * 2 + 1 - height) * 128 / height;
    const int reach = 24 + age * 4 + NoiseAt(noise, x * 3 + age * 9, y * 3) / 8;
    const int heat = reach * reach - dx * dx - dy * dy;
    if (heat <= 0) return Colour{};
    const int glow = 40 + heat * 215 / (reach * reach) - NoiseAt(noise, x * 5, y * 5) / 4;
    return Colour{Part(glow * 3 / 2 - age * 3), Part(glow - age * 7), Part(glow - 90 - age * 9)};
  });
}

Picture DrawFlare(int width, int height, std::uint64_t seed) {
  Random random{seed};
  const Colour tint = {Part(Between(random, 120, 255)), Part(Between(random, 120, 255)),
                       Part(Between(random, 120, 255))};
  return Paint(width, height, [&](int x, int y) {
    const int dx = (x * 2 + 1 - width) * 128 / width;
    const int dy = (y * 2 + 1 - height) * 128 / height;
    const int disc = 60000 / (dx * dx + dy * dy + 200);
    const int rays = 9000 / (std::abs(dx) * std::abs(dy) + 60) - (std::abs(dx) + std::abs(dy)) / 2;
    return Lit(tint, std::clamp(disc + rays, 0, 256));
  });
}

// Rows of small symbols of five by seven dots, like a font sheet.
Picture DrawGlyphs(int width, int height, std::uint64_t seed) {
  return Paint(width, height, [&](int x, int y) {
    const int dotX = x % 8;
    const int dotY = y % 10;
    if (dotX > 4 || dotY > 6) return Colour{};
    const int mirrored = std::min(dotX, 4 - dotX);
    return Scatter(x / 8 * 16 + mirrored, y / 10 * 16 + dotY, seed) > 120 ? Colour{64, 255, 190} : Colour{};
  });
}

// A cube seen from a corner, on black.
Picture DrawCube(int width, int height, const NoiseField& noise) {
  return Paint(width, height, [&](int x, int y) {
    const int dx = (x * 2 + 1 - width) * 128 / width;
    const int dy = (y * 2 + 1 - height) * 128 / height;
    const int slope = std::abs(dx) / 2;
    const int light = NoiseAt(noise, x * 2, y * 2) / 8;
    if (std::abs(dx) > 96 || dy > 100 - slope || dy < slope - 100) return Colour{};
    if (dy > slope + 4) return Lit({176, 190, 204}, 230 + light);
    return Lit(dx < 0 ? Colour{220, 40, 50} : Colour{96, 120, 255}, 170 + light);
  });
}

Picture Halve(const Picture& picture) {
  return Paint(picture.width / 2, picture.height / 2, [&](int x, int y) {
    const auto at = PlaceOf(2 * x, 2 * y, picture.width);
    const auto row = static_cast<std::size_t>(picture.width);
    const Colour& a = picture.pixels[at];
    const Colour& b = picture.pixels[at + 1];
    const Colour& c = picture.pixels[at + row];
    const Colour& d = picture.pixels[at + row + 1];
    return Colour{Part((a.red + b.red + c.red + d.red) / 4), Part((a.green + b.green + c.green + d.green) / 4),
                  Part((a.blue + b.blue + c.blue + d.blue) / 4)};
  });
}

template <typename Put>
Bytes Chain(Picture picture, int images, const Put& put) {
  Bytes bytes;
  bytes.reserve(picture.pixels.size() * 3);
  for (int i = 0; i < images; ++i) {
    if (i > 0) picture = Halve(picture);
    for (const Colour& colour : picture.pixels) put(bytes, colour);
  }
  return bytes;
}

}  // namespace

NoiseField MakeNoise(std::uint64_t seed) {
  NoiseField noise;
  std::vector<int> sum(std::size_t{kTile} * kTile, 0);
  int weight = 8;
  for (int cell = 64; cell >= 8; cell /= 2, weight /= 2) {
    const int cells = kTile / cell;
    const auto corner = [&](int x, int y) { return Scatter(x % cells, y % cells, seed + static_cast<unsigned>(cell)); };
    for (int y = 0; y < kTile; ++y) {
      for (int x = 0; x < kTile; ++x) {
        const int inX = x % cell * 256 / cell;
        const int inY = y % cell * 256 / cell;
        const int low = corner(x / cell, y / cell) * (256 - inX) + corner(x / cell + 1, y / cell) * inX;
        const int high = corner(x / cell, y / cell + 1) * (256 - inX) + corner(x / cell + 1, y / cell + 1) * inX;
        sum[PlaceOf(x, y, kTile)] += weight * ((low * (256 - inY) + high * inY) >> 16);
      }
    }
  }
  noise.values.reserve(sum.size());
  for (const int value : sum) noise.values.push_back(Part((value / 15 - 128) * 3 / 2 + 128));
  return noise;
}

Picture Draw(Motif motif, int width, int height, std::uint64_t seed, const NoiseField& noise) {
  switch (motif) {
    case Motif::kHull:
      return DrawHull(width, height, seed, noise, false);
    case Motif::kCapitalHull:
      return DrawHull(width, height, seed, noise, true);
    case Motif::kPanel:
      return DrawPanel(width, height, seed, noise);
    case Motif::kInsignia:
      return DrawInsignia(width, height, seed, noise);
    case Motif::kNebula:
      return DrawNebula(width, height, seed, noise);
    case Motif::kPlanet:
      return DrawPlanet(width, height, seed, noise);
    case Motif::kStars:
      return DrawStars(width, height, seed, noise);
    case Motif::kBlast:
      return DrawBlast(width, height, seed, noise);
    case Motif::kFlare:
      return DrawFlare(width, height, seed);
    case Motif::kGlyphs:
      return DrawGlyphs(width, height, seed);
    case Motif::kCube:
      break;
  }
  return DrawCube(width, height, noise);
}

Bytes IndexedChain(Picture picture, int images, const Quantizer& quantizer) {
  return Chain(std::move(picture), images,
               [&](Bytes& bytes, const Colour& c) { bytes.push_back(IndexOf(quantizer, c)); });
}

Bytes Colour16Chain(Picture picture, int images) {
  return Chain(std::move(picture), images, [](Bytes& bytes, const Colour& c) {
    const int value = (c.red >> 3) << 11 | (c.green >> 2) << 5 | (c.blue >> 3);
    PutLittle16(bytes, static_cast<std::uint32_t>(value));
  });
}

Bytes Colour24(const Picture& picture) {
  Bytes bytes;
  bytes.reserve(picture.pixels.size() * 3);
  for (const Colour& c : picture.pixels) {
    for (const std::uint8_t b : {c.blue, c.green, c.red}) bytes.push_back(b);
  }
  return bytes;
}

}  // namespace oravin::demo
