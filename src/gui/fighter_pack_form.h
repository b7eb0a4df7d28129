#pragma once

#include "gui/window.h"

namespace oravin::gui {

/// Shows the import form, in which ships are chosen, with its record until it is closed.
void ShowFighterPack(Window& window, Main& main);

}  // namespace oravin::gui
