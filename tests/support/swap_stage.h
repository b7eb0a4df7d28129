#pragma once

#include <gtest/gtest.h>

#include "actions/build_catalogue.h"
#include "actions/swap_ships.h"
#include "catalogue/catalogue.h"
#include "desk/controls.h"
#include "installation/model_entry.h"
#include "lists/ship_list.h"
#include "support/scripted_desk.h"
#include "support/small_installation.h"

namespace oravin::test {

/// A small installation that actions work on, not enabled yet.
struct SwitcherStage {
  SwitcherStage();

  /// The archive's table, read by the program.
  HogTable Live();
  /// Reads the ship list and builds the catalogue from it.
  bool Build(const HogTable& backup = {});
  /// Does the steps of enabling that swaps need: statistics' defaults, catalogue, loose models.
  void Enable();

  [[nodiscard]] std::string ModelPath(int ship) const;   ///< Windows path of the loose model
  [[nodiscard]] std::string BackupPath(int ship) const;  ///< the same with ".org"
  [[nodiscard]] std::filesystem::path Model(int ship) const {
    return files.Game("ships/" + files.ships[At(ship)].file);
  }
  [[nodiscard]] std::filesystem::path Backup(int ship) const;
  [[nodiscard]] const Bytes& ModelBytes(int ship) const { return files.ships[At(ship)].model; }
  [[nodiscard]] ShipRecord& Record(int ship) { return installation.ships[At(ship)]; }
  /// The record as it stands in the catalogue's file.
  [[nodiscard]] ShipRecord RecordOnDisk(int ship) const;
  [[nodiscard]] FolderImage Image() const { return ImageOf(files.folder.native); }

  /// SwapShip and UnswapShip by the ships' names.
  SwapResult Swap(const std::string& target, const std::string& source);
  SwapResult Unswap(const std::string& target);

  static std::size_t At(int ship) { return static_cast<std::size_t>(ship); }

  SmallInstallation files;
  Host host;
  ScriptedDesk desk{host};
  Installation installation;
};

/// The row of a list that shows a ship; nothing when it is not listed.
std::optional<std::size_t> RowOf(const ListView& list, int ship);

}  // namespace oravin::test
