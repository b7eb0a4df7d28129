#include "textures/mipmap_chain.h"

#include <map>

#include "base/file_error.h"
#include "files/file.h"
#include "files/look_up.h"

namespace oravin {

namespace {

constexpr int fighterSide = 256;
constexpr std::size_t fighterPixels = std::size_t{fighterSide} * fighterSide;

struct FighterBitmap {
  Bytes pixels;  ///< of its largest mipmap level
  Palette palette{};
  int colours = 0;
};

std::uint8_t Nearest(const FighterBitmap& source, const Rgb& wanted) {
  int best = 0;
  int bestDistance = 0x7FFFFFFF;
  for (int i = 0; i < source.colours; ++i) {
    const Rgb& colour = source.palette.at(static_cast<std::size_t>(i));
    const int red = colour.red - wanted.red;
    const int green = colour.green - wanted.green;
    const int blue = colour.blue - wanted.blue;
    const int distance = red * red + green * green + blue * blue;
    if (distance >= bestDistance) continue;
    best = i;
    bestDistance = distance;
  }
  return static_cast<std::uint8_t>(best);
}

/// The average colour of one block, each part rounded, halves up.
Rgb AverageOf(const FighterBitmap& source, int left, int row, int side) {
  unsigned red = 0;
  unsigned green = 0;
  unsigned blue = 0;
  for (int y = row; y < row + side; ++y) {
    for (int x = left; x < left + side; ++x) {
      const Rgb& colour =
          source.palette[source.pixels[static_cast<std::size_t>(y) * fighterSide + static_cast<std::size_t>(x)]];
      red += colour.red;
      green += colour.green;
      blue += colour.blue;
    }
  }
  const auto count = static_cast<unsigned>(side * side);
  const auto part = [&](unsigned sum) { return static_cast<std::uint8_t>((sum + count / 2) / count); };
  return {part(red), part(green), part(blue)};
}

/// Appends the pixels of one of the smaller levels.
void AddLevel(const FighterBitmap& source, int level, Bytes& chain) {
  const int block = 1 << level;
  const int side = fighterSide >> level;
  std::map<int, std::uint8_t> known;  // a texture has few colours, and its blocks are often alike
  for (int row = 0; row < side; ++row) {
    for (int column = 0; column < side; ++column) {
      const Rgb colour = AverageOf(source, column * block, row * block, block);
      const auto [found, fresh] = known.try_emplace(colour.red << 16 | colour.green << 8 | colour.blue);
      if (fresh) found->second = Nearest(source, colour);
      chain.push_back(found->second);
    }
  }
}

/// True for an 8-bit bitmap of 256 x 256 pixels. What follows the first mipmap level, as in a bitmap of a whole chain,
/// is not used.
bool IsFighterBitmap(const BmpInfo& info, std::uint64_t fileLength) {
  return info.depth == 1 && info.width == fighterSide && info.height == fighterSide &&
         info.pixelOffset >= colourHeaderSize && info.pixelOffset <= largestHeader &&
         fileLength >= std::uint64_t{info.pixelOffset} + fighterPixels;
}

}  // namespace

Bytes ConvertFighterText(Files& files, const std::string& path, const BmpInfo& info) {
  RequireFile(files, path);
  File file(files, path, OpenFor::reading);
  if (!IsFighterBitmap(info, file.length)) {
    throw FileError("could not use", path, "it is no 8-bit bitmap of 256 x 256 pixels", ErrorKind::wrongFormat);
  }
  Bytes header(info.pixelOffset);
  FighterBitmap source;
  source.pixels.resize(fighterPixels);
  Get(file, 0, header);
  Get(file, info.pixelOffset, source.pixels);
  source.palette = PaletteIn(header, source.colours);
  Bytes chain = source.pixels;
  for (int level = 1; level < fighterChain.imageCount; ++level) AddLevel(source, level, chain);
  return chain;
}

}  // namespace oravin
