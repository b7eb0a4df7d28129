#pragma once

#include <gtest/gtest.h>

#include "actions/build_catalogue.h"
#include "catalogue/catalogue.h"
#include "lists/ship_list.h"
#include "support/scripted_desk.h"
#include "support/small_installation.h"
#include "tabs/swap.h"
#include "tabs/switcher_tab.h"

namespace oravin::test {

/// A small installation and the switcher room over it, not enabled yet.
struct SwitcherStage {
  SwitcherStage();

  /// The archive's table, read by the program.
  HogTable Live();
  /// Reads the ship list and builds the catalogue from it.
  bool Build(const HogTable& backup = {});
  /// Takes the steps of enabling that swaps need: statistics' defaults, catalogue, loose models, lists.
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

  /// Selects a ship in either list; it must be listed.
  void Select(int target, int source);

  static std::size_t At(int ship) { return static_cast<std::size_t>(ship); }

  SmallInstallation files;
  Host host;
  ScriptedDesk desk{host};
  Installation installation;
  StatsTab statsTab;
  SwitcherTab tab = NewSwitcherTab();
  int closings = 0;  ///< how often the other tabs' files were closed
  SwapDesk swapDesk{host, installation, statsTab, [this] { ++closings; }};
};

/// The row of a list that shows a ship; nothing when it is not listed.
std::optional<std::size_t> RowOf(const ListView& list, int ship);

}  // namespace oravin::test
