// Fuzzes the reader of bitmaps: it reads a header or throws, what fits can be shown and imported, and anything else
// leaves the cache alone.

#include "actions/import_texture.h"
#include "base/file_error.h"
#include "input_file.h"
#include "textures/mipmap_chain.h"
#include "textures/picture.h"

namespace {

/// The smallest cache that can be added to: one texture of 4 x 4 pixels.
oravin::Bytes SmallCache() {
  oravin::Bytes cache(240012 + 16);
  const auto put = [&](std::size_t at, std::uint32_t value) { oravin::PutLittleEndian32(&cache[at], value); };
  put(0, 102);
  put(4, 1);
  put(8, 240028);
  put(12, 1);
  put(12 + 64, 4);
  put(12 + 68, 4);
  put(12 + 116, 1);
  put(12 + 224, 240012);
  return cache;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace oravin;
  fuzz::WriteInput("a.bmp", {data, size});
  const std::string path = fuzz::Folder().windows + "a.bmp";
  fuzz::CountingHost here;
  BmpInfo info;
  try {
    info = GetBMPInfo(here.host.files, path);
  } catch (const FileError& error) {
    fuzz::Require(size < 32, "only a bitmap without a whole header is refused");
    fuzz::Require(error.kind == ErrorKind::failed, "because it ends too early");
    return 0;
  }
  fuzz::Require(size >= 32, "a header that is read is whole");
  fuzz::Require(info.imageCount >= 0 && info.imageCount <= 64, "the number of mipmap levels is bounded");

  const bool fits = BitmapFits(here.host.files, path, info);
  const auto picture = BitmapPicture(here.host.files, path, info);
  fuzz::Require(picture.has_value() == fits, "what fits can be shown, and nothing else");
  if (picture) {
    fuzz::Require(
        picture->rgb.size() == static_cast<std::size_t>(info.width) * static_cast<std::size_t>(info.height) * 3,
        "a picture has all its pixels");
  }
  try {
    fuzz::Require(ConvertFighterText(here.host.files, path, info).size() == 87380, "a fighter's chain has its length");
    fuzz::Require(info.width == 256 && info.height == 256 && info.depth == 1, "only a fighter's bitmap has one");
  } catch (const FileError& error) {
    fuzz::Require(error.kind == ErrorKind::wrongFormat, "another bitmap is refused");
  }
  fuzz::Require(here.boxes == 0, "readers show no box");

  static const Bytes cache = SmallCache();
  fuzz::WriteInput("tcachehw.dat", cache);
  const bool imported = ImportTexture(here.host, fuzz::Folder().windows + "tcachehw.dat", path, "new", info);
  fuzz::Require(imported == fits, "what fits is imported");
  fuzz::Require(here.boxes == (imported ? 0 : 1), "a refused bitmap gives one box");
  if (!imported) fuzz::Require(fuzz::ReadInput("tcachehw.dat") == cache, "a refused bitmap leaves the cache as it was");
  return 0;
}
