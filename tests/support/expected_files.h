#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "support/folder_image.h"
#include "support/small_installation.h"

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

  /// An 8-bit texture of 4 by 4 pixels.
  struct Texture {
    std::string name;
    Bytes pixels;
  };
  /// Imports a ship whose textures are not in the cache yet.
  /// @param statsText what stands beside its model; empty for none
  void Import(const SmallShip& ship, const std::vector<Texture>& shipsTextures, const std::string& statsText = "",
              const std::vector<float>& values = {});
  /// Removes the ship that was imported last.
  void RemoveLast(bool withTextures);

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
  bool marksWritten = false;                        ///< the catalogue was written whole while it was loaded
  bool backedUp = false;                            ///< the program's backup folder has been made
  Bytes stats;                                      ///< shipstats.bin
  std::optional<Bytes> defaults;                    ///< shipstats.def
  std::map<int, int> addedBlocks;                   ///< add-on ship to block
  std::vector<Change> changes;                      ///< by ship
  std::vector<std::vector<std::string>> textures;   ///< by ship
  std::map<std::string, Bytes> pixels;              ///< by texture
  std::vector<std::string> inCache;                 ///< the textures that were added, in order
  std::map<std::string, std::vector<float>> texts;  ///< the statistics texts' values in the file's order, by ship
  std::string list;                                 ///< shipsData.txt
  std::map<std::string, Bytes> addOns;              ///< what imports put below the program's folder, by path
  std::map<std::string, Bytes> looseModels;         ///< in the ships folder, by name, what the program put there

 private:
  [[nodiscard]] int Parts(int ship) const;
  [[nodiscard]] Bytes Catalogue() const;
  [[nodiscard]] Bytes DisguisedArchive() const;
  [[nodiscard]] int BlockOf(int ship) const;
  [[nodiscard]] Bytes AddedBlock(const SmallShip& ship) const;
  [[nodiscard]] Bytes Cache() const;
  void AddBlock(int ship);
  void AddTextures(int ship);
  void PutStats(int block, const Bytes& from, int fromBlock);
};

}  // namespace oravin::test
