#pragma once

#include <map>
#include <string>
#include <vector>

#include "actions/texture_batch.h"
#include "desk/host.h"
#include "files/folder_names.h"
#include "files/whole_file.h"
#include "installation/installation.h"
#include "lists/ship_list_edit.h"
#include "stats/ship_stats.h"

/// The ships of one import run. Everything is written to temporary files and after the ends of the files that are
/// there; only the commit makes it part of the installation. So a ship that fails leaves nothing, and a run that is cut
/// short leaves the installation unchanged.
namespace oravin {

/// The title of the import's error traps.
inline constexpr const char* importShipsTitle = "cmdImportShips_Click()";

/// A ship whose files are ready.
struct ReadyShip {
  ShipRecord record;  ///< its statistics index is set at the commit
  ShipStats stats;
};

struct ImportBatch {
  TextureBatch textures;
  WholeFiles files;                            ///< all of them new: none of them replaces a file
  std::map<std::string, std::string> copies;   ///< of these, what each is a copy of; keys in lower case
  std::map<std::string, FolderNames> folders;  ///< the files of their folders, as they were before the run
  std::vector<ReadyShip> ships;
  std::vector<std::string> notes;  ///< for the result message; a sentence each
};

/// Starts a run on an enabled installation: makes missing folders of the add-ons. Boxes are those of BeginTextures and
/// the error trap's.
bool BeginImport(Host& host, const Installation& installation, ImportBatch& batch);

/// The files of a folder that files are added to, without those of the run.
/// @param folder ends in a backslash
const FolderNames& FilesIn(Files& files, ImportBatch& batch, const std::string& folder);

/// True when the place of a new file is free, or the file that is there already, or will be after the run, has the same
/// bytes.
/// @param from the file that would be copied to `to`
/// @throws FileError when a file fails
bool CanBeCopied(Files& files, ImportBatch& batch, const std::string& from, const std::string& to);

/// Adds a copy of a file to the run. Nothing is written where the place is not free.
/// @return false when the file in its place has other bytes (CanBeCopied)
/// @throws FileError when a file fails
bool AddCopy(Files& files, ImportBatch& batch, const std::string& from, const std::string& to);

/// A state of a run to return to.
struct ImportMark {
  BatchMark textures;
  std::size_t files = 0;
  std::size_t ships = 0;
  std::size_t notes = 0;
};

ImportMark MarkOf(const ImportBatch& batch);

/// Takes back what the run has added since the mark.
void GoBackTo(Host& host, ImportBatch& batch, const ImportMark& mark);

/// The catalogue's records of the run's ships.
Ships NewRecords(const ImportBatch& batch);

/// Makes the ships part of the installation: statistics blocks in `shipstats.def`, textures, catalogue, models, add-on
/// files, and the lines of the ship list, in this order. The new records are put before the sentinel of
/// `installation.ships`. A failure takes everything back, after its box.
/// @return whether it was done; true for a run without ships
bool CommitImport(Host& host, Installation& installation, ImportBatch& batch);

}  // namespace oravin
