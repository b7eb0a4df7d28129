#pragma once

#include <string>

#include "desk/host.h"

namespace oravin {

/// Shows a message with an OK button only.
void Show(Host& host, const std::string& text, Icon icon, const std::string& title = programTitle);

/// Shows a message of success.
void ShowSuccess(Host& host, const std::string& text, Icon icon, const std::string& title = programTitle);

/// Asks a question with the buttons Yes and No; true for Yes.
bool AskYesNo(Host& host, const std::string& text, const std::string& title = programTitle);

/// Asks for a folder; empty if the user cancels or the choice is not in the file system.
std::string BrowseForFolder(Host& host, const std::string& prompt = "Select Folder");

/// Asks for an existing file; empty if the user cancels or the file does not exist.
/// @param folder the initial folder, with or without a trailing backslash
std::string ChooseFile(Host& host, const std::string& title, const std::string& folder, const std::string& name,
                       const std::string& filter);

/// Shows the progress of a long action.
void ShowProgress(Host& host, const std::string& text, int done, int total);

/// Removes the progress display.
void EndProgress(Host& host);

/// True once the user has asked to stop the long action.
bool StopAsked(Host& host);

/// Shows a form and returns when it has been closed.
/// @param form its name, as "FAT_Editor"
void ShowForm(Host& host, const std::string& form);

/// Copies a text to the clipboard.
void PutOnClipboard(Host& host, const std::string& text);

}  // namespace oravin
