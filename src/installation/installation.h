#pragma once

#include <array>
#include <string>
#include <string_view>

#include "catalogue/ship_record.h"
#include "files/files.h"

namespace oravin {

/// Names of files of the game folder.
inline constexpr const char* hogName = "resource.hog";
inline constexpr const char* tcacheName = "tcachehw.dat";
inline constexpr const char* statsName = "shipstats.bin";
inline constexpr const char* defaultsName = "shipstats.def";

/// Names of files of the program folder; the last one is in its `backup\`.
inline constexpr const char* catalogueName = "ships.dat";
inline constexpr const char* shipListName = "shipsData.txt";
inline constexpr const char* loadoutMapsName = "gloadconv.dat";
inline constexpr const char* fatBackupName = "resource.fat";
inline constexpr const char* manualName = "readme.txt";

/// Where add-on ships lie, relative to the program folder: their models, their bitmaps, their statistics texts, and
/// what is kept of those that were removed.
inline constexpr const char* addOnShipsFolder = "addons\\ships\\";
inline constexpr const char* addOnTexturesFolder = "addons\\textures\\";
inline constexpr const char* addOnStatsFolder = "addons\\stats\\";
inline constexpr const char* addOnRemovedFolder = "addons\\removed\\";

/// The installed game that the program works on, and the place of each file that it has. No other code joins a folder
/// and a file name.
struct Installation {
  std::string GamePath;     ///< the game folder, ending in a backslash: SetGameFolder
  std::string ProgramPath;  ///< the program's own folder, ending in a backslash: SetProgramFolder
  Ships ships;              ///< the catalogue as it is loaded; empty while the features are not enabled

  // In the game folder.
  [[nodiscard]] std::string gameFile(const std::string& name) const { return GamePath + name; }
  [[nodiscard]] std::string archivePath() const { return GamePath + hogName; }
  [[nodiscard]] std::string cachePath() const { return GamePath + tcacheName; }
  [[nodiscard]] std::string statsPath() const { return GamePath + statsName; }
  /// The statistics as the game brought them, and a block for each imported ship.
  [[nodiscard]] std::string defaultsPath() const { return GamePath + defaultsName; }
  [[nodiscard]] std::string modelsFolder() const { return GamePath + "ships\\"; }
  /// @param file a model's file name, as ModelOf and BackupOf give it
  [[nodiscard]] std::string modelPath(const std::string& file) const { return modelsFolder() + file; }
  /// The game's own viewer of models.
  [[nodiscard]] std::string viewerPath() const { return GamePath + "sltool.exe"; }

  // In the program folder.
  [[nodiscard]] std::string programFile(const std::string& name) const { return ProgramPath + name; }
  [[nodiscard]] std::string cataloguePath() const { return ProgramPath + catalogueName; }
  [[nodiscard]] std::string shipListPath() const { return ProgramPath + shipListName; }
  [[nodiscard]] std::string iniPath() const { return ProgramPath + "oravin.ini"; }
  [[nodiscard]] std::string manualPath() const { return ProgramPath + manualName; }
  [[nodiscard]] std::string converterReadmePath() const { return ProgramPath + "3ds2sl.txt"; }
  [[nodiscard]] std::string loadoutMapsPath() const { return ProgramPath + loadoutMapsName; }
  /// The bitmap that the paint program is handed.
  [[nodiscard]] std::string paintedPath() const { return ProgramPath + "temp.bmp"; }
  [[nodiscard]] std::string backupFolder() const { return ProgramPath + "backup\\"; }
  [[nodiscard]] std::string backupPath(const std::string& name) const { return backupFolder() + name; }
  [[nodiscard]] std::string addOnModelsFolder() const { return ProgramPath + addOnShipsFolder; }
  [[nodiscard]] std::string addOnModelPath(const std::string& file) const { return addOnModelsFolder() + file; }
  [[nodiscard]] std::string addOnBitmapPath(const std::string& file) const {
    return ProgramPath + addOnTexturesFolder + file;
  }
  [[nodiscard]] std::string addOnStatsPath(const std::string& file) const {
    return ProgramPath + addOnStatsFolder + file;
  }
  /// The folders of the add-ons' models, bitmaps and statistics texts.
  [[nodiscard]] std::array<std::string, 3> addOnFolders() const {
    return {ProgramPath + addOnShipsFolder, ProgramPath + addOnTexturesFolder, ProgramPath + addOnStatsFolder};
  }
  [[nodiscard]] std::string removedAddOnsFolder() const { return ProgramPath + addOnRemovedFolder; }
  /// @param folder a folder's name in removedAddOnsFolder
  [[nodiscard]] std::string removedAddOnPath(const std::string& folder, const std::string& file) const {
    return removedAddOnsFolder() + folder + "\\" + file;
  }
};

/// Sets the game folder or the program folder: trimmed, with a backslash at its end unless it is empty.
void SetGameFolder(Installation& installation, std::string_view folder);
void SetProgramFolder(Installation& installation, std::string_view folder);

/// The places in two folders, set as above; nothing is loaded.
Installation PlacesIn(std::string_view game, std::string_view program);

/// True while the editing features are enabled, as FeaturesEnabled of the catalogue.
/// @throws FileError where the system cannot say
bool FeaturesEnabled(Files& files, const Installation& installation);

}  // namespace oravin
