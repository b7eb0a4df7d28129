#pragma once

#include <wx/string.h>

#include <string>
#include <string_view>

/// Converts between the core's single-byte text (Windows-1252) and the toolkit's strings.
namespace oravin::gui {

/// Core text as a toolkit string.
wxString ToScreen(std::string_view text);

/// Toolkit string as core text; as in FromUtf8, a character outside the code page becomes a substitute.
std::string FromScreen(const wxString& text);

/// A path of the core as a native path for file dialogs.
wxString ToDialogPath(const std::string& windowsPath);

/// A path from a file dialog as a path of the core.
std::string FromDialogPath(const wxString& path);

}  // namespace oravin::gui
