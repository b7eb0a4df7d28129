// The sample installation: a game folder and a program folder with every file that Oravin reads, in the real formats
// and at realistic sizes, so that Oravin can be tried without the game.
#pragma once

#include <filesystem>
#include <vector>

#include "demo/ship_list.h"

namespace oravin::demo {

/// The size of the sample.
struct SampleOptions {
  /// Entries in the archive, including the stock models. At least one entry per stock ship record is written.
  int entries = 1000;
  /// Stock ship records in the ship list, 1 to 30,000 (plus three add-on ships).
  int ships = 60;
  /// Minimum size of the archive in MiB, at most 2,000. The padding consists of additional stored entries, written in
  /// parts and never completely in memory.
  int megabytes = 0;
};

/// The folders of a written sample, and its ship list.
struct Sample {
  std::filesystem::path game;     ///< game folder: resource.hog, tcachehw.dat, shipstats.bin, ships/
  std::filesystem::path program;  ///< program folder: shipsData.txt, addons/, 3D/, gloadconv.dat, packs/, readme.txt
  std::filesystem::path
      config;  ///< configuration folder (as XDG_CONFIG_HOME); the registry is oravin/registry.reg in it
  std::vector<SampleShip> ships;             ///< in the order of shipsData.txt, the add-on ships last
  std::vector<std::filesystem::path> packs;  ///< the ship packs (.pak)
};

/// Writes the sample installation to `folder` (created if missing): StarLancer/, Oravin/, config/ and the marker file
/// oravin-sample.txt. The same options give the same bytes on every machine, except for registry.reg, which has
/// absolute paths. In an existing sample the files are replaced and those that Oravin has created (contents of ships/,
/// backups, the catalogue, the INI file) are removed.
/// Throws std::runtime_error with a plain message if `folder` is not empty and has no marker, if an option is out of
/// range, or if a file cannot be written.
/// of range, or when a file cannot be written.
Sample WriteSample(const std::filesystem::path& folder, const SampleOptions& options = {});

/// The result of WriteSample for a folder and options; writes nothing.
Sample DescribeSample(const std::filesystem::path& folder, const SampleOptions& options = {});

}  // namespace oravin::demo
