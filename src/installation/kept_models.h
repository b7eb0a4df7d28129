#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "files/files.h"
#include "installation/installation.h"

/// The player's own models, kept in `backup\ships\` of the program folder while the program's stand in their place:
///
///   NAME         the first version of a model
///   NAME.N       version N of it, from 2 on: the highest number is the latest
///   NAME.N~K     from K = 2 on: another spelling, which lay next to the first one when version N was kept
///
/// Letter case does not make another model: NAME and name.2 are versions of one. But a file system that tells spellings
/// apart can hold several side by side, and those are different files. They have one number, and so they go back
/// together. No two of these names differ by case alone, so that a folder of any file system can hold them.
///
/// What does not go back is moved to `backup\old\`, under its spelling with .2, .3, ... after it where that is taken.
namespace oravin {

/// The files of a folder by upper-cased name: every spelling of each, in byte order. A missing folder has none.
using Spellings = std::map<std::string, std::vector<std::string>>;
Spellings SpellingsIn(Files& files, const std::string& folder);

struct KeptCopy {
  std::string file;      ///< its name in `backup\ships\`
  std::string spelling;  ///< the model's
  int version = 1;
  int place = 1;  ///< among the spellings of its version
};

/// By upper-cased name of the model.
using KeptModels = std::map<std::string, std::vector<KeptCopy>>;

std::string KeptModelsFolder(const Installation& installation);
std::string OldModelsFolder(const Installation& installation);

/// Lists what is kept. What the program cannot have kept, such as folders, does not count.
KeptModels ReadKeptModels(Files& files, const Installation& installation);

/// Keeps copies of the models of one name that lie in the game's ships folder, in all their spellings. Where they are
/// the latest version already, or a part of it, that one serves. A version that was cut short is completed; any other
/// one is followed by a new one.
/// @param kept what is kept, and afterwards these too
/// @param spellings of one name, at least one
/// @throws FileError
void KeepModels(Files& files, const Installation& installation, KeptModels& kept,
                const std::vector<std::string>& spellings);

/// Keeps one loose model and takes it away from the game's ships folder. The folders are made where they are missing.
/// @param path of the model; case does not matter
/// @throws FileError
void MoveToKept(Files& files, const Installation& installation, const std::string& path);

/// Deletes further spellings of a model from the game's ships folder, so that the game and the program mean the same
/// file by its name. The one that the name leads to stays, and so does one of which no equal copy of that spelling is
/// the latest kept.
/// @throws FileError
void EraseSpareSpellings(Files& files, const Installation& installation, const std::vector<std::string>& models);

/// Copies the latest version of each kept model back into the game's ships folder, in its own spellings. Then older
/// versions, and a loose model that had to give way, are in `backup\old\`; only what is back is deleted.
/// @throws FileError
void PutKeptModelsBack(Files& files, const Installation& installation);

/// The bytes of the kept models.
std::uint64_t KeptModelsSize(Files& files, const Installation& installation);

}  // namespace oravin
