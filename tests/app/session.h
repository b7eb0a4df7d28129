#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "app/handlers.h"
#include "app/start_up.h"
#include "support/expected_files.h"
#include "support/scripted_desk.h"
#include "support/small_installation.h"

namespace oravin::test {

inline constexpr const char* enableQuestion =
    "Enabling these features will require about 6 MB of storage space\n"
    "and will make reversable modifications to key StarLancer files.\n"
    "StarLancer must not be open and it may take up to 20 seconds\n"
    "to make all the Necessary changes. \n"
    "You should read the readme.txt before enabling these options.\n"
    "Are you sure you want to continue?";

inline constexpr const char* enabledText =
    "Options Enabled. If you haven't read the readme.txt file, do so and \n"
    "use the ''Disable / Restore'' button BEFORE uninstalling.\n"
    "If you have any suggestions or bug reports, please send the to me.";

inline constexpr const char* disableQuestion =
    "This will restore all files back to their previous state.\n"
    "This will also remove all StarLancer fighters from the\n"
    "StarLancer\\Ships\\ folder.\n"
    "If you want to keep any of these files make copies of them.\n"
    "Are you sure you want to continue?";

/// One run of the program over an installation, with its scripted desk: from start-up to the end of this record.
struct Session {
  explicit Session(const SmallInstallation& installation, bool start = true);

  /// The actions as a person does them; boxes that go beyond the action's own must be expected by the test.
  void Enable();
  void Disable();
  void Swap(int target, int source);
  void Unswap(int target);
  void UnswapAll();

  /// Runs an action of the handler table.
  void Press(std::string_view action);

  /// Shows the mode in which a ship is listed and selects it on the left (and another one on the right).
  void Select(int target, int source = -1);

  Main main;
  ScriptedDesk desk{main.host};
  std::string gamePath;
  std::string programPath;
};

/// The row of a list that shows a ship of the catalogue; nothing when it is not listed.
std::optional<std::size_t> RowOf(const ListView& list, int ship);

}  // namespace oravin::test
