#include "gui/mirror.h"

#include <wx/toplevel.h>

#include <algorithm>
#include <type_traits>
#include <utility>

#include "gui/text_edge.h"

namespace oravin::gui {

namespace {

bool ShowCaption(wxWindow& window, const std::string& caption) {
  const wxString text = ToScreen(caption);
  if (window.GetLabel() == text) return false;
  window.SetLabel(text);
  return true;
}

/// True if `&` does not mark an access key: labels with an ellipsis show file names.
bool IsPlain(const wxStaticText& window) { return (window.GetWindowStyle() & wxST_ELLIPSIZE_MASK) != 0; }

/// Tooltips are set after the window is shown: the first one makes Windows create another window, which slows the
/// start.
void ShowTooltip(wxWindow& window, const std::string& tooltip) {
  const wxString text = ToScreen(tooltip);
  if (window.GetToolTipText() == text) return;
  if (wxGetTopLevelParent(&window)->IsShown()) {
    window.SetToolTip(text);
  } else {
    window.CallAfter([&window, text] { window.SetToolTip(text); });
  }
}

void ShowEnabled(wxWindow& window, bool enabled) {
  if (window.IsThisEnabled() != enabled) window.Enable(enabled);
}

template <typename Control, typename Record>
void Add(Mirror& mirror, const std::string& name, Control* window, Record& record) {
  window->SetName(wxString::FromUTF8(name));
  Show(*window, record);
  Reflection reflection{name, window, nullptr, {}, [window, &record] { return Show(*window, record); }, false};
  if constexpr (requires { Take(*window, record); }) {
    reflection.take = [window, &record] { Take(*window, record); };
  }
  if constexpr (std::is_same_v<Record, ListView>) reflection.list = &record;
  if constexpr (std::is_same_v<Record, Label>) reflection.inProgress = true;
  mirror.reflections.push_back(std::move(reflection));
}

void ShowOne(Reflection& reflection) {
  if (!reflection.show || !reflection.show()) return;
  reflection.window->InvalidateBestSize();
  reflection.window->GetParent()->Layout();
}

}  // namespace

void Take(const wxTextCtrl& window, TextBox& record) {
  // An unchanged text is not copied back, so that conversion to the screen loses no character.
  if (window.GetValue() != ToScreen(record.text)) record.text = FromScreen(window.GetValue());
}

void Take(const wxCheckBox& window, CheckBox& record) { record.checked = window.GetValue(); }

void Take(ListWindow& window, ListView& record) {
  const std::vector<bool>& selection = window.Selection();
  for (std::size_t i = 0; i < record.rows.size(); ++i) {
    record.rows[i].selected = i < selection.size() && selection[i];
  }
}

void Take(const wxNotebook& window, TabStrip& record) { record.chosen = window.GetSelection() + 1; }

bool Show(wxStaticText& window, const Label& record) {
  if (IsPlain(window)) {
    const wxString text = ToScreen(record.caption);
    if (window.GetLabelText() == text) return false;
    window.SetLabelText(text);
    ShowTooltip(window, record.caption);
    return true;
  }
  // A wrapped label has line breaks in place of some spaces of its caption.
  wxString shown = window.GetLabel();
  shown.Replace("\n", " ");
  wxString caption = ToScreen(record.caption);
  caption.Replace("\n", " ");
  return shown != caption && ShowCaption(window, record.caption);
}

bool Show(wxTextCtrl& window, const TextBox& record) {
  const wxString text = ToScreen(record.text);
  if (window.GetValue() != text) window.ChangeValue(text);
  if (window.IsEditable() == record.readOnly) window.SetEditable(!record.readOnly);
  ShowTooltip(window, record.tooltip);
  ShowEnabled(window, record.enabled);
  return window.IsShown() != record.shown && window.Show(record.shown);
}

bool Show(wxButton& window, const Button& record) {
  const bool changed = ShowCaption(window, record.caption);
  ShowTooltip(window, record.tooltip);
  ShowEnabled(window, record.enabled);
  return changed;
}

bool Show(wxCheckBox& window, const CheckBox& record) {
  const bool changed = ShowCaption(window, record.caption);
  if (window.GetValue() != record.checked) window.SetValue(record.checked);
  ShowTooltip(window, record.tooltip);
  ShowEnabled(window, record.enabled);
  return changed;
}

bool Show(ListWindow& window, const ListView&) {
  window.ShowRecord();
  return false;
}

bool Show(wxNotebook& window, const TabStrip& record) {
  const auto pages = static_cast<int>(std::min(window.GetPageCount(), record.captions.size()));
  for (int i = 0; i < pages; ++i) {
    const auto page = static_cast<std::size_t>(i);
    const wxString caption = ToScreen(record.captions[page]);
    if (window.GetPageText(page) != caption) window.SetPageText(page, caption);
  }
  const int chosen = record.chosen - 1;
  if (chosen >= 0 && chosen < pages && window.GetSelection() != chosen) {
    window.ChangeSelection(static_cast<std::size_t>(chosen));
  }
  return false;
}

void TakeAll(Mirror& mirror) {
  for (Reflection& reflection : mirror.reflections) {
    if (reflection.take) reflection.take();
  }
}

void ShowAll(Mirror& mirror) {
  for (Reflection& reflection : mirror.reflections) ShowOne(reflection);
}

void ShowLabels(Mirror& mirror) {
  for (Reflection& reflection : mirror.reflections) {
    if (reflection.inProgress) ShowOne(reflection);
  }
}

void SettleLists(Mirror& mirror) {
  for (const Reflection& reflection : mirror.reflections) {
    if (reflection.list != nullptr) static_cast<ListWindow*>(reflection.window)->Settle();
  }
}

void Reflect(Mirror& mirror, const std::string& name, wxStaticText* window, Label& record) {
  Add(mirror, name, window, record);
}

void Reflect(Mirror& mirror, const std::string& name, wxTextCtrl* window, TextBox& record) {
  Add(mirror, name, window, record);
}

void Reflect(Mirror& mirror, const std::string& name, wxButton* window, Button& record) {
  Add(mirror, name, window, record);
}

void Reflect(Mirror& mirror, const std::string& name, wxCheckBox* window, CheckBox& record) {
  Add(mirror, name, window, record);
}

void Reflect(Mirror& mirror, const std::string& name, ListWindow* window, ListView& record) {
  Add(mirror, name, window, record);
}

void Reflect(Mirror& mirror, const std::string& name, wxNotebook* window, TabStrip& record) {
  Add(mirror, name, window, record);
}

void Reflect(Mirror& mirror, const std::string& name, wxWindow* window, std::function<bool()> show) {
  window->SetName(wxString::FromUTF8(name));
  if (show) show();
  mirror.reflections.push_back({name, window, nullptr, {}, std::move(show), false});
}

void Name(Mirror& mirror, const std::string& name, wxWindow* window) { Reflect(mirror, name, window, {}); }

}  // namespace oravin::gui
