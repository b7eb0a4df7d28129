#pragma once

#include <wx/window.h>

#include <functional>
#include <string>

namespace oravin::gui {

/// Accepts files dropped on a window, or on a child that accepts none itself. Of several files the first acceptable one
/// is used.
/// @param takes true if the file at a path is accepted
/// @param dropped called with its path after the drop is finished
void OnFileDropped(wxWindow* window, const std::function<bool(const std::string& path)>& takes,
                   const std::function<void(const std::string& path)>& dropped);

/// True if ships can be imported from the file, by its extension.
bool IsShipFile(const std::string& path);

}  // namespace oravin::gui
