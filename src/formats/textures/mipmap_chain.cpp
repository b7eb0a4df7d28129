#include "textures/mipmap_chain.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/file.h"
#include "files/look_up.h"
#include "files/whole_file.h"
#include "files/work_files.h"
#include "textures/texture_cache.h"

namespace oravin {

namespace {

constexpr const char* chainTitle = "ConvertFighterText";
constexpr int fighterSide = 256;
constexpr int levels = 8;
constexpr std::size_t fighterPixels = std::size_t{fighterSide} * fighterSide;

/// The source in parts.
struct FighterBitmap {
  Bytes header;  ///< everything before its pixels
  Bytes pixels;  ///< of its first image
  Palette palette{};
  int colours = 0;
};

std::string LevelBitmap(const std::string& programPath, int level) {
  return programPath + std::to_string(fighterSide >> level) + "_8.bmp";
}

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

Bytes Reduced(const FighterBitmap& source, int level) {
  const int block = 1 << level;
  const int side = fighterSide >> level;
  Bytes pixels;
  pixels.reserve(static_cast<std::size_t>(side) * static_cast<std::size_t>(side));
  std::map<int, std::uint8_t> known;  // a texture has few colours, and its blocks are often alike
  for (int row = 0; row < side; ++row) {
    for (int column = 0; column < side; ++column) {
      const Rgb colour = AverageOf(source, column * block, row * block, block);
      const auto [found, fresh] = known.try_emplace(colour.red << 16 | colour.green << 8 | colour.blue);
      if (fresh) found->second = Nearest(source, colour);
      pixels.push_back(found->second);
    }
  }
  return pixels;
}

/// Writes the seven smaller bitmaps: the source's header with its sides halved, and the reduced pixels.
void WriteLevels(Files& files, const std::string& programPath, const FighterBitmap& source) {
  for (int level = 1; level < levels; ++level) {
    Bytes bitmap = source.header;
    const auto side = static_cast<std::uint32_t>(fighterSide >> level);
    PutLittleEndian32(&bitmap[bitmapWidthAt], side);
    PutLittleEndian32(&bitmap[bitmapHeightAt], side);
    const Bytes pixels = Reduced(source, level);
    bitmap.insert(bitmap.end(), pixels.begin(), pixels.end());
    WriteWhole(files, LevelBitmap(programPath, level), bitmap);
  }
}

/// Puts the pixels of the eight bitmaps together.
Bytes JoinLevels(Files& files, const std::string& programPath, std::uint64_t pixelOffset) {
  Bytes chain;
  double size = fighterPixels;
  for (int level = 0; level < levels; ++level) {
    File bitmap(files, LevelBitmap(programPath, level), OpenFor::reading);
    Bytes pixels(static_cast<std::size_t>(RoundedSize(size)));
    Get(bitmap, pixelOffset, pixels);
    chain.insert(chain.end(), pixels.begin(), pixels.end());
    size /= 4;
  }
  return chain;
}

bool RefuseFighterBitmap(Host& host) {
  Show(host, "Error - not a fighter texture", Icon::exclamation, chainTitle);
  return false;
}

bool BuildChain(Host& host, const std::string& bitmapPath, const std::string& outputPath,
                const std::string& programPath) {
  if (FileExists(host.files, outputPath)) EraseFile(host.files, outputPath);
  BmpInfo info;
  if (!GetBMPInfo(host, bitmapPath, info)) return false;
  // What follows the first image, as in a bitmap that holds a chain already, is not looked at.
  if (info.depth != 1 || info.width != fighterSide || info.height != fighterSide ||
      info.pixelOffset < colourHeaderSize || info.pixelOffset > largestHeader ||
      FileLength(host.files, bitmapPath) < std::uint64_t{info.pixelOffset} + fighterPixels) {
    return RefuseFighterBitmap(host);
  }
  FighterBitmap source;
  {
    File file(host.files, bitmapPath, OpenFor::reading);
    source.header.resize(info.pixelOffset);
    source.pixels.resize(fighterPixels);
    Get(file, 0, source.header);
    Get(file, info.pixelOffset, source.pixels);
  }
  source.palette = PaletteIn(source.header, source.colours);
  std::vector<std::string> bitmaps;
  bitmaps.reserve(levels);
  for (int level = 0; level < levels; ++level) bitmaps.push_back(LevelBitmap(programPath, level));
  const WorkFiles work(host.files, std::move(bitmaps));
  CopyWhole(host.files, bitmapPath, LevelBitmap(programPath, 0));
  WriteLevels(host.files, programPath, source);
  WriteWhole(host.files, outputPath, JoinLevels(host.files, programPath, info.pixelOffset));
  return true;
}

}  // namespace

bool ConvertFighterText(Host& host, std::string bitmapPath, std::string outputPath, const std::string& programPath) {
  TrimInPlace(bitmapPath);
  if (!FileExists(host.files, bitmapPath)) {
    Show(host, "File not found", Icon::exclamation, "FighterResize");
    return false;
  }
  outputPath = Trim(outputPath);
  return Trapped(host, chainTitle, false, [&] { return BuildChain(host, bitmapPath, outputPath, programPath); });
}

}  // namespace oravin
