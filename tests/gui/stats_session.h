#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "session.h"
#include "support/folder_image.h"

/// The page of the ships' statistics and weapons, and what a person does there.
namespace oravin::test {

namespace stats_page {
inline constexpr const char* ships = "stats.shipEditingList";
inline constexpr const char* values = "stats.shipStatsList";
inline constexpr const char* weapons = "stats.shipWeaponsList";
inline constexpr const char* chart = "stats.chart";
inline constexpr const char* topView = "stats.topView";
}  // namespace stats_page

/// The page with the features enabled.
struct StatsSession : Session {
  /// @throws std::runtime_error when that fails
  StatsSession();

  /// The files of the game.
  [[nodiscard]] FolderImage Now() const { return ImageOf(sample.game); }

  FolderImage before;
};

/// A number of 16 bits.
std::size_t ShortAt(const Bytes& bytes, std::size_t at);

/// Where a model's attachments are, in their order.
std::vector<std::size_t> AttachmentsIn(const Bytes& model);

/// Waits until the files of the game are those of an image.
testing::AssertionResult ImageBecomes(const StatsSession& session, const FolderImage& image);

/// Clicks on a ship and waits until its chart is shown.
testing::AssertionResult ShipChosen(const Session& session, const std::string& name);

/// How many windows there are without a menu, with the mouse where there is no tooltip.
int WindowsWithoutMenu(const Session& session);

/// Waits until there are so many windows, menus among them.
testing::AssertionResult WindowsBecome(const Session& session, int count);

/// Presses a key several times.
void Press(const Session& session, const std::string& key, int times = 1);

/// Opens the menu of a list's row by the right button.
/// @param[out] windows how many there were before
testing::AssertionResult MenuOpened(const Session& session, const Json& row, int& windows);

/// Chooses an item of a submenu of the open weapons' menu, both counted from 1.
/// @param windows how many there are without the menu
testing::AssertionResult SubmenuChosen(const Session& session, int windows, int menu, int item);

/// The same, after opening the menu of a row of the weapons' list.
testing::AssertionResult WeaponMenuChosen(const Session& session, std::size_t row, int menu, int item);

/// Waits until a row of the weapons' list, counted from 0, has a text.
testing::AssertionResult WeaponBecomes(const Session& session, std::size_t row, const std::string& text);

}  // namespace oravin::test
