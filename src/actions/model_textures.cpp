#include "actions/model_textures.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/file.h"
#include "files/look_up.h"
#include "files/path.h"
#include "models/model_chunks.h"
#include "models/texture_names.h"
#include "textures/cache_table.h"
#include "textures/extract_texture.h"

namespace oravin {

namespace {

constexpr std::uint64_t classByteAt = 26;
constexpr std::uint32_t noChunk = 65536;  // a type that no chunk can have

/// True when the model names textures in a table that is complete in its file. What follows it does not matter.
bool HasNames(Files& files, const std::string& path) {
  ModelReader reader(files, path);
  while (const auto chunk = NextChunk(reader, textureNamesChunk)) {
    if (EndOf(*chunk) > reader.length) return false;
    if (chunk->count > 0) return true;
  }
  return false;
}

/// True when the file is long enough for a model and has whole chunks only; less than a header may be left over.
bool IsAllChunks(Files& files, const std::string& path) {
  ModelReader reader(files, path);
  if (reader.length <= classByteAt) return false;
  // A file of zeros is a sequence of empty chunks.
  const auto header = BytesAt(reader, 0, chunkHeaderSize);
  if ((header[2] | header[3]) == 0 || (header[4] | header[5]) == 0) return false;
  NextChunk(reader, noChunk);
  return reader.next <= reader.length && reader.length - reader.next < chunkHeaderSize;
}

std::string BitmapFor(Files& files, const std::string& modelPath, const std::string& name, const GivenBitmaps& given,
                      bool& isGiven) {
  const auto chosen = given.find(BitmapKey(name));
  isGiven = chosen != given.end() && FileExists(files, chosen->second);
  return isGiven ? chosen->second : BitmapBeside(files, modelPath, name);
}

ListedTexture NewListed(Files& files, const std::string& name, const TcacheTable& table, const std::string& modelPath,
                        const GivenBitmaps& given) {
  ListedTexture texture;
  texture.name = name;
  const auto cached =
      std::find_if(table.begin(), table.end(), [&](const TcacheEntry& entry) { return SameName(entry.name, name); });
  if (cached != table.end()) {
    texture.cached = *cached;
    texture.cachedPalette = TemplateFor(table, cached->name);
  }
  texture.bitmapPath = BitmapFor(files, modelPath, name, given, texture.given);
  if (!texture.bitmapPath.empty()) texture.unusable = WhyUnusable(files, texture.bitmapPath, texture.info);
  return texture;
}

}  // namespace

std::string BitmapKey(const std::string& texture) { return LowerCase(Trim(texture)); }

std::string BitmapBeside(Files& files, const std::string& modelPath, const std::string& texture) {
  const std::string name = Trim(texture) + ".bmp";
  if (Trim(texture).empty() || !IsPlainFileName(name)) return "";
  const std::string path = ParentFolder(modelPath) + name;
  return FileExists(files, path) ? path : "";
}

std::vector<std::string> BitmapsOf(Files& files, const std::string& modelPath, const GivenBitmaps& given) {
  std::vector<std::string> bitmaps;
  try {
    for (const std::string& name : ReadShpTextureNames(files, modelPath)) {
      bool isGiven = false;
      std::string bitmap = BitmapFor(files, modelPath, name, given, isGiven);
      if (!bitmap.empty()) bitmaps.push_back(std::move(bitmap));
    }
  } catch (const FileError&) {
    return {};  // the import itself reports it
  }
  return bitmaps;
}

std::string WhyUnusable(Files& files, const std::string& bitmapPath, BmpInfo& info) {
  try {
    info = GetBMPInfo(files, bitmapPath);
  } catch (const FileError&) {
    return "it is no bitmap that can be read";
  }
  try {
    if (BitmapFits(files, bitmapPath, info)) return "";
  } catch (const FileError& error) {
    return error.reason;
  }
  if (info.depth < 1 || info.depth > 3) return "its pixels have neither 8 nor 16 nor 24 bits";
  if (info.imageCount == 0) return "its length does not fit the size that it states";
  return "its sides must each be one of 2, 4, 8, ... 256, and it must not be compressed";
}

bool IsShpFile(Files& files, const std::string& path) { return HasNames(files, path) || IsAllChunks(files, path); }

TextureListing ListTextures(Files& files, const std::string& modelPath, const std::string& cachePath,
                            const GivenBitmaps& given) {
  const std::string model = Trim(modelPath);
  RequireFile(files, model);
  if (!IsShpFile(files, model)) {
    throw FileError("could not read", model, "it is no ship model", ErrorKind::wrongFormat);
  }
  const std::vector<std::string> names = ReadShpTextureNames(files, model);
  TextureListing listing;
  if (names.empty()) return listing;
  listing.cacheMissing = !FileExists(files, cachePath);
  const TcacheTable table = listing.cacheMissing ? TcacheTable() : EntriesOf(ReadTcache(files, cachePath));
  for (const std::string& name : names) listing.textures.push_back(NewListed(files, name, table, model, given));
  return listing;
}

bool TextureList(Host& host, const std::string& modelPath, const std::string& cachePath, const GivenBitmaps& given,
                 std::vector<ListedTexture>& textures) {
  TextureListing listing;
  const bool listed =
      Trap(host, "TextureList", [&] { listing = ListTextures(host.files, modelPath, cachePath, given); });
  if (!listed) return false;
  if (listing.cacheMissing) Trap(host, "FindStructOffset", [&] { RequireFile(host.files, cachePath); });
  textures = std::move(listing.textures);
  return true;
}

}  // namespace oravin
