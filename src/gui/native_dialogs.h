#pragma once

#include <wx/window.h>

#include <string>

#include "desk/message_box.h"

/// What each system asks and tells in its own way.
namespace oravin::gui {

/// Shows a message box and waits for its answer. A box that was closed without a button is answered safely.
/// @param owner the window that it stands on; null for none
Answer ShowMessage(wxWindow* owner, const Message& box);

/// Has the person choose a folder of the file system.
/// @param prompt what the dialog asks
/// @param owner the window that it stands on; null for none
/// @return its path as Windows spells it; empty when the person chose none
std::string AskForFolder(wxWindow* owner, const std::string& prompt);

/// Tells somebody who started the program with words: on the standard output or, where Windows gives the program none,
/// in a message box.
/// @param text UTF-8, whole lines
/// @param wrong the words were wrong; it goes to the standard error
void TellStarter(const std::string& text, bool wrong);

}  // namespace oravin::gui
