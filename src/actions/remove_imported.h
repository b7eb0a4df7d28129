#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "desk/host.h"
#include "installation/installation.h"

namespace oravin {

/// The title of the message boxes about a removal.
inline constexpr const char* removeTitle = "cmdRemoveShips_Click()";

/// What a removal changed.
struct RemovalResult {
  bool begun = false;                ///< files may have changed
  bool done = false;                 ///< the ships have left the catalogue
  std::vector<std::size_t> records;  ///< indices of the removed records before the removal, ascending
};

/// Where a record stands after a removal: its new index, -1 for a removed one and for a negative index.
int IndexAfter(const RemovalResult& removal, int index);

/// Removes imported ships. Before the first change it makes sure that everything can be written; a list
/// `shipsData.txt` that cannot be used refuses the removal.
///
/// Stock ships that are swapped to one of them are restored. The ships' models are deleted from the game's ships folder
/// with their ".bak", their textures from the cache, unless a remaining ship uses them; their lines are deleted from
/// `shipsData.txt`. Their add-on files are not deleted but moved to a folder with the ship's name in `addons\removed\`;
/// a bitmap only together with its texture, and when no other ship names it. Their blocks of `shipstats.def` are filled
/// with zeros. Last they leave the catalogue, where the indices of the others are set anew.
///
/// The catalogue lists the ships until all the rest is done: a removal that failed or was stopped can be repeated and
/// does what is left, and "Disable / Restore" can undo it at any time. Each failure has the error trap's message box,
/// titled removeTitle.
///
/// @param ships indices of imported ships, each the first record of a ship (ImportedParts)
/// @param textures whether their textures are removed too
RemovalResult RemoveImported(Host& host, Installation& installation, const std::vector<int>& ships, bool textures);

/// The name of a folder for a ship's files: the ship's name with "_" for every character that a folder's name cannot
/// have or that FileExists refuses (codes above 127), and for a dot at its end; "_" before the name of a Windows
/// device.
std::string FolderNameFor(const std::string& shipName);

}  // namespace oravin
