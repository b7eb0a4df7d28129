#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "files/files.h"
#include "installation/installation.h"

/// The player's own models, kept in `backup\ships\` of the program folder while Oravin's models take their place:
///
///   NAME         the first version of a model
///   NAME.N       version N of it, from 2 on: the highest number is the latest
///   NAME.N~K     from K = 2 on: another spelling, which was in the folder together with the first one
///
/// Letter case does not make another model: NAME and name.2 are versions of one. But a file system that tells spellings
/// apart can have several in one folder, and those are different files. They have one number, and so they are restored
/// together. No two of these names differ by case alone, so that a folder of any file system can hold them.
///
/// What is not restored is moved to `backup\old\`, under its spelling with .2, .3, ... after it where that is taken.
namespace oravin {

/// The files of a folder by upper-cased name, hidden ones too: every spelling of each, in byte order. A missing folder
/// has none.
/// @throws FileError where the folder cannot be listed
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

/// Lists what is kept. Folders and temporary files do not count.
/// @throws FileError
KeptModels ReadKeptModels(Files& files, const Installation& installation);

/// Keeps copies of the models of one name that are in the game's ships folder, in all their spellings. Nothing is
/// copied where the latest version has them already; a version that was stopped half-way is completed; otherwise they
/// become a new version.
/// @param kept what is kept; the new copies are added
/// @param spellings of one name, at least one
/// @throws FileError
void KeepModels(Files& files, const Installation& installation, KeptModels& kept,
                const std::vector<std::string>& spellings);

/// Moves one loose model from the game's ships folder to the kept ones. The folders are made where they are missing.
/// @param path of the model; case does not matter
/// @throws FileError
void MoveToKept(Files& files, const Installation& installation, const std::string& path);

/// Deletes further spellings of a model from the game's ships folder, so that the game and Oravin use the same file.
/// The one that the name leads to stays, and so does one that is not equal to the latest kept copy of its spelling.
/// @throws FileError
void EraseSpareSpellings(Files& files, const Installation& installation, const std::vector<std::string>& models);

/// Restores the latest version of each kept model to the game's ships folder, in its own spellings. Older versions, and
/// loose models that are replaced, are moved to `backup\old\`; only copies that are restored are deleted.
/// @throws FileError
void PutKeptModelsBack(Files& files, const Installation& installation);

/// The bytes of the kept models.
/// @throws FileError
std::uint64_t KeptModelsSize(Files& files, const Installation& installation);

}  // namespace oravin
