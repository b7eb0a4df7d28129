#pragma once

#include <wx/notebook.h>

/// Showing and painting windows, which differs by system. Windows, and Wine above all, paints much several times unless
/// prevented.
namespace oravin::gui {

/// The part of the main screen without desktop bars, in the window's pixels.
wxRect RoomOnScreen();

/// Postpones the scroll bars of a new list until SettleList; Windows would compute them after each step.
void HoldList(wxWindow* list);

/// Makes a held list compute its row height and scroll bars: when it has its size, and best before it is shown, which
/// is faster.
void SettleList(wxWindow* list);

/// Makes a tab strip paint only the area around its page, without flicker.
void PaintAroundPage(wxNotebook* tabs);

/// Paints a new window with all its children now, without going through its message queue, on systems where that is
/// faster.
void PaintAtOnce(wxWindow* window);

}  // namespace oravin::gui
