#pragma once

#include <wx/string.h>

#include <string>
#include <string_view>

/// The edge between the core's single-byte text (Windows-1252) and the window's.
namespace oravin::gui {

/// Text of the core as the window shows it.
wxString ToScreen(std::string_view text);

/// Text of the window for the core, as FromUtf8 has it: a character outside the code page becomes a substitute.
std::string FromScreen(const wxString& text);

/// A path of the core as the file dialogs want it: one of this machine.
wxString ToDialogPath(const std::string& windowsPath);

/// A path that a file dialog gave, as the core uses it.
std::string FromDialogPath(const wxString& path);

}  // namespace oravin::gui
