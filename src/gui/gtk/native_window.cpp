#include "gui/native_window.h"

#include <wx/display.h>

// GTK works everything out when it draws the whole window, in one go and without flicker.
namespace oravin::gui {

wxRect RoomOnScreen() { return wxDisplay(0U).GetClientArea(); }

void HoldList(wxWindow*) {}

void SettleList(wxWindow*) {}

void PaintAroundPage(wxNotebook*) {}

void PaintAtOnce(wxWindow*) {}

}  // namespace oravin::gui
