#pragma once

#include <wx/notebook.h>

/// What each system wants of a window on its way to the screen. GTK wants little; Windows, and Wine above all, draw
/// much of it several times unless they are kept from it.
namespace oravin::gui {

/// The part of the main screen that no bar of the desktop takes, in the window's own pixels.
wxRect RoomOnScreen();

/// Has a list that was just made wait with its scroll bars, which Windows works out anew at each step, until
/// SettleList.
void HoldList(wxWindow* list);

/// Has a list that was held find its rows' height and its scroll bars: when it has its size, and best before it is in
/// sight, where it is quick.
void SettleList(wxWindow* list);

/// Has a tab strip paint what is around its page and not what the page covers, without flicker.
void PaintAroundPage(wxNotebook* tabs);

/// Has a window that has come up paint itself with all that it holds, now and not by the way of its messages, where
/// that is quicker.
void PaintAtOnce(wxWindow* window);

}  // namespace oravin::gui
