#pragma once

#include <string>
#include <vector>

#include "catalogue/installation.h"
#include "desk/host.h"
#include "hog/model_entry.h"

/// What the player had before the features were enabled, kept in `backup\` of the program folder:
///
///   backup\ships\NAME, NAME.2, ...  loose models that bear the file name of a ship of the catalogue, and their ".org"
///   backup\tcachehw.dat             a texture cache that held textures of the player's own
///   backup\shipstats.def            the stock statistics
namespace oravin {

/// Start-up's copy of the stock statistics, `shipstats.def`. Where it is missing while the features are enabled, it is
/// made from `backup\shipstats.def`, else from `shipstats.bin`, and the imported ships get their blocks in it anew
/// (PutAddOnBlocks); it takes its name when it is complete. Otherwise it is made by BackupShipStats.
void KeepDefaults(Host& host, const Installation& installation);

/// Makes the folders that enabling writes into, where they are missing.
/// @throws RunTimeError
void MakeFolders(Files& files, const Installation& installation);

/// Copies what enabling is going to replace. Where an earlier run's catalogue was lost, models that are that run's own
/// work are passed over.
/// @param models the file names of the catalogue's ships, stock and add-on
/// @param live,backup the archive's table and its backup
/// @throws RunTimeError
void KeepPlayersFiles(Files& files, const Installation& installation, const std::vector<std::string>& models,
                      const HogTable& live, const HogTable& backup);

/// The most bytes that KeepPlayersFiles writes.
std::uint64_t PlayersFilesSize(Files& files, const Installation& installation, const std::vector<std::string>& models);

/// Copies the latest of each kept model back into the game's ships folder and then empties the folder of kept models.
/// @throws RunTimeError
void PutPlayersModelsBack(Files& files, const Installation& installation);

/// The bytes of the kept models.
std::uint64_t KeptModelsSize(const Installation& installation);

/// Erases what a run that was cut short left half-written in the folders of the installation.
/// @throws RunTimeError
void EraseAllLeftovers(Files& files, const Installation& installation);

}  // namespace oravin
