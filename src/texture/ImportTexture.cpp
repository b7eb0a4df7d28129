#include "texture/ImportTexture.h"

#include <algorithm>

#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "desk/program_end.h"
#include "texture/colour.h"
#include "texture/fighter_chain.h"
#include "texture/loadout_maps.h"
#include "texture/table_bytes.h"
#include "util/File_Path.h"
#include "util/text.h"

namespace oravin {

namespace {

using platform::OpenFor;

constexpr const char* title = "ImportTexture";

/// How far the data end may lie behind the file's own end: an import of a 24-bit bitmap leaves the last third of what
/// it takes unwritten, and the largest bitmap has 256 x 256 pixels and all its smaller images.
constexpr std::uint64_t unwrittenAtMost = 262144;

/// A texture that is about to be added.
struct NewTexture {
  std::string name;
  std::int32_t format = 0;
  BmpInfo info;
  Bytes pixels;                ///< as they are stored
  std::uint64_t reserved = 0;  ///< how far it moves the data end
};

/// The texture's file as it stands behind its header.
Bytes ReadPixels(Files& files, const std::string& path, const BmpInfo& info) {
  const OpenedFile file(files, path, OpenFor::reading);
  // BitmapFits has bounded this length.
  Bytes pixels(static_cast<std::size_t>(LengthOf(files, file.handle) - info.pixelOffset));
  Get(files, file.handle, info.pixelOffset, pixels);
  return pixels;
}

NewTexture MakeTexture(const std::string& name, const BmpInfo& info, Bytes pixels) {
  NewTexture texture{name, info.depth == 2 || info.depth == 3 ? colourFormat : paletteFormat, info, {}, pixels.size()};
  if (info.depth == 3) {
    texture.pixels.resize(Size16Of24(pixels.size()));
    Convert24To16(pixels, texture.pixels);
  } else {
    texture.pixels = std::move(pixels);
  }
  return texture;
}

/// True when something could be written at the data end without writing over the table or a texture.
bool CanBeAddedTo(const TcacheBytes& cache) {
  if (cache.count < 1 || cache.count > tcacheCapacity || SlotsIn(cache) < cache.count) return false;
  if (cache.length < tcacheTableEnd || cache.dataEnd < static_cast<std::int64_t>(tcacheTableEnd)) return false;
  const auto end = static_cast<std::uint64_t>(cache.dataEnd);
  if (end > cache.length + unwrittenAtMost) return false;
  for (int slot = 0; slot < cache.count; ++slot) {
    const TcacheEntry entry = EntryOf(cache, slot);
    if (DataLiesIn(entry, cache.length) && !DataLiesIn(entry, end)) return false;
  }
  return true;
}

[[noreturn]] void EndForFullCache(Host& host) {
  Show(host, "Critical Error - TCACHE is FULL! Use Disable/Restore.", Icon::critical, "ERROR!!!");
  throw ProgramEnd();
}

bool RefuseCache(Host& host) {
  Show(host, "Error - not a valid TCACHE file!", Icon::critical, title);
  return false;
}

bool RefuseBitmap(Host& host) {
  Show(host, "Operation terminated", Icon::none);
  return false;
}

bool NameIsFree(Host& host, const TcacheBytes& cache, const std::string& name) {
  if (SlotNamed(cache, name) < 0) return true;
  Show(host, "A texture with the name of '" + name + "' already exists.\nUnable to import.", Icon::exclamation);
  return false;
}

/// The new entry. It starts as an entry of the same format, since most of its bytes are the game's own affair.
Bytes MakeEntry(const TcacheBytes& cache, std::span<const std::uint8_t> previous, const NewTexture& texture,
                std::uint64_t dataOffset) {
  const int lender = SlotOfFormat(cache, texture.format);
  const auto from = lender < 0 ? previous : SlotBytes(cache, lender);
  Bytes entry(from.begin(), from.end());
  const auto put = [&](std::uint64_t at, std::uint32_t value) { PutLittleEndian32(&entry[at], value); };
  put(tcacheFormatInEntry, static_cast<std::uint32_t>(texture.format));
  std::fill_n(entry.begin() + tcacheNameInEntry, tcacheNameWidth, std::uint8_t{0});
  std::copy(texture.name.begin(), texture.name.end(), entry.begin() + tcacheNameInEntry);
  put(tcacheSerialInEntry, LittleEndian32(&previous[tcacheSerialInEntry]) + 1);
  put(tcacheImagesInEntry, static_cast<std::uint32_t>(texture.info.imageCount));
  put(tcacheWidthInEntry, static_cast<std::uint32_t>(texture.info.width));
  put(tcacheWidthCopyInEntry, static_cast<std::uint32_t>(texture.info.width));
  put(tcacheHeightInEntry, static_cast<std::uint32_t>(texture.info.height));
  put(tcacheHeightCopyInEntry, static_cast<std::uint32_t>(texture.info.height));
  put(tcacheDataInEntry, static_cast<std::uint32_t>(dataOffset));
  put(tcacheMarkInEntry, editorMark);
  return entry;
}

/// Writes textures into the next slots: pixels, entries, and at last the header.
void Append(Files& files, const std::string& path, const TcacheBytes& cache, const std::vector<NewTexture>& textures) {
  auto end = static_cast<std::uint64_t>(cache.dataEnd);
  Bytes entries;
  std::vector<std::uint64_t> offsets;
  const auto last = SlotBytes(cache, cache.count - 1);
  Bytes previous(last.begin(), last.end());
  for (const NewTexture& texture : textures) {
    offsets.push_back(end);
    previous = MakeEntry(cache, previous, texture, end);
    entries.insert(entries.end(), previous.begin(), previous.end());
    end += texture.reserved;
  }
  if (end > 0x7FFFFFFF) throw RunTimeError("could not write", path, "it would become too large");

  const OpenedFile file(files, path, OpenFor::changing);
  for (std::size_t i = 0; i < textures.size(); ++i) Put(files, file.handle, offsets[i], textures[i].pixels);
  Put(files, file.handle, TcacheEntryOffset(cache.count), entries);
  Flush(files, file.handle);
  Bytes header(8);
  PutLittleEndian32(header.data(),
                    static_cast<std::uint32_t>(cache.count) + static_cast<std::uint32_t>(textures.size()));
  PutLittleEndian32(&header[4], static_cast<std::uint32_t>(end));
  Put(files, file.handle, tcacheCountOffset, header);
}

/// Opens the cache for the checks; nothing when it is missing.
bool ReadCache(Host& host, std::string& cachePath, TcacheBytes& cache) {
  if (!FileExists(cachePath)) {
    Show(host, "Error. Path(s) not found", Icon::exclamation, title);
    return false;
  }
  const OpenedFile file(host.files, cachePath, OpenFor::reading);
  cache = ReadTcache(host.files, file.handle);
  return true;
}

bool ImportOne(Host& host, std::string& cachePath, const std::string& bitmapPath, const std::string& name,
               const BmpInfo& info) {
  TcacheBytes cache;
  if (!ReadCache(host, cachePath, cache)) return false;
  if (cache.count == tcacheCapacity) EndForFullCache(host);
  if (!CanBeAddedTo(cache)) return RefuseCache(host);
  if (!BitmapFits(host.files, bitmapPath, info)) return RefuseBitmap(host);
  if (!NameIsFree(host, cache, name)) return false;
  Append(host.files, cachePath, cache, {MakeTexture(name, info, ReadPixels(host.files, bitmapPath, info))});
  return true;
}

bool ImportWithCompanion(Host& host, std::string& cachePath, const std::string& name, const std::string& bitmapPath,
                         const std::string& programPath) {
  TcacheBytes cache;
  if (!ReadCache(host, cachePath, cache)) return false;
  BmpInfo info;
  if (!GetBMPInfo(host, bitmapPath, info)) return false;
  const std::string companion = "g" + name;
  const bool paired = info.depth == 1 && SlotNamed(cache, companion) < 0;
  if (cache.count == tcacheCapacity || (paired && cache.count == tcacheCapacity - 1)) EndForFullCache(host);
  if (!CanBeAddedTo(cache)) return RefuseCache(host);
  if (!BitmapFits(host.files, bitmapPath, info)) return RefuseBitmap(host);
  if (!NameIsFree(host, cache, name)) return false;
  const std::string maps = programPath + loadoutMapsName;
  if (paired && !FileExists(std::string(maps))) {
    Show(host, "Path(s) not found", Icon::exclamation, title);
    return false;
  }
  Bytes pixels;
  std::uint64_t end = 0;
  MemMappedFile(host, bitmapPath, pixels, info.pixelOffset, end);
  std::vector<NewTexture> textures;
  textures.push_back(MakeTexture(name, info, pixels));
  if (paired) {
    MapPixels(pixels, ReadLoadoutMaps(host.files, maps));
    textures.push_back(MakeTexture(companion, info, std::move(pixels)));
  }
  Append(host.files, cachePath, cache, textures);
  return true;
}

bool ImportPair(Host& host, std::string& cachePath, const std::string& chainPath, const std::string& companionPath,
                const std::string& name) {
  const std::string companion = "g" + name;
  TcacheBytes cache;
  if (!ReadCache(host, cachePath, cache)) return false;
  if (cache.count == tcacheCapacity || cache.count == tcacheCapacity - 1) EndForFullCache(host);
  if (!CanBeAddedTo(cache)) return RefuseCache(host);
  std::vector<NewTexture> textures;
  for (const auto& [path, texture] : {std::pair(chainPath, name), std::pair(companionPath, companion)}) {
    if (!BitmapFits(host.files, path, fighterChain)) return RefuseBitmap(host);
    textures.push_back(MakeTexture(texture, fighterChain, ReadPixels(host.files, path, fighterChain)));
  }
  if (!NameIsFree(host, cache, name) || !NameIsFree(host, cache, companion)) return false;
  Append(host.files, cachePath, cache, textures);
  return true;
}

}  // namespace

bool ImportTexture(Host& host, std::string cachePath, std::string bitmapPath, const std::string& name,
                   const BmpInfo& info) {
  const std::string given = Trim(name).substr(0, tcacheNameWidth - 1);
  return Trapped(host, title, false, [&] { return ImportOne(host, cachePath, bitmapPath, given, info); });
}

bool ImportTexture(Host& host, std::string cachePath, const std::string& name, std::string bitmapPath,
                   const std::string& programPath) {
  const std::string given = Trim(name).substr(0, longestTextureName);
  return Trapped(host, title, false,
                 [&] { return ImportWithCompanion(host, cachePath, given, bitmapPath, programPath); });
}

bool ImportFighterTextures(Host& host, std::string cachePath, const std::string& chainPath,
                           const std::string& companionPath, const std::string& name) {
  const std::string given = Trim(name).substr(0, longestTextureName);
  return Trapped(host, title, false, [&] { return ImportPair(host, cachePath, chainPath, companionPath, given); });
}

}  // namespace oravin
