#pragma once

#include <wx/window.h>

#include "desk/message_box.h"

namespace oravin::gui {

/// True for a message of more lines than a message box has room for on a small screen; it is shown by ShowLongMessage.
bool IsLong(const Message& box);

/// Shows a message in a dialog of our own, with its title, icon and buttons, whose text is read-only and can be
/// scrolled: by the mouse, and by Up, Down, Page Up and Page Down. Waits for the answer. A dialog that was closed
/// without a button is answered safely.
/// @param owner the window that it stands on; null for none
Answer ShowLongMessage(wxWindow* owner, const Message& box);

}  // namespace oravin::gui
