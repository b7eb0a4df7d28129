#include "actions/import_batch.h"

#include <algorithm>

#include "actions/add_on_ship.h"
#include "base/file_error.h"
#include "base/text.h"
#include "catalogue/catalogue.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/file.h"
#include "files/look_up.h"
#include "files/path.h"

namespace oravin {

namespace {

constexpr std::uint64_t longestKept = std::uint64_t{64} << 20;

/// The files that a commit changes, as they were.
struct OldFiles {
  std::string defaultsPath;
  Bytes defaults;
  std::vector<std::pair<std::string, Bytes>> whole;  ///< the catalogue and the ship list
  std::vector<std::string> made;                     ///< the files that are new
};

OldFiles KeepOldFiles(Files& files, const Installation& installation, const ImportBatch& batch) {
  OldFiles old;
  old.defaultsPath = installation.defaultsPath();
  if (FileExists(files, old.defaultsPath)) old.defaults = ReadWhole(files, old.defaultsPath, longestKept);
  for (const std::string& path : {installation.cataloguePath(), installation.shipListPath()}) {
    old.whole.emplace_back(path, ReadWhole(files, path, longestKept));
  }
  old.made = batch.files.paths;
  return old;
}

/// Restores the statistics in place.
void RestoreDefaults(Files& files, const OldFiles& old) {
  if (old.defaults.empty() || ReadWhole(files, old.defaultsPath, longestKept) == old.defaults) return;
  File file(files, old.defaultsPath, OpenFor::changing);
  Put(file, 0, old.defaults);
  SetLength(file, old.defaults.size());
}

/// Tries to undo a commit that failed. One box says when something could not be undone.
void TakeBackAll(Host& host, ImportBatch& batch, const OldFiles& old) {
  bool whole = true;
  const auto attempt = [&](auto&& step) {
    try {
      step();
    } catch (const FileError&) {
      whole = false;
    }
  };
  // The catalogue first: it must not name ships whose models are gone.
  for (const auto& file : old.whole) {
    attempt([&] {
      if (ReadWhole(host.files, file.first, longestKept) != file.second)
        WriteWhole(host.files, file.first, file.second);
    });
  }
  for (const std::string& path : old.made) {
    attempt([&] {
      if (FileExists(host.files, path)) EraseFile(host.files, path);
    });
  }
  attempt([&] { DropWhole(host.files, batch.files, 0); });
  attempt([&] { TakeBackTextures(host.files, batch.textures); });
  attempt([&] { RestoreDefaults(host.files, old); });
  if (whole) return;
  Show(host, "Not everything could be taken back. Use \"Disable / Restore\" when the disk can be written again.",
       Icon::exclamation);
}

/// The file with the bytes that a place has or will have: the one that is there already, or the source of the run's
/// copy. Nothing when the place is free.
std::optional<std::string> FileFor(Files& files, ImportBatch& batch, const std::string& place) {
  const std::string folder = ParentFolder(place);
  if (FindIn(FilesIn(files, batch, folder), place.substr(folder.size())) != nullptr) return place;
  const auto pending = batch.copies.find(LowerCase(place));
  return pending == batch.copies.end() ? std::nullopt : std::optional(pending->second);
}

/// Gives every ship its block of statistics.
void GiveBlocks(Host& host, const Installation& installation, ImportBatch& batch) {
  for (ReadyShip& ship : batch.ships) {
    // Number 0: no other ship has its name.
    const std::optional<int> block = GiveBlock(host, installation, ship.record, ship.stats, 0);
    if (!block) {
      throw FileError("could not import", ship.record.ShipName.Trimmed(), "its statistics could not be written");
    }
    ship.record.StatsIndex = Int16Value(*block);
  }
}

/// The catalogue's bytes, unchanged, with the new records after them.
Bytes NewCatalogue(Files& files, const Installation& installation, const ImportBatch& batch) {
  Bytes all = ReadWhole(files, installation.cataloguePath(), longestKept);
  all.resize(all.size() / shipRecordSize * shipRecordSize);
  const Bytes added = CatalogueOf(installation.cataloguePath(), NewRecords(batch));
  all.insert(all.end(), added.begin(), added.end());
  return all;
}

/// The text as the ship list can hold it.
std::string Listable(const std::string& text) { return CanBeListed(text) ? text : std::string(); }

std::string NewShipList(Files& files, const Installation& installation, const ImportBatch& batch) {
  ShipListText list = ReadShipListText(files, installation.shipListPath());
  for (const ReadyShip& ship : batch.ships) {
    const ShipRecord& record = ship.record;
    list = WithShip(list, {importedKind, record.ShipName.Trimmed(), ModelOf(record),
                           static_cast<int>(WholeNumber(record.StatsIndex)), Listable(record.Textures[0].Trimmed()),
                           Listable(record.Textures[1].Trimmed())});
  }
  return list.text;
}

/// Adds the catalogue and the ship list to the files of the commit. The catalogue is renamed first, so that Disable
/// knows the models if the commit is cut short; the list last, so that it never names a ship without files.
void AddLists(Files& files, const Installation& installation, ImportBatch& batch) {
  const Bytes catalogue = NewCatalogue(files, installation, batch);
  AddWhole(files, batch.files, installation.cataloguePath(), [&](File& file) { Put(file, 0, catalogue); });
  std::rotate(batch.files.paths.begin(), batch.files.paths.end() - 1, batch.files.paths.end());
  const Bytes list = BytesOf(NewShipList(files, installation, batch));
  AddWhole(files, batch.files, installation.shipListPath(), [&](File& file) { Put(file, 0, list); });
}

}  // namespace

bool BeginImport(Host& host, const Installation& installation, ImportBatch& batch) {
  batch = {};
  const bool ready = Trap(host, importShipsTitle, [&] {
    for (const char* folder : {addOnShipsFolder, addOnTexturesFolder, addOnStatsFolder}) {
      MakeFolders(host.files, installation.programFile(folder));
    }
    ReadShipListText(host.files, installation.shipListPath());
  });
  return ready && BeginTextures(host, installation, batch.textures);
}

const FolderNames& FilesIn(Files& files, ImportBatch& batch, const std::string& folder) {
  const auto known = batch.folders.find(folder);
  return known != batch.folders.end() ? known->second
                                      : batch.folders.emplace(folder, NamesIn(files, folder)).first->second;
}

bool CanBeCopied(Files& files, ImportBatch& batch, const std::string& from, const std::string& to) {
  const std::optional<std::string> there = FileFor(files, batch, to);
  return !there || *there == from || IsSameFile(files, *there, from) || SameContent(files, from, *there);
}

bool AddCopy(Files& files, ImportBatch& batch, const std::string& from, const std::string& to) {
  if (FileFor(files, batch, to)) return CanBeCopied(files, batch, from, to);
  AddNew(files, batch.files, to, [&](File& file) { CopyInto(file, from); });
  batch.copies[LowerCase(to)] = from;
  return true;
}

ImportMark MarkOf(const ImportBatch& batch) {
  return {MarkOf(batch.textures), batch.files.paths.size(), batch.ships.size(), batch.notes.size()};
}

void GoBackTo(Host& host, ImportBatch& batch, const ImportMark& mark) {
  Trap(host, importShipsTitle, [&] { GoBackTo(host.files, batch.textures, mark.textures); });
  for (std::size_t i = mark.files; i < batch.files.paths.size(); ++i)
    batch.copies.erase(LowerCase(batch.files.paths[i]));
  DropWhole(host.files, batch.files, mark.files);
  batch.ships.erase(batch.ships.begin() + static_cast<std::ptrdiff_t>(mark.ships), batch.ships.end());
  batch.notes.resize(mark.notes);
}

Ships NewRecords(const ImportBatch& batch) {
  Ships records;
  for (const ReadyShip& ship : batch.ships) records.push_back(ship.record);
  return records;
}

bool CommitImport(Host& host, Installation& installation, ImportBatch& batch) {
  if (batch.ships.empty()) return true;
  OldFiles old;
  if (!Trap(host, importShipsTitle, [&] { old = KeepOldFiles(host.files, installation, batch); })) {
    GoBackTo(host, batch, {MarkOf(batch.textures.begun), 0, 0, 0});
    return false;
  }
  const bool done = Trap(host, importShipsTitle, [&] {
    GiveBlocks(host, installation, batch);
    CommitTextures(host.files, batch.textures);
    AddLists(host.files, installation, batch);
    CommitWhole(host.files, batch.files);
  });
  if (!done) {
    TakeBackAll(host, batch, old);
    return false;
  }
  // Before the sentinel.
  Ships& ships = installation.ships;
  const Ships added = NewRecords(batch);
  ships.insert(ships.empty() ? ships.end() : ships.end() - 1, added.begin(), added.end());
  MarkSecondParts(installation.ships);
  return true;
}

}  // namespace oravin
