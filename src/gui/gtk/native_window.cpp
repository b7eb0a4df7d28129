#include "gui/native_window.h"

#include <wx/display.h>

// Nothing to do: GTK lays out and draws the whole window at once, without flicker.
namespace oravin::gui {

wxRect RoomOnScreen() { return wxDisplay(0U).GetClientArea(); }

void HoldList(wxWindow*) {}

void SettleList(wxWindow*) {}

void PaintAroundPage(wxNotebook*) {}

void PaintAtOnce(wxWindow*) {}

}  // namespace oravin::gui
