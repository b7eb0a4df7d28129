#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "installation/small_installation.h"
#include "support/folder_image.h"

namespace oravin::test {

/// What every file of the small installation must be after each action, worked out from the actions themselves and by
/// other means than the program's: whole files in memory, put together anew at every question.
struct ExpectedFiles {
  explicit ExpectedFiles(const SmallInstallation& installation);

  void StartUp();
  void Enable();
  void Swap(int target, int source);
  void Unswap(int target);
  void UnswapAll();
  void Disable();

  /// The image of the whole installation, program and game folder.
  [[nodiscard]] FolderImage Image() const;

  struct Change {
    std::optional<int> to;       ///< the replacing ship's index
    bool everUnswapped = false;  ///< the record holds a truth value instead of the number 0
  };

  std::vector<SmallShip> ships;
  FolderImage before;  ///< the installation as it was
  Bytes archive;       ///< as it was
  Bytes stockStats;    ///< shipstats.bin as it was
  bool enabled = false;
  bool backedUp = false;                     ///< the program's backup folder has been made
  Bytes stats;                               ///< shipstats.bin
  Bytes cache;                               ///< tcachehw.dat
  std::optional<Bytes> defaults;             ///< shipstats.def
  std::map<int, int> addedBlocks;            ///< add-on ship to block
  std::vector<Change> changes;               ///< by ship
  std::map<std::string, Bytes> looseModels;  ///< in the ships folder, by name, what the program put there

 private:
  [[nodiscard]] int Parts(int ship) const;
  [[nodiscard]] Bytes Catalogue() const;
  [[nodiscard]] Bytes DisguisedArchive() const;
  [[nodiscard]] int BlockOf(int ship) const;
  void PutStats(int block, const Bytes& from, int fromBlock);
};

}  // namespace oravin::test
