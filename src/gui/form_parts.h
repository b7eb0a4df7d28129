#pragma once

#include "gui/pages.h"
#include "gui/window.h"

/// What the larger forms have in common.
namespace oravin::gui {

/// A button of a form's last line.
struct FormButton {
  const char* name = nullptr;  ///< of its record, which is also the action
  Button& record;
};

/// Lays a form out: its content, and below that a line that tells how far a long action has come, with two buttons on
/// the right. Escape presses the second one.
void LayOutForm(Form& form, const Surroundings& surroundings, wxWindow* content, const FormButton& affirms,
                const FormButton& cancels);

/// Gives a form its size, as much of it as the screen has room for, in the middle of what it came up over.
/// @param wanted,least sizes in pixels at 100 %
void SizeForm(wxDialog& dialog, const wxSize& wanted, const wxSize& least);

}  // namespace oravin::gui
