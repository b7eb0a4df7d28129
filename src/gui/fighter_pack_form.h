#pragma once

#include "gui/window.h"

namespace oravin::gui {

/// Shows the form in which the ships to import are chosen, over its record until it is closed.
void ShowFighterPack(Window& window, Main& main);

}  // namespace oravin::gui
