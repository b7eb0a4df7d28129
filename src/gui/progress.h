#pragma once

#include <wx/gauge.h>
#include <wx/sizer.h>

#include <functional>
#include <vector>

#include "desk/desk.h"

/// How far a long action has come. Actions run on the window's own thread: what tells of them is painted between their
/// steps, with all controls disabled meanwhile, and not so often that painting slows the action down.
namespace oravin::gui {

struct Window;

/// Where that is shown: in the window's status line, at the foot of a form, or, before there is a window, in a small
/// one of its own.
struct ProgressPlace {
  wxGauge* gauge = nullptr;
  std::function<void(const wxString& text)> tell;
  std::vector<wxWindow*> controls;  ///< disabled meanwhile
  wxWindow* keys = nullptr;         ///< gets the keyboard meanwhile
};

/// Makes a bar.
wxGauge* NewGauge(wxWindow* parent);

/// Makes what gets the keyboard while all else is disabled; it is never in sight.
wxWindow* NewKeys(wxWindow* parent);

/// Makes a line for the foot of a form: a text and a bar, which come up with the action.
/// @param controls disabled while it runs
wxSizer* NewProgressLine(wxWindow* parent, ProgressPlace& place, const std::vector<wxWindow*>& controls);

/// Shows how far the action has come, or that it is over.
void ShowProgress(Window& window, const Progress& progress);

/// Whether the person has asked for the action to be stopped. An action that asks can be: the text tells so from then
/// on.
bool StopAsked(Window& window);

}  // namespace oravin::gui
