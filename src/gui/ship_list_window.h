#pragma once

#include "gui/window.h"

namespace oravin::gui {

/// Shows the form for checking a drafted ship list, with its record, until it is closed. It may open before the window.
void ShowShipList(Window& window, Main& main);

}  // namespace oravin::gui
