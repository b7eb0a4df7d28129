#pragma once

#include <string>

#include "app/main.h"

/// Choosing ships on the Switcher tab as a person does: by the names that its lists show, turning to the other kind of
/// ships where a name is not listed.
namespace oravin {

/// What became of choosing a pair.
struct ChosenPair {
  bool targetListed = false;  ///< among the ships to change, in either display
  bool sourceListed = false;  ///< among the ships to change to, in either display
  bool selected = false;      ///< both in one display, and selected there
};

/// Selects the target in the list of ships to change and the source in the list of ships to change to. Names are
/// compared without blanks at the ends and without regard to case; the first of several rows is taken.
ChosenPair SelectPair(Main& main, const std::string& target, const std::string& source);

/// Selects the ship to change alone; false when neither display lists it.
bool SelectTarget(Main& main, const std::string& target);

}  // namespace oravin
