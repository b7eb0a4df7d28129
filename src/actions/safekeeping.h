#pragma once

#include <string>
#include <vector>

#include "desk/host.h"
#include "installation/installation.h"
#include "installation/model_entry.h"

/// What the player had before the features were enabled, kept in `backup\` of the program folder:
///
///   backup\ships\          loose models that have the file name of a ship of the catalogue, and their ".org"
///                           (installation/kept_models.h)
///   backup\tcachehw.dat     a texture cache with textures of the player's own
///   backup\shipstats.def    the stock statistics
namespace oravin {

/// Start-up's copy of the stock statistics, `shipstats.def`. Where it is missing while the features are enabled, it is
/// made from `backup\shipstats.def`, else from `shipstats.bin`, and the imported ships get their blocks in it anew
/// (PutAddOnBlocks); it takes its name when it is complete. Otherwise it is made by BackupShipStats. A failure has a
/// message box titled "BackupShipStats".
void KeepDefaults(Host& host, const Installation& installation);

/// Copies what enabling is going to replace, hidden files too. Where an earlier run's catalogue was lost, models that
/// this run has written are passed over.
/// @param models the file names of the catalogue's ships, stock and add-on
/// @param live,backup the archive's table and its backup
/// @throws FileError
void KeepPlayersFiles(Files& files, const Installation& installation, const std::vector<std::string>& models,
                      const HogTable& live, const HogTable& backup);

/// Leaves one spelling of each of these models in the game's ships folder; the others must be kept
/// (EraseSpareSpellings). Called after the catalogue was written, so that "Disable / Restore" knows what to restore.
/// @throws FileError
void EraseKeptSpellings(Files& files, const Installation& installation, const std::vector<std::string>& models);

/// The paths of these models and of their ".org" that are in the game's ships folder, in all spellings.
/// @throws FileError
std::vector<std::string> LooseFiles(Files& files, const Installation& installation,
                                    const std::vector<std::string>& models);

/// The most bytes that KeepPlayersFiles writes.
/// @throws FileError
std::uint64_t PlayersFilesSize(Files& files, const Installation& installation, const std::vector<std::string>& models);

/// Deletes the temporary files that a run which was stopped has left in the folders of the installation.
/// @throws FileError
void EraseAllLeftovers(Files& files, const Installation& installation);

}  // namespace oravin
