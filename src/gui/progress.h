#pragma once

#include <wx/gauge.h>
#include <wx/sizer.h>

#include <functional>
#include <vector>

#include "desk/desk.h"

/// Progress of long actions. Actions run on the window's own thread. Between their steps the window is painted, with
/// all controls disabled, but not so often that it slows the action down.
namespace oravin::gui {

struct Window;

/// Where progress is shown: in the window's status line, at the bottom of a form or, before the window exists, in a
/// small window of its own.
struct ProgressPlace {
  wxGauge* gauge = nullptr;
  std::function<void(const wxString& text)> tell;
  std::vector<wxWindow*> controls;  ///< disabled during the action
  wxWindow* keys = nullptr;         ///< has focus during the action
};

/// Makes a progress bar.
wxGauge* NewGauge(wxWindow* parent);

/// Makes an invisible window that has focus while everything else is disabled.
wxWindow* NewKeys(wxWindow* parent);

/// Makes a line for the bottom of a form: a text and a bar, shown only during an action.
/// @param controls disabled during the action
wxSizer* NewProgressLine(wxWindow* parent, ProgressPlace& place, const std::vector<wxWindow*>& controls);

/// Shows the progress of the action, or removes it at its end.
void ShowProgress(Window& window, const Progress& progress);

/// True if the user has asked to stop the action. An action that asks can be stopped, so the text says how from then
/// on.
bool StopAsked(Window& window);

}  // namespace oravin::gui
