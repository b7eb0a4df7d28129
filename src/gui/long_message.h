#pragma once

#include <wx/window.h>

#include "desk/message_box.h"

namespace oravin::gui {

/// Shows a long message (IsLong) in a dialog of our own, with its title, icon and buttons, whose text is read-only and
/// can be scrolled: by the mouse, and by Up, Down, Page Up and Page Down. Waits for the answer. A dialog that was
/// closed without a button is answered safely.
/// @param owner the window that it stands on; null for none
Answer ShowLongMessage(wxWindow* owner, const Message& box);

}  // namespace oravin::gui
