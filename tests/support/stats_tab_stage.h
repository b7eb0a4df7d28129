#pragma once

#include <gtest/gtest.h>

#include "installation/installation.h"
#include "support/folder_image.h"
#include "support/model_file.h"
#include "support/scripted_desk.h"
#include "support/stats_file.h"
#include "support/temporary_folder.h"
#include "tabs/stats_show.h"
#include "tabs/stats_tab.h"

namespace oravin::test {

/// The ships of the stage, by their places in the catalogue.
enum StageShip : std::size_t { alpha, bravo, twin, twinVariant, manta, wraith, homeless };

inline constexpr const char* noDefaultBox = "Imported Ships have no default";

/// A game and a program folder with six ships, and the tab over them. `manta` is imported and has a statistics text,
/// `wraith` has none, `homeless` is imported without a block of its own.
struct TabStage : testing::Test {
  TabStage();

  static ShipRecord Ship(const std::string& name, const std::string& file, int statsIndex, bool imported = false);

  [[nodiscard]] std::filesystem::path Game(const std::string& name) const { return folder.Native("game/" + name); }
  [[nodiscard]] std::filesystem::path Program(const std::string& name) const {
    return folder.Native("program/" + name);
  }
  [[nodiscard]] FolderImage Image() const { return ImageOf(folder.native); }
  [[nodiscard]] std::string ModelPath(const std::string& file) const { return folder.Windows("game/ships/" + file); }

  /// Selects a ship and shows it, as a click does.
  void Choose(std::size_t ship);
  /// Selects a row of the weapons, counted from 0, as a click does.
  void ChooseWeapon(std::size_t row);
  /// Edits a row of the statistics; returns whether that was taken.
  bool Edit(std::size_t row, const std::string& text);
  /// The texts of a list's rows in one column.
  static std::vector<std::string> Texts(const ListView& list, std::size_t column);
  /// What the statistics text of `manta` says.
  static ShipStats MantasText() { return {{1, 0.5F, 3, 0.5F, 5, 0.5F, 7, 0.5F, 9, 11, 12, 10, 13, 14, 15}}; }
  /// The image with one block's statistics changed.
  static void PutStats(FolderImage& image, const std::string& file, std::size_t block, const ShipStats& stats);

  TemporaryFolder folder;
  ScriptedHost at;
  Installation installation;
  StatsTab tab = NewStatsTab();
  ShpAttachments weapons;  ///< of every model: a pair of guns, a single gun, a pair of missiles, an external gun
};

}  // namespace oravin::test
