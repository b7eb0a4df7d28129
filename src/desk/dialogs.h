#pragma once

#include <string>

#include "desk/host.h"

namespace oravin {

/// Shows a message with the OK button alone.
void Show(Host& host, const std::string& text, Icon icon, const std::string& title = programTitle);

/// Shows a message of success.
void ShowSuccess(Host& host, const std::string& text, Icon icon, const std::string& title = programTitle);

/// Asks a question with the buttons Yes and No; true for Yes.
bool AskYesNo(Host& host, const std::string& text, const std::string& title = programTitle);

/// Asks for a folder; empty when the person cancels or the choice is no folder of the file system.
std::string BrowseForFolder(Host& host, const std::string& prompt = "Select Folder");

/// Asks for an existing file; empty when the person cancels or the choice is not there.
/// @param folder where the dialog begins, with or without a backslash at its end
std::string ChooseFile(Host& host, const std::string& title, const std::string& folder, const std::string& name,
                       const std::string& filter);

/// Tells how far a long action has come.
void ShowProgress(Host& host, const std::string& text, int done, int total);

/// Tells that the long action has ended.
void EndProgress(Host& host);

/// True once the person has asked for the long action to stop.
bool StopAsked(Host& host);

/// Shows a form and comes back when it has been closed.
/// @param form its name, as "FAT_Editor"
void ShowForm(Host& host, const std::string& form);

/// Puts a text where other programs can paste it from.
void PutOnClipboard(Host& host, const std::string& text);

}  // namespace oravin
