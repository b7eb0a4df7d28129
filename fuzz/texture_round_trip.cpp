// Fuzzes the way of a texture into the cache and out again: an extracted bitmap, imported and extracted once more, is
// the same file, and its pixels are those that came in.
//
// An input is a byte for depth (bits 0 to 1) and images (bits 2 to 4), one for the sides (4 bits each), then pixels.

#include <algorithm>

#include "actions/import_texture.h"
#include "input_file.h"
#include "textures/colour.h"
#include "textures/extract_texture.h"
#include "textures/texture_cache.h"

namespace {

using oravin::Bytes;

Bytes SmallCache() {
  Bytes cache(240012 + 16);
  const auto put = [&](std::size_t at, std::uint32_t value) { oravin::PutLittleEndian32(&cache[at], value); };
  put(4, 1);
  put(8, 240028);
  put(12, 1);
  put(12 + 64, 4);
  put(12 + 68, 4);
  put(12 + 116, 1);
  put(12 + 224, 240012);
  return cache;
}

Bytes MakeBitmap(int width, int height, int depth, const Bytes& pixels) {
  Bytes file(depth == 1 ? 1078 : 54);
  file[0] = 'B';
  file[1] = 'M';
  const auto put = [&](std::size_t at, std::size_t value) {
    oravin::PutLittleEndian32(&file[at], static_cast<std::uint32_t>(value));
  };
  put(2, file.size() + pixels.size());
  put(10, file.size());
  put(14, 40);
  put(18, static_cast<std::size_t>(width));
  put(22, static_cast<std::size_t>(height));
  file[26] = 1;
  put(28, static_cast<std::size_t>(depth) * 8);
  file.insert(file.end(), pixels.begin(), pixels.end());
  return file;
}

/// Imports a bitmap of the folder under a name and extracts it again; returns what was extracted.
Bytes ThroughTheCache(oravin::Host& host, const std::string& bitmap, const std::string& name) {
  using namespace oravin;
  const std::string folder = fuzz::Folder().windows;
  const BmpInfo info = GetBMPInfo(host.files, folder + bitmap);
  fuzz::Require(ImportTexture(host, folder + "tcachehw.dat", folder + bitmap, name, info), "the bitmap is imported");
  const TcacheTable table = GetTcacheTable(host.files, folder + "tcachehw.dat");
  fuzz::Require(table.size() > 1 && table.back().name == name, "the texture is the last one");
  std::size_t header = 0;
  ExtractTexture(host.files, folder + "tcachehw.dat", table.back(), folder + "cube.bmp", folder + "out.bmp", header);
  return fuzz::ReadInput("out.bmp");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace oravin;
  if (size < 3) return 0;
  const int depth = 1 + (data[0] & 3) % 3;
  const int images = 1 + (data[0] >> 2 & 7);
  // Sides of four and more have no padded rows.
  const int width = 4 << (data[1] & 15) % 7;
  const int height = 4 << (data[1] >> 4) % 7;
  const double exact = TextureDataSize(width, height, images, depth);
  if (exact != static_cast<double>(static_cast<std::uint64_t>(exact))) return 0;  // no file has half a byte
  if (depth == 3 && static_cast<std::uint64_t>(exact) % 3 != 0) return 0;
  Bytes pixels(static_cast<std::size_t>(exact));
  for (std::size_t i = 0; i < pixels.size(); ++i)
    pixels[i] = static_cast<std::uint8_t>(data[2 + i % (size - 2)] + i / 251);

  static const Bytes cache = SmallCache();
  fuzz::WriteInput("tcachehw.dat", cache);
  fuzz::WriteInput("cube.bmp", MakeBitmap(16, 16, 1, Bytes(256)));
  fuzz::WriteInput("in.bmp", MakeBitmap(width, height, depth, pixels));
  fuzz::CountingHost here;
  const Bytes first = ThroughTheCache(here.host, "in.bmp", "first");
  const std::size_t header = depth == 1 ? 1078 : 54;
  Bytes expected = pixels;
  if (depth == 3) {
    expected.resize(Size16Of24(pixels.size()));
    Convert24To16(pixels, expected);
  }
  if (depth != 1) {
    const Bytes stored = expected;
    expected.resize(Size24Of16(stored.size()));
    Convert16To24(stored, expected);
  }
  fuzz::Require(Bytes(first.begin() + static_cast<std::ptrdiff_t>(header), first.end()) == expected,
                "the pixels come out as they came in");
  fuzz::WriteInput("in.bmp", first);
  fuzz::Require(ThroughTheCache(here.host, "in.bmp", "second") == first, "the second time gives the same file");
  fuzz::Require(here.boxes == 0, "there is no box");
  return 0;
}
