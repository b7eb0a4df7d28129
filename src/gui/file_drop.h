#pragma once

#include <wx/window.h>

#include <functional>
#include <string>

namespace oravin::gui {

/// Has a window take a file that is dropped on it or on a part of it that takes none itself; of several the first
/// that it takes.
/// @param takes tells by its path whether a file is taken
/// @param dropped called with its path when the program that it came from is done with it
void OnFileDropped(wxWindow* window, const std::function<bool(const std::string& path)>& takes,
                   const std::function<void(const std::string& path)>& dropped);

/// Whether a file is one that ships are imported from, by its extension.
bool IsShipFile(const std::string& path);

}  // namespace oravin::gui
