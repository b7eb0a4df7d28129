#pragma once

#include "gui/pages.h"

namespace oravin::gui {

/// Makes the frame of the import page for importing single textures: inputs, the bitmap's properties, and its picture.
wxSizer* NewTextureFrame(wxWindow* page, const Surroundings& surroundings);

/// Sets the focus to a text box once, if its record asks for it.
void GiveFocus(wxTextCtrl* text, bool& wanted);

}  // namespace oravin::gui
