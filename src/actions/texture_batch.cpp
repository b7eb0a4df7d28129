#include "actions/texture_batch.h"

#include "actions/import_refusals.h"
#include "actions/learn_loadout.h"
#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "desk/new_name.h"
#include "files/file.h"
#include "installation/installation.h"
#include "textures/bitmap.h"
#include "textures/extract_texture.h"
#include "textures/new_texture.h"

namespace oravin {

namespace {

/// True when a slot holds the very picture that a new texture would be.
bool SamePicture(Files& files, const TextureBatch& batch, int slot, const NewTexture& texture) {
  const TcacheEntry entry = EntryOf(batch.cache, slot);
  if (entry.pixelFormat != texture.format || entry.width != texture.info.width || entry.height != texture.info.height ||
      entry.imageCount != texture.info.imageCount) {
    return false;
  }
  if (DataSizeOf(entry) != texture.pixels.size() || !DataLiesIn(entry, batch.cache.length)) return false;
  return ReadTextureData(files, batch.cachePath, entry) == texture.pixels;
}

/// Has the maps ready for a companion. A message says once, at the first need, that they cannot be learned.
bool ProvideMaps(Host& host, TextureBatch& batch) {
  if (!batch.mapsSought) batch.maps = ProvideLoadoutMaps(host, batch.cachePath, batch.mapsPath);
  batch.mapsSought = true;
  return batch.maps.has_value();
}

/// Adds textures, all or none.
void AddTogether(Files& files, TextureBatch& batch, const std::vector<NewTexture>& textures) {
  if (batch.counting) {
    std::uint64_t reserved = 0;
    for (const NewTexture& texture : textures) reserved += texture.reserved;
    if (!HasRoomFor(batch.cache, reserved)) return;
    for (const NewTexture& texture : textures) AddEntry(batch.cache, texture);
    return;
  }
  const BatchMark mark = MarkOf(batch);
  try {
    File file(files, batch.cachePath, OpenFor::changing);
    for (const NewTexture& texture : textures) AddPixels(file, batch.cache, texture);
  } catch (const FileError&) {
    GoBackTo(files, batch, mark);
    throw;
  }
}

NewTexture CompanionOf(const NewTexture& texture, const LoadoutMaps& maps) {
  NewTexture companion = texture;
  companion.name = "g" + texture.name;
  MapPixels(companion.pixels, maps);
  return companion;
}

/// Gives a texture that an import found in the cache, and that its ship will use, the companion that it lacks.
void AddLackingCompanion(Host& host, TextureBatch& batch, int slot, const std::string& name) {
  const TcacheEntry entry = EntryOf(batch.cache, slot);
  const BmpInfo info{0, entry.width, entry.height, entry.pixelFormat, entry.imageCount};
  if (entry.pixelFormat != paletteFormat || SlotNamed(batch.cache, "g" + name) >= 0) return;
  if (!SidesFit(info) || !DataLiesIn(entry, batch.cache.length) || !ProvideMaps(host, batch)) return;
  if (batch.cache.count == tcacheCapacity) EndForFullCache(host);
  const NewTexture texture = MakeTexture(name, info, ReadTextureData(host.files, batch.cachePath, entry));
  AddTogether(host.files, batch, {CompanionOf(texture, *batch.maps)});
}

AddedTexture Add(Host& host, TextureBatch& batch, const std::string& name, const std::string& bitmapPath,
                 AlreadyThere rule) {
  const int slot = SlotNamed(batch.cache, name);
  if (slot >= factoryTextures && rule == AlreadyThere::byName) return AddedTexture::installed;
  BmpInfo info;
  if (!GetBMPInfo(host, bitmapPath, info)) return AddedTexture::refused;
  // What is there already needs no slot of its own.
  if (slot < 0 && batch.cache.count == tcacheCapacity) EndForFullCache(host);
  if (!BitmapFits(host.files, bitmapPath, info)) {
    RefuseBitmap(host);
    return AddedTexture::refused;
  }
  const NewTexture texture = MakeTexture(name, info, ReadPixels(host.files, bitmapPath, info));
  if (slot >= factoryTextures) {
    const bool same = SamePicture(host.files, batch, slot, texture);
    if (!same) NameIsFree(host, batch.cache, name);  // shows that another picture has the name
    AddLackingCompanion(host, batch, slot, name);
    return same ? AddedTexture::installed : AddedTexture::nameTaken;
  }
  if (!NameIsFree(host, batch.cache, name)) return AddedTexture::nameTaken;
  if (!NameCanBeStored(host, name)) return AddedTexture::refused;
  std::vector<NewTexture> textures = {texture};
  if (info.depth == 1 && SlotNamed(batch.cache, "g" + name) < 0 && ProvideMaps(host, batch)) {
    if (batch.cache.count == tcacheCapacity - 1) EndForFullCache(host);
    textures.push_back(CompanionOf(texture, *batch.maps));
  }
  AddTogether(host.files, batch, textures);
  return AddedTexture::added;
}

}  // namespace

bool BeginTextures(Host& host, const std::string& cachePath, const std::string& programPath, TextureBatch& batch) {
  batch = {};
  batch.cachePath = cachePath;
  batch.mapsPath = programPath + loadoutMapsName;
  return Trapped(host, importTitle, false, [&] {
    if (!ReadCacheToAddTo(host, batch.cachePath, batch.cache)) return false;
    if (!CanBeAddedTo(batch.cache)) return RefuseCache(host);
    batch.begun = batch.cache;
    batch.begun.slots.clear();
    return true;
  });
}

AddedTexture AddTexture(Host& host, TextureBatch& batch, const std::string& name, const std::string& bitmapPath,
                        AlreadyThere rule) {
  const std::string given = Trim(name).substr(0, longestTextureName);
  return Trapped(host, importTitle, AddedTexture::refused, [&] { return Add(host, batch, given, bitmapPath, rule); });
}

BatchMark MarkOf(const TcacheBytes& cache) { return {cache.count, cache.dataEnd, cache.length}; }

BatchMark MarkOf(const TextureBatch& batch) { return MarkOf(batch.cache); }

void GoBackTo(Files& files, TextureBatch& batch, const BatchMark& mark) {
  const bool longer = batch.cache.length > mark.length;
  batch.cache.slots.resize(static_cast<std::size_t>(mark.count) * tcacheEntrySize);
  batch.cache.count = mark.count;
  batch.cache.dataEnd = mark.dataEnd;
  batch.cache.length = mark.length;
  File file(files, batch.cachePath, OpenFor::changing);
  if (longer || file.length > mark.length) SetLength(file, mark.length);
}

void CommitTextures(Files& files, TextureBatch& batch) {
  const int added = batch.cache.count - batch.begun.count;
  if (added == 0 || !batch.replaced.empty()) return;
  File file(files, batch.cachePath, OpenFor::changing);
  Bytes replaced(static_cast<std::size_t>(added) * tcacheEntrySize);
  Get(file, TcacheEntryOffset(batch.begun.count), replaced);
  batch.replaced = std::move(replaced);
  WriteTable(file, batch.cache, batch.begun.count);
}

void TakeBackTextures(Files& files, TextureBatch& batch) {
  if (!batch.replaced.empty()) {
    File file(files, batch.cachePath, OpenFor::changing);
    // The header first: from then on nothing looks at the entries.
    PutCounts(file, batch.begun);
    Put(file, TcacheEntryOffset(batch.begun.count), batch.replaced);
    batch.replaced.clear();
  }
  GoBackTo(files, batch, MarkOf(batch.begun));
}

}  // namespace oravin
