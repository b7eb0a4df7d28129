#pragma once

#include "gui/pages.h"

namespace oravin::gui {

/// Makes the frame of the import page in which single textures are imported: what is given, what the bitmap says of
/// itself, and its picture.
wxSizer* NewTextureFrame(wxWindow* page, const Surroundings& surroundings);

/// Has a text box take the keyboard when its record wants that, once.
void GiveFocus(wxTextCtrl* text, bool& wanted);

}  // namespace oravin::gui
