#pragma once

#include <wx/window.h>

#include <string>

#include "desk/message_box.h"

/// Dialogs that differ by system.
namespace oravin::gui {

/// Shows a message box and waits for its answer. Closing it without a button gives the safe answer.
/// @param owner the parent window; null for none
Answer ShowMessage(wxWindow* owner, const Message& box);

/// Lets the user choose a folder of the file system.
/// @param prompt text of the dialog
/// @param owner the parent window; null for none
/// @return its path as Windows spells it; empty if the user cancelled
std::string AskForFolder(wxWindow* owner, const std::string& prompt);

/// Prints a text for a user who started the program with arguments: to the standard output or, on Windows without one,
/// in a message box.
/// @param text UTF-8, whole lines
/// @param wrong an error: goes to the standard error
void TellStarter(const std::string& text, bool wrong);

}  // namespace oravin::gui
