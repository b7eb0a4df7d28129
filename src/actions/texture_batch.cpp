#include "actions/texture_batch.h"

#include "actions/import_texture.h"
#include "actions/learn_loadout.h"
#include "base/text.h"
#include "desk/error_trap.h"
#include "desk/new_name.h"
#include "files/file.h"
#include "textures/extract_texture.h"
#include "textures/new_texture.h"

namespace oravin {

namespace {

/// True when a slot has the same picture as a new texture.
bool SamePicture(Files& files, const TextureBatch& batch, int slot, const NewTexture& texture) {
  const TcacheEntry entry = EntryOf(batch.cache, slot);
  if (entry.pixelFormat != texture.format || entry.width != texture.info.width || entry.height != texture.info.height ||
      entry.imageCount != texture.info.imageCount) {
    return false;
  }
  if (DataSizeOf(entry) != texture.pixels.size() || !DataLiesIn(entry, batch.cache.length)) return false;
  return ReadTextureData(files, batch.cachePath, entry) == texture.pixels;
}

/// Provides the maps for a companion. A box says once, at the first need, that they cannot be learned.
bool ProvideMaps(Host& host, const Installation& installation, TextureBatch& batch) {
  if (!batch.mapsSought) batch.maps = ProvideLoadoutMaps(host, installation);
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

/// Adds the companion that an installed texture lacks: the ship that is being imported will use the texture.
void AddLackingCompanion(Host& host, const Installation& installation, TextureBatch& batch, int slot,
                         const std::string& name) {
  const TcacheEntry entry = EntryOf(batch.cache, slot);
  const BmpInfo info{0, entry.width, entry.height, entry.pixelFormat, entry.imageCount};
  if (entry.pixelFormat != paletteFormat || SlotNamed(batch.cache, "g" + name) >= 0) return;
  if (!SidesFit(info) || !DataLiesIn(entry, batch.cache.length) || !ProvideMaps(host, installation, batch)) return;
  if (batch.cache.count == tcacheCapacity) throw CacheIsFull(batch.cachePath);
  const NewTexture texture = MakeTexture(name, info, ReadTextureData(host.files, batch.cachePath, entry));
  AddTogether(host.files, batch, {CompanionOf(texture, *batch.maps)});
}

AddedTexture Add(Host& host, const Installation& installation, TextureBatch& batch, const std::string& name,
                 const std::string& bitmapPath, AlreadyThere rule) {
  const bool installed = IsInstalled(batch, name);
  if (installed && rule == AlreadyThere::byName) return AddedTexture::installed;
  BmpInfo info;
  if (!Trap(host, "GetBMPInfo", [&] { info = GetBMPInfo(host.files, bitmapPath); })) return AddedTexture::refused;
  const AddedTexture added =
      AddBitmap(host.files, batch, name, bitmapPath, info, [&] { return ProvideMaps(host, installation, batch); });
  if (added == AddedTexture::nameTaken) ShowNameTaken(host, name);
  if (added == AddedTexture::cannotBeStored) NameCanBeStored(host, name);  // shows why
  if (installed) AddLackingCompanion(host, installation, batch, SlotNamed(batch.cache, name), name);
  return added;
}

}  // namespace

bool BeginTextures(Host& host, const Installation& installation, TextureBatch& batch) {
  batch = {};
  batch.cachePath = installation.cachePath();
  return TrappedImport(host, false, [&] {
    batch.cache = ReadTcache(host.files, batch.cachePath);
    if (!CanBeAddedTo(batch.cache)) throw CacheIsDamaged(batch.cachePath);
    batch.begun = batch.cache;
    batch.begun.slots.clear();
    return true;
  });
}

AddedTexture AddBitmap(Files& files, TextureBatch& batch, const std::string& name, const std::string& bitmapPath,
                       const BmpInfo& info, const std::function<bool()>& provideMaps) {
  const int slot = SlotNamed(batch.cache, name);
  // A texture that is there already needs no slot of its own.
  if (slot < 0 && batch.cache.count == tcacheCapacity) throw CacheIsFull(batch.cachePath);
  if (!BitmapFits(files, bitmapPath, info)) throw BitmapDoesNotFit(bitmapPath);
  std::vector<NewTexture> textures = {MakeTexture(name, info, ReadPixels(files, bitmapPath, info))};
  if (slot >= factoryTextures && SamePicture(files, batch, slot, textures[0])) return AddedTexture::installed;
  if (slot >= 0) return AddedTexture::nameTaken;
  if (!IsCodePageText(name)) return AddedTexture::cannotBeStored;
  if (info.depth == 1 && SlotNamed(batch.cache, "g" + name) < 0 && provideMaps()) {
    if (batch.cache.count == tcacheCapacity - 1) throw CacheIsFull(batch.cachePath);
    textures.push_back(CompanionOf(textures[0], *batch.maps));
  }
  AddTogether(files, batch, textures);
  return AddedTexture::added;
}

bool IsInstalled(const TextureBatch& batch, const std::string& name) {
  return SlotNamed(batch.cache, name) >= factoryTextures;
}

AddedTexture AddTexture(Host& host, const Installation& installation, TextureBatch& batch, const std::string& name,
                        const std::string& bitmapPath, AlreadyThere rule) {
  const std::string given = Trim(name).substr(0, longestTextureName);
  const AddedTexture added = TrappedImport(host, AddedTexture::refused,
                                           [&] { return Add(host, installation, batch, given, bitmapPath, rule); });
  return added == AddedTexture::cannotBeStored ? AddedTexture::refused : added;
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
    // The header first: after it no program reads the entries.
    PutCounts(file, batch.begun);
    Put(file, TcacheEntryOffset(batch.begun.count), batch.replaced);
    batch.replaced.clear();
  }
  GoBackTo(files, batch, MarkOf(batch.begun));
}

}  // namespace oravin
