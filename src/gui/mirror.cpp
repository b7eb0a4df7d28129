#include "gui/mirror.h"

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

void ShowTooltip(wxWindow& window, const std::string& tooltip) {
  const wxString text = ToScreen(tooltip);
  if (window.GetToolTipText() != text) window.SetToolTip(text);
}

void ShowEnabled(wxWindow& window, bool enabled) {
  if (window.IsThisEnabled() != enabled) window.Enable(enabled);
}

void SelectRow(ListWindow& window, long row, bool selected) {
  const bool before = window.GetItemState(row, wxLIST_STATE_SELECTED) != 0;
  if (before == selected) return;
  window.SetItemState(row, selected ? wxLIST_STATE_SELECTED | wxLIST_STATE_FOCUSED : 0,
                      selected ? wxLIST_STATE_SELECTED | wxLIST_STATE_FOCUSED : wxLIST_STATE_SELECTED);
  if (selected) window.EnsureVisible(row);
}

/// The rows that the control itself holds as selected.
std::vector<long> SelectedRows(const ListWindow& window) {
  std::vector<long> rows;
  long row = -1;
  while ((row = window.GetNextItem(row, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED)) >= 0) rows.push_back(row);
  return rows;
}

template <typename Control, typename Record>
void Add(Mirror& mirror, const std::string& name, Control* window, Record& record) {
  window->SetName(wxString::FromUTF8(name));
  Show(*window, record);
  Reflection reflection{name, window, nullptr, {}, [window, &record] { return Show(*window, record); }};
  if constexpr (requires { Take(*window, record); }) {
    reflection.take = [window, &record] { Take(*window, record); };
  }
  if constexpr (std::is_same_v<Record, ListView>) reflection.list = &record;
  mirror.reflections.push_back(std::move(reflection));
}

}  // namespace

void Take(const wxTextCtrl& window, TextBox& record) {
  // What nobody typed into stays as it is, so that no character is lost on its way to the screen and back.
  if (window.GetValue() != ToScreen(record.text)) record.text = FromScreen(window.GetValue());
}

void Take(const wxCheckBox& window, CheckBox& record) { record.checked = window.GetValue(); }

void Take(const ListWindow& window, ListView& record) {
  for (ListRow& row : record.rows) row.selected = false;
  for (const long row : SelectedRows(window)) {
    const auto index = static_cast<std::size_t>(row);
    if (index < record.rows.size()) record.rows[index].selected = true;
  }
}

void Take(const wxNotebook& window, TabStrip& record) { record.chosen = window.GetSelection() + 1; }

bool Show(wxStaticText& window, const Label& record) {
  // A label that was wrapped to its place has line breaks where its caption has blanks.
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
  return false;
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

bool Show(ListWindow& window, const ListView& record) {
  if (window.shownRevision == record.revision) return false;
  window.shownRevision = record.revision;
  const auto rows = static_cast<long>(record.rows.size());
  for (const long row : SelectedRows(window)) {
    const auto index = static_cast<std::size_t>(row);
    if (row >= rows || !record.rows[index].selected) SelectRow(window, row, false);
  }
  window.SetItemCount(rows);
  for (long row = 0; row < rows; ++row) {
    if (record.rows[static_cast<std::size_t>(row)].selected) SelectRow(window, row, true);
  }
  window.Refresh();
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
  for (Reflection& reflection : mirror.reflections) {
    if (reflection.show && reflection.show()) {
      reflection.window->InvalidateBestSize();
      reflection.window->GetParent()->Layout();
    }
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

void Name(Mirror& mirror, const std::string& name, wxWindow* window) {
  window->SetName(wxString::FromUTF8(name));
  mirror.reflections.push_back({name, window, nullptr, {}, {}});
}

}  // namespace oravin::gui
