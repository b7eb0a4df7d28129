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

/// The ships of one import run. Everything is written beside and behind what is there; only the commit makes all of it
/// visible. So a ship that fails leaves nothing, and a run that is cut short leaves the installation as it was.
namespace oravin {

/// A ship whose files stand ready.
struct ReadyShip {
  ShipRecord record;  ///< its statistics index follows at the commit
  ShipStats stats;
};

struct ImportBatch {
  TextureBatch textures;
  WholeFiles files;                            ///< all of them new: none of them replaces a file
  std::map<std::string, std::string> copies;   ///< of these, what each is a copy of; keys in lower case
  std::map<std::string, FolderNames> folders;  ///< the files of the folders that they go to, as the run began
  std::vector<ReadyShip> ships;
  std::vector<std::string> notes;  ///< what the last box tells beside the result; a sentence each
};

/// Begins a run over an enabled installation: the folders of the add-ons are made where they are missing. Boxes are
/// those of BeginTextures and the error trap's.
bool BeginImport(Host& host, const Installation& installation, ImportBatch& batch);

/// The files of a folder that files are added to, without those of the run.
/// @param folder ends in a backslash
const FolderNames& FilesIn(Files& files, ImportBatch& batch, const std::string& folder);

/// True when the place of a new file is free, or when the file that is there already, or is to be, holds the same
/// bytes.
/// @param from the file that would be copied to the place `to`
/// @throws FileError when a file fails
bool CanBeCopied(Files& files, ImportBatch& batch, const std::string& from, const std::string& to);

/// Writes a copy of a file that is to be new at its place. Where a file of that name is there already, or is to be,
/// nothing is written.
/// @return false when that one holds other bytes (CanBeCopied)
/// @throws FileError when a file fails
bool AddCopy(Files& files, ImportBatch& batch, const std::string& from, const std::string& to);

/// How far a run has come, to go back to.
struct ImportMark {
  BatchMark textures;
  std::size_t files = 0;
  std::size_t ships = 0;
  std::size_t notes = 0;
};

ImportMark MarkOf(const ImportBatch& batch);

/// Takes back what a ship has left since the mark.
void GoBackTo(Host& host, ImportBatch& batch, const ImportMark& mark);

/// Makes the ships part of the installation: statistics blocks in `shipstats.def`, textures, catalogue, models, add-on
/// files, and the lines of the ship list, in this order. The new records take the place of the surplus empty element of
/// `installation.ships`. A failure takes everything back, after its box.
/// @return whether it was done; true for a run without ships
bool CommitImport(Host& host, Installation& installation, ImportBatch& batch);

}  // namespace oravin
