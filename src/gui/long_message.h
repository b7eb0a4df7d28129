#pragma once

#include <wx/window.h>

#include "desk/message_box.h"

namespace oravin::gui {

/// Shows a long message (IsLong) in our own dialog with its title, icon and buttons. The text is read-only and can be
/// scrolled with the mouse, Up, Down, Page Up and Page Down. Waits for the answer; closing the dialog gives the safe
/// answer.
/// @param owner the parent window; null for none
Answer ShowLongMessage(wxWindow* owner, const Message& box);

}  // namespace oravin::gui
