#pragma once

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/notebook.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "desk/controls.h"
#include "gui/list_window.h"

/// Connects the core's control records with the window's widgets: *take* copies widget to record before an action,
/// *show* copies record to widget after it. A control without user input has nothing to take.
namespace oravin::gui {

void Take(const wxTextCtrl& window, TextBox& record);
void Take(const wxCheckBox& window, CheckBox& record);
void Take(ListWindow& window, ListView& record);
void Take(const wxNotebook& window, TabStrip& record);

/// Each updates only what differs. Returns true if the control's best size may have changed.
bool Show(wxStaticText& window, const Label& record);
bool Show(wxTextCtrl& window, const TextBox& record);
bool Show(wxButton& window, const Button& record);
bool Show(wxCheckBox& window, const CheckBox& record);
bool Show(ListWindow& window, const ListView& record);
bool Show(wxNotebook& window, const TabStrip& record);

/// One control and its record, under the record's name ("switcher.cmdSwap").
struct Reflection {
  std::string name;
  wxWindow* window = nullptr;
  const ListView* list = nullptr;  ///< if the control is a list
  std::function<void()> take;      ///< empty for a control without user input
  std::function<bool()> show;
  bool inProgress = false;  ///< it is also updated while an action runs
};

/// All the controls of the window.
struct Mirror {
  std::vector<Reflection> reflections;
};

/// Copies the user's input from the controls to their records.
void TakeAll(Mirror& mirror);

/// Updates the controls from their records.
void ShowAll(Mirror& mirror);

/// Updates the labels from their records, which an action may change while it runs.
void ShowLabels(Mirror& mirror);

/// Makes new lists compute their layout.
void SettleLists(Mirror& mirror);

/// Adds a control and its record to the mirror, names the control and shows the record.
void Reflect(Mirror& mirror, const std::string& name, wxStaticText* window, Label& record);
void Reflect(Mirror& mirror, const std::string& name, wxTextCtrl* window, TextBox& record);
void Reflect(Mirror& mirror, const std::string& name, wxButton* window, Button& record);
void Reflect(Mirror& mirror, const std::string& name, wxCheckBox* window, CheckBox& record);
void Reflect(Mirror& mirror, const std::string& name, ListWindow* window, ListView& record);
void Reflect(Mirror& mirror, const std::string& name, wxNotebook* window, TabStrip& record);

/// Adds another kind of control to the mirror, under its name.
/// @param show updates it from its record; returns true if its best size may have changed
void Reflect(Mirror& mirror, const std::string& name, wxWindow* window, std::function<bool()> show);

/// Names a control without a record, so that it appears in the layout file.
void Name(Mirror& mirror, const std::string& name, wxWindow* window);

}  // namespace oravin::gui
