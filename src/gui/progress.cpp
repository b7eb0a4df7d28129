#include "gui/progress.h"

#include <wx/app.h>
#include <wx/dialog.h>
#include <wx/evtloop.h>
#include <wx/stattext.h>

#include <algorithm>
#include <cstdint>

#include "desk/message_box.h"
#include "gui/layout_file.h"
#include "gui/pages.h"
#include "gui/text_edge.h"
#include "gui/window.h"

namespace oravin::gui {

namespace {

constexpr int gaugeRange = 1000;
constexpr int gaugeWidth = 200;
constexpr int waitingWidth = 420;
constexpr std::chrono::milliseconds betweenPaintings(40);
constexpr std::chrono::milliseconds beforeWaiting(300);  // no window for shorter actions

/// Makes the small progress window for actions before the main window exists.
void OpenWaiting(Window& window) {
  auto* dialog = new wxDialog(nullptr, wxID_ANY, programTitle);
  dialog->SetIcons(ProgramIcon());
  const int space = dialog->FromDIP(gap);
  auto* text = new wxStaticText(dialog, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                                wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END);
  text->SetMinSize({dialog->FromDIP(waitingWidth), -1});
  wxGauge* gauge = NewGauge(dialog);
  auto* stop = new wxButton(dialog, wxID_CANCEL, "&Stop");
  auto* whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(text, wxSizerFlags().Expand());
  whole->Add(gauge, wxSizerFlags().Expand().Border(wxTOP, space));
  whole->Add(stop, wxSizerFlags().Right().Border(wxTOP, 2 * space));
  auto* framed = new wxBoxSizer(wxVERTICAL);
  framed->Add(whole, wxSizerFlags(1).Expand().Border(wxALL, dialog->FromDIP(pageMargin)));
  dialog->SetSizerAndFit(framed);
  dialog->Bind(wxEVT_BUTTON, [&window](wxCommandEvent&) { window.stop = true; });
  dialog->Bind(wxEVT_CLOSE_WINDOW, [&window](wxCloseEvent&) { window.stop = true; });
  dialog->Bind(wxEVT_IDLE, [&window](wxIdleEvent& event) {
    event.Skip();
    KeepLayout(window);
  });
  dialog->CentreOnScreen();
  dialog->Show();
  window.waiting = dialog;
  window.waitingPlace = {gauge, [text](const wxString& line) { text->SetLabelText(line); }, {}, stop};
}

ProgressPlace& PlaceFor(Window& window) {
  if (window.form != nullptr && window.form->progress.gauge != nullptr) return window.form->progress;
  if (window.frame != nullptr) return window.progressPlace;
  if (window.waiting == nullptr) OpenWaiting(window);
  return window.waitingPlace;
}

void HideProgress(Window& window) {
  window.progressAsked = {};
  if (!window.progress) return;
  window.progress = false;
  window.progressText.clear();
  ProgressPlace& place = *window.progressAt;
  window.progressAt = nullptr;
  if (window.waiting != nullptr) {
    window.waiting->Destroy();
    window.waiting = nullptr;
    return;
  }
  place.gauge->Hide();
  place.tell(wxString());
  for (wxWindow* control : place.controls) control->Enable();
  if (window.focusBefore) window.focusBefore->SetFocus();
}

/// Disables the controls and moves the focus away from them.
void BeginProgress(Window& window) {
  window.progress = true;
  window.progressAt = &PlaceFor(window);
  window.focusBefore = wxWindow::FindFocus();
  for (wxWindow* control : window.progressAt->controls) control->Disable();
  window.progressAt->keys->SetFocus();
  window.progressAt->gauge->Show();
}

/// Processes pending paint and input events.
void Breathe(Window& window) {
  if (wxEventLoopBase::GetActive() != nullptr) {
    wxTheApp->Yield(true);
  } else {
    wxGUIEventLoop loop;  // the main event loop has not started yet
    const wxEventLoopActivator active(&loop);
    loop.Yield(true);
  }
  // Counted from the end, so that the action gets most of the time even if painting is slow.
  window.progressPainted = std::chrono::steady_clock::now();
}

bool HasHeldBreath(const Window& window, std::chrono::milliseconds time) {
  return std::chrono::steady_clock::now() - window.progressPainted >= time;
}

/// True before the main window exists, while the action may still be a short one: nothing is shown yet.
bool IsTooSoon(Window& window) {
  if (window.frame != nullptr || window.waiting != nullptr) return false;
  const auto now = std::chrono::steady_clock::now();
  if (!window.progressAsked) {
    window.progressAsked = now;
    window.stop = false;
    window.stoppable = false;
  }
  return now - *window.progressAsked < beforeWaiting;
}

}  // namespace

wxGauge* NewGauge(wxWindow* parent) {
  return new wxGauge(parent, wxID_ANY, gaugeRange, wxDefaultPosition, wxDefaultSize, wxGA_HORIZONTAL | wxGA_SMOOTH);
}

wxWindow* NewKeys(wxWindow* parent) {
  auto* keys = new wxWindow(parent, wxID_ANY, wxPoint(0, 0), wxSize(1, 1), wxWANTS_CHARS);
  keys->DisableFocusFromKeyboard();  // skipped by the Tab key
  return keys;
}

wxSizer* NewProgressLine(wxWindow* parent, ProgressPlace& place, const std::vector<wxWindow*>& controls) {
  auto* text = new wxStaticText(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                                wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END);
  text->SetMinSize({parent->FromDIP(gap), parent->GetTextExtent("X").GetHeight()});
  place.gauge = NewGauge(parent);
  place.gauge->SetMinSize({parent->FromDIP(gaugeWidth), -1});
  place.gauge->Hide();
  place.tell = [text](const wxString& line) { text->SetLabelText(line); };
  place.controls = controls;
  place.keys = NewKeys(parent);
  auto* line = new wxBoxSizer(wxHORIZONTAL);
  line->Add(text, wxSizerFlags(1).CentreVertical());
  line->Add(place.gauge,
            wxSizerFlags().CentreVertical().Border(wxLEFT, parent->FromDIP(gap)).ReserveSpaceEvenIfHidden());
  return line;
}

void ShowProgress(Window& window, const Progress& progress) {
  if (progress.total <= 0) return HideProgress(window);
  if (IsTooSoon(window) || (window.progress && !HasHeldBreath(window, betweenPaintings))) return;
  ++window.progressPaintings;
  if (!window.progress) BeginProgress(window);
  const ProgressPlace& place = *window.progressAt;
  const std::int64_t part = std::int64_t{place.gauge->GetRange()} * progress.done / progress.total;
  place.gauge->SetValue(static_cast<int>(std::clamp<std::int64_t>(part, 0, place.gauge->GetRange())));
  window.progressText = (window.stoppable ? wxString("Esc stops this.  ") : wxString()) + ToScreen(progress.text);
  place.tell(window.progressText);
  ShowLabels(window.mirror);
  if (window.form != nullptr) ShowLabels(window.form->mirror);
  place.gauge->GetParent()->Update();
  Breathe(window);
}

bool StopAsked(Window& window) {
  window.stoppable = true;
  // Show the latest progress in the same paint.
  if (window.progress && HasHeldBreath(window, 2 * betweenPaintings)) Breathe(window);
  return window.stop;
}

}  // namespace oravin::gui
