#pragma once

#include "desk/desk.h"
#include "gui/window.h"

namespace oravin::gui {

/// The desk of the window: message boxes, dialogs and the status line's progress bar. Works before the window is open,
/// too, save for the progress.
/// @param window must outlive the desk
Desk WindowDesk(Window& window);

}  // namespace oravin::gui
