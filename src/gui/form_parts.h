#pragma once

#include "gui/pages.h"
#include "gui/window.h"

/// Common parts of the larger forms.
namespace oravin::gui {

/// A button in the last line of a form.
struct FormButton {
  const char* name = nullptr;  ///< of its record and its action
  Button& record;
};

/// Lays out a form: its content, and below it a line with the progress of long actions and two buttons on the right.
/// Escape presses the second one.
void LayOutForm(Form& form, const Surroundings& surroundings, wxWindow* content, const FormButton& affirms,
                const FormButton& cancels);

/// Sets a form's size, limited by the screen, and centres it on its parent.
/// @param wanted,least sizes in pixels at 100 %
void SizeForm(wxDialog& dialog, const wxSize& wanted, const wxSize& least);

}  // namespace oravin::gui
