#pragma once

#include "gui/window.h"

namespace oravin::gui {

/// Shows the form "Table Editor" with its record until it is closed.
void ShowFatEditor(Window& window, Main& main);

}  // namespace oravin::gui
