// The text files of the sample installation.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "demo/ship_list.h"

namespace oravin::demo {

/// shipsData.txt: the number of ships, then a line per ship (CR LF): kind,"name","file",stats
/// block,"texture","texture".
std::string BuildShipsData(const std::vector<SampleShip>& ships);

/// A ship of a pack (.pak).
struct PackLine {
  std::string file;   ///< the model's file, in the pack's folder
  std::string name;   ///< shown name
  std::string third;  ///< the pack's third item: the stock ship to switch, or empty
};
/// A ship pack: the header item, then per ship its model (with a leading backslash), its name and its third item.
std::string BuildPack(const std::string& header, const std::vector<PackLine>& ships);

/// The registry store with the game's and the program's keys (UTF-8).
std::string BuildRegistry(const std::filesystem::path& game, const std::filesystem::path& program);

/// A native absolute path as a Windows path: /a/b becomes Z:\a\b; a path with a drive keeps it.
std::string WindowsPath(const std::filesystem::path& path);

/// The player's manual (data/readme.txt at build time).
std::string Manual();

/// The readme.txt of the program folder: an explanation of the sample, then the manual.
std::string ProgramReadme();
std::string ShipsFolderReadme();
std::string MarkerText();

}  // namespace oravin::demo
