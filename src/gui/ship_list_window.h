#pragma once

#include "gui/window.h"

namespace oravin::gui {

/// Shows the form in which a drafted ship list is looked through, over its record until it is closed. It may come up
/// before there is a window.
void ShowShipList(Window& window, Main& main);

}  // namespace oravin::gui
