#pragma once

#include <optional>
#include <string>

#include "cli/commands.h"

namespace oravin {

/// A weapon that an attachment can be changed to, as an item of the weapons' menu.
struct WeaponChoice {
  int type = 0;                   ///< the item's Index
  const char* handler = nullptr;  ///< the action of its menu
};

/// Finds what the words of a command mean: "gun", "external" or "missile", and for the first two which one, by its code
/// or by its name as the menu or the list of weapons shows it. Names are taken without regard to case.
/// @param code nothing where none was given; a missile takes none
/// @return nothing when the words mean no weapon; the console says then which there are
std::optional<WeaponChoice> ChoiceOf(Session& session, const std::string& type, const std::optional<std::string>& code);

}  // namespace oravin
