#include "actions/remove_texture.h"

#include <algorithm>
#include <array>
#include <set>

#include "base/text.h"
#include "desk/error_trap.h"
#include "files/file.h"
#include "files/look_up.h"
#include "files/path.h"
#include "files/whole_file.h"
#include "textures/cache_table.h"

namespace oravin {

namespace {

constexpr const char* removeTextureTitle = "RemoveTexture()";

/// A run of bytes that is copied from the old cache to the new one.
struct CopiedRun {
  std::uint64_t from = 0;
  std::uint64_t to = 0;
  std::uint64_t count = 0;
};

/// The new cache before it is written.
struct Rebuilt {
  Bytes head;  ///< header and table
  std::vector<CopiedRun> runs;
  std::uint64_t dataEnd = 0;
};

/// The texture names of some ships, upper-cased and trimmed.
std::set<std::string> NamesOfShips(const Ships& ships) {
  std::set<std::string> names;
  for (const ShipRecord& ship : ships) {
    for (const ShipText& texture : ship.Textures) {
      const std::string name = UpperCase(texture.Trimmed());
      if (!name.empty()) names.insert(name);
    }
  }
  return names;
}

std::set<std::string> NamesToRemove(const Ships& removed, const Ships& remaining) {
  std::set<std::string> names;
  for (const std::string& name : NamesOfShips(removed)) names.insert({name, "G" + name});
  for (const std::string& name : NamesOfShips(remaining)) {
    names.erase(name);
    names.erase("G" + name);
    // The remaining ship may name the companion: then its texture stays as well.
    if (name.front() == 'G') names.erase(name.substr(1));
  }
  return names;
}

/// The factory textures' data, which do not move. Runs that touch or overlap are merged.
std::vector<CopiedRun> FactoryRuns(const TcacheBytes& cache) {
  std::vector<CopiedRun> runs;
  for (int slot = 0; slot < factoryTextures; ++slot) {
    const TcacheEntry entry = EntryOf(cache, slot);
    const std::uint64_t size = DataSizeOf(entry).value_or(0);
    const auto at = static_cast<std::uint64_t>(entry.dataOffset);
    if (size > 0) runs.push_back({at, at, size});
  }
  std::sort(runs.begin(), runs.end(), [](const CopiedRun& a, const CopiedRun& b) { return a.from < b.from; });
  std::vector<CopiedRun> merged;
  for (const CopiedRun& run : runs) {
    if (merged.empty() || run.from > merged.back().from + merged.back().count) {
      merged.push_back(run);
    } else {
      merged.back().count = std::max(merged.back().count, run.from + run.count - merged.back().from);
    }
  }
  return merged;
}

/// Keeps a user texture: in the next slot, its data at the running data end. An entry whose data do not lie in the old
/// cache is kept unchanged.
void KeepUserTexture(Rebuilt& rebuilt, const TcacheBytes& cache, int slot, int newSlot) {
  const auto bytes = SlotBytes(cache, slot);
  const auto target = rebuilt.head.begin() + static_cast<std::ptrdiff_t>(TcacheEntryOffset(newSlot));
  std::copy(bytes.begin(), bytes.end(), target);
  const TcacheEntry entry = EntryOf(cache, slot);
  if (!DataLiesIn(entry, cache.length)) return;
  const std::uint64_t size = DataSizeOf(entry).value_or(0);
  PutLittleEndian32(&*(target + tcacheDataInEntry), static_cast<std::uint32_t>(rebuilt.dataEnd));
  if (size == 0) return;
  CopiedRun& last = rebuilt.runs.back();
  const auto from = static_cast<std::uint64_t>(entry.dataOffset);
  if (last.from + last.count == from && last.to + last.count == rebuilt.dataEnd) {
    last.count += size;
  } else {
    rebuilt.runs.push_back({from, rebuilt.dataEnd, size});
  }
  rebuilt.dataEnd += size;
}

Rebuilt Rebuild(const TcacheBytes& cache, const std::set<std::string>& unwanted) {
  Rebuilt rebuilt;
  rebuilt.head.resize(tcacheTableEnd);
  std::copy_n(cache.slots.begin(), factoryTextures * tcacheEntrySize,
              rebuilt.head.begin() + static_cast<std::ptrdiff_t>(tcacheHeaderSize));
  rebuilt.runs = FactoryRuns(cache);
  rebuilt.dataEnd = FactoryDataEnd(cache);
  int slots = factoryTextures;
  for (int slot = factoryTextures; slot < SlotsIn(cache); ++slot) {
    if (unwanted.contains(UpperCase(Trim(NameIn(SlotBytes(cache, slot)))))) continue;
    KeepUserTexture(rebuilt, cache, slot, slots);
    ++slots;
  }
  PutLittleEndian32(rebuilt.head.data(), tcacheMarker);
  PutLittleEndian32(&rebuilt.head[tcacheCountOffset], static_cast<std::uint32_t>(slots));
  PutLittleEndian32(&rebuilt.head[tcacheDataEndOffset], static_cast<std::uint32_t>(rebuilt.dataEnd));
  return rebuilt;
}

void WriteRebuilt(Files& files, const std::string& cachePath, const std::string& temp, const Rebuilt& rebuilt) {
  File old(files, cachePath, OpenFor::reading);
  File made(files, temp, OpenFor::replacing);
  Put(made, 0, rebuilt.head);
  for (const CopiedRun& run : rebuilt.runs) CopyBytes(old, run.from, made, run.to, run.count);
  Flush(made);
}

std::string UnfinishedRebuild(const std::string& cachePath) { return ParentFolder(cachePath) + "temp"; }

void RebuildWithout(Files& files, const std::string& cachePath, const TcacheBytes& cache,
                    const std::set<std::string>& unwanted) {
  const FileError damaged("could not use", cachePath, "its textures are damaged", ErrorKind::damaged);
  if (!FactoryPartIsWhole(cache)) throw damaged;
  const Rebuilt rebuilt = Rebuild(cache, unwanted);
  // Textures that share their data would make the cache grow.
  if (rebuilt.dataEnd > cache.length) throw damaged;
  const std::string temp = UnfinishedRebuild(cachePath);
  try {
    WriteRebuilt(files, cachePath, temp, rebuilt);
    RenameOver(files, temp, cachePath);
  } catch (const FileError&) {
    EraseIfThere(files, temp);
    throw;
  }
}

}  // namespace

bool RemoveTexture(Host& host, const std::string& cachePath, const Ships& removed, const Ships& remaining) {
  TcacheBytes cache;
  return Trap(host, removeTextureTitle, [&] { RequireFile(host.files, cachePath); }) &&
         Trap(host, "GetTcacheTable", [&] { cache = ReadUsableTcache(host.files, cachePath); }) &&
         Trap(host, removeTextureTitle,
              [&] { RebuildWithout(host.files, cachePath, cache, NamesToRemove(removed, remaining)); });
}

void EraseUnfinishedRebuild(Files& files, const std::string& cachePath) {
  const std::string temp = UnfinishedRebuild(cachePath);
  if (!FileExists(files, temp)) return;
  if (FileLength(files, temp) > 0) {
    File file(files, temp, OpenFor::reading);
    std::array<std::uint8_t, 4> marker{};
    if (GetSome(file, 0, marker) < marker.size() || LittleEndian32(marker.data()) != tcacheMarker) return;
  }
  EraseFile(files, temp);
}

}  // namespace oravin
