// Fuzzes the readers of the texture cache's table: they find what a plain reader of the same bytes finds, refuse a
// table that runs past the end, show and extract only data that lie in the file, and write nothing to it.

#include "actions/restore_cache.h"
#include "base/file_error.h"
#include "input_file.h"
#include "textures/cache_table.h"
#include "textures/extract_texture.h"
#include "textures/picture.h"

namespace {

using oravin::Bytes;

std::int32_t NumberAt(const Bytes& file, std::size_t at) {
  return static_cast<std::int32_t>(oravin::LittleEndian32(&file[at]));
}

/// One slot read in the plainest way.
oravin::TcacheEntry PlainEntry(const Bytes& file, std::size_t slot) {
  const std::size_t e = 12 + 240 * slot;
  oravin::TcacheEntry entry;
  for (std::size_t i = 0; i < 32 && file[e + 72 + i] != 0; ++i) entry.name += static_cast<char>(file[e + 72 + i]);
  entry.entryOffset = static_cast<std::uint32_t>(e);
  entry.imageCount = NumberAt(file, e + 116);
  entry.width = NumberAt(file, e + 64);
  entry.height = NumberAt(file, e + 68);
  entry.pixelFormat = NumberAt(file, e);
  entry.dataOffset = NumberAt(file, e + 224);
  return entry;
}

void LookAt(oravin::Files& files, const std::string& path, const oravin::TcacheEntry& entry, std::uint64_t length) {
  using namespace oravin;
  constexpr std::uint64_t spare = 1'000'000;  // larger ones are legal, but fill memory instead of finding anything
  const Palette palette = TemplatePalette(files, "");
  for (int image = 0; image < 3; ++image) {
    const auto picture = TexturePicture(files, path, entry, image, palette);
    fuzz::Require(!picture || DataLiesIn(entry, length), "only what lies in the file is shown");
  }
  if (!CanBeExtracted(entry, length) || DataSizeOf(entry).value_or(0) > spare) return;
  if (entry.pixelFormat == paletteFormat) {
    fuzz::Require(ReadTextureData(files, path, entry).size() == DataSizeOf(entry), "all its data are read");
  }
  fuzz::Require(SafeFileName(entry.name).find_first_of("\\/:*?\"<>|") == std::string::npos, "a name is made safe");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace oravin;
  fuzz::WriteInput("tcachehw.dat", {data, size});
  const std::string path = fuzz::Folder().windows + "tcachehw.dat";
  const Bytes file(data, data + size);
  fuzz::CountingHost here;
  TcacheTable table;
  bool read = true;
  try {
    table = GetTcacheTable(here.host.files, path);
  } catch (const FileError& error) {
    fuzz::Require(error.kind == ErrorKind::wrongFormat, "a refused file is no texture cache");
    read = false;
  }
  const std::int32_t stated = size < 12 ? 0 : NumberAt(file, 4);
  const bool whole = stated >= 1 && stated <= 1000 && size >= 12 + 240 * static_cast<std::size_t>(stated);
  fuzz::Require(read == whole, "a whole table is read and no other");
  fuzz::Require(table.size() == static_cast<std::size_t>(whole ? stated : 0), "the count is the number of entries");
  for (std::size_t slot = 0; slot < table.size(); ++slot) {
    fuzz::Require(table[slot] == PlainEntry(file, slot), "the plain reader finds the same entry");
    if (slot >= 8) continue;
    LookAt(here.host.files, path, table[slot], size);
    const int found = SlotNamed(ReadTcache(here.host.files, path), table[slot].name);
    fuzz::Require(found >= 0 && static_cast<std::size_t>(found) <= slot, "every name is found");
  }
  fuzz::Require(fuzz::ReadInput("tcachehw.dat") == file, "nothing is written");
  fuzz::Require(here.boxes == 0, "readers show no box");
  if (RestoreTcacheFile(here.host, path)) {
    fuzz::Require(stated >= 426, "only a cache with all factory textures is restored");
    fuzz::Require(here.boxes == 0, "and without a box");
  } else {
    fuzz::Require(here.boxes == 1, "a refused cache gives one box");
    fuzz::Require(fuzz::ReadInput("tcachehw.dat") == file, "a refused cache stays as it was");
  }
  return 0;
}
