#include "textures/extract_texture.h"

#include <algorithm>
#include <string_view>

#include "base/file_error.h"
#include "base/text.h"
#include "files/file.h"
#include "files/look_up.h"
#include "files/path.h"
#include "files/whole_file.h"
#include "textures/bitmap.h"
#include "textures/colour.h"

namespace oravin {

namespace {

bool IsPlain(char c) { return c >= 32 && c < 127 && std::string_view("\\/:*?\"<>|").find(c) == std::string_view::npos; }

[[noreturn]] void Refuse(const TcacheEntry& entry) {
  throw FileError("could not extract", Trim(entry.name), "its data do not lie in the cache");
}

/// The pixels as the bitmap stores them.
Bytes BitmapPixels(const TcacheEntry& entry, Bytes data) {
  if (entry.pixelFormat != colourFormat) return data;
  Bytes pixels(Size24Of16(data.size()));
  Convert16To24(data, pixels);
  return pixels;
}

void WriteZeros(Files& files, const std::string& cachePath, const TcacheEntry& entry, const std::string& target,
                std::size_t headerSize) {
  if (!CanBeExtracted(entry, FileLength(files, cachePath))) Refuse(entry);
  WriteWhole(files, target, Bytes(headerSize + static_cast<std::size_t>(DataSizeOf(entry).value_or(0))));
}

}  // namespace

std::string SafeFileName(const std::string& name) {
  std::string safe = name;
  for (char& c : safe) {
    if (!IsPlain(c)) c = '_';
  }
  for (auto c = safe.rbegin(); c != safe.rend() && (*c == '.' || *c == ' '); ++c) *c = '_';
  if (!safe.empty() && safe.front() == ' ') safe.front() = '_';
  return IsPlainFileName(safe) ? safe : "_" + safe;
}

std::string TemplateFor(const TcacheTable& table, const std::string& name) {
  const std::string trimmed = Trim(name);
  const std::string lower = LowerCase(trimmed);
  if (!lower.empty() && (lower.front() == 'g' || lower.front() == 'r')) {
    const std::string rest = trimmed.substr(1);
    if (std::any_of(table.begin(), table.end(), [&](const TcacheEntry& entry) { return SameName(entry.name, rest); })) {
      return "3D\\gcube.bmp";
    }
  }
  return "3D\\cube.bmp";
}

bool CanBeExtracted(const TcacheEntry& entry, std::uint64_t cacheLength) {
  if (entry.pixelFormat == paletteFormat || entry.pixelFormat == colourFormat) return DataLiesIn(entry, cacheLength);
  const auto size = DataSizeOf(entry);
  return size && *size <= cacheLength;
}

Bytes ReadTextureData(Files& files, const std::string& cachePath, const TcacheEntry& entry) {
  File cache(files, cachePath, OpenFor::reading);
  if (!DataLiesIn(entry, cache.length)) Refuse(entry);
  Bytes data(static_cast<std::size_t>(DataSizeOf(entry).value_or(0)));
  Get(cache, static_cast<std::uint64_t>(entry.dataOffset), data);
  return data;
}

void ExtractTexture(Files& files, const std::string& cachePath, const TcacheEntry& entry,
                    const std::string& templatePath, const std::string& target, std::size_t& headerSize) {
  if (entry.pixelFormat != paletteFormat && entry.pixelFormat != colourFormat) {
    WriteZeros(files, cachePath, entry, target, headerSize);
    return;
  }
  Bytes header;
  headerSize = BuildBitmapHeader(files, {0, entry.width, entry.height, entry.pixelFormat, entry.imageCount},
                                 templatePath, header);
  const Bytes pixels = BitmapPixels(entry, ReadTextureData(files, cachePath, entry));
  // Intentional: for 8 bits the length in the header stays the template's. For 24 bits it is the whole file's and not
  // that of the largest level, since image programs check it.
  if (entry.pixelFormat == colourFormat) {
    PutLittleEndian32(&header[bitmapFileSizeAt], static_cast<std::uint32_t>(header.size() + pixels.size()));
  }
  WriteBeside(files, target, [&](File& file) {
    Put(file, 0, header);
    Put(file, header.size(), pixels);
  });
}

}  // namespace oravin
