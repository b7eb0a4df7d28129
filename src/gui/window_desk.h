#pragma once

#include "desk/desk.h"
#include "gui/window.h"

namespace oravin::gui {

/// The desk of the window: message boxes, dialogs and the status line's progress bar. Also works before the window is
/// open.
/// @param window must outlive the desk
Desk WindowDesk(Window& window);

}  // namespace oravin::gui
