// The sample installation: a game folder and a program folder with every file that Oravin reads, in the true formats
// and at a true scale, so that everything can be tried without the game.
#pragma once

#include <filesystem>
#include <vector>

#include "demo/ship_list.h"

namespace oravin::demo {

/// How large the sample is to be.
struct SampleOptions {
  /// Entries in the archive, the stock models included. The archive always holds one entry per stock ship record, so a
  /// smaller number is raised to that.
  int entries = 1000;
  /// Stock ship records in the ship list, 1 to 30,000 (the three add-on ships come on top).
  int ships = 60;
  /// The archive is padded by stored entries (on top of `entries`) to at least this many MiB, at most 2,000. The
  /// padding is written piece by piece and never held in memory whole.
  int megabytes = 0;
};

/// Where the parts of a written sample lie, and what its ship list says.
struct Sample {
  std::filesystem::path game;     ///< game folder: resource.hog, tcachehw.dat, shipstats.bin, ships/
  std::filesystem::path program;  ///< program folder: shipsData.txt, addons/, 3D/, gloadconv.dat, packs/, readme.txt
  std::filesystem::path
      config;  ///< configuration folder (as XDG_CONFIG_HOME); the registry is oravin/registry.reg in it
  std::vector<SampleShip> ships;             ///< in the order of shipsData.txt, the add-on ships last
  std::vector<std::filesystem::path> packs;  ///< the ship packs (.pak)
};

/// Writes the sample installation into `folder` (made if missing): StarLancer/, Oravin/, config/ and the marker file
/// oravin-sample.txt. The same options give the same bytes on every machine, save for registry.reg, which holds the
/// absolute paths. In an earlier sample the files are replaced and what the program leaves behind (the contents of
/// ships/, backups, the catalogue, the INI file) is removed, so that it is pristine again.
/// Throws std::runtime_error with a plain message when `folder` is not empty and bears no marker, when an option is out
/// of range, or when a file cannot be written.
Sample WriteSample(const std::filesystem::path& folder, const SampleOptions& options = {});

/// What WriteSample returns for a folder and options; nothing is written.
Sample DescribeSample(const std::filesystem::path& folder, const SampleOptions& options = {});

}  // namespace oravin::demo
