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

/// The pairs between the core's control records and the window's own controls: *take* before an action runs, *show*
/// after it. A control without something that a person can change has nothing to take.
namespace oravin::gui {

void Take(const wxTextCtrl& window, TextBox& record);
void Take(const wxCheckBox& window, CheckBox& record);
void Take(ListWindow& window, ListView& record);
void Take(const wxNotebook& window, TabStrip& record);

/// Each shows what differs and leaves the rest alone. Returns whether the control may now want another size.
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
  const ListView* list = nullptr;  ///< where the control is a list
  std::function<void()> take;      ///< empty for a control without a record
  std::function<bool()> show;
  bool inProgress = false;  ///< what it shows is kept up to date while an action runs
};

/// All the controls of the window.
struct Mirror {
  std::vector<Reflection> reflections;
};

/// Reads what the person did to the controls into their records.
void TakeAll(Mirror& mirror);

/// Shows what the records say.
void ShowAll(Mirror& mirror);

/// Shows what the labels' records say: what an action can tell of itself while it runs.
void ShowLabels(Mirror& mirror);

/// Has lists that were just made work out what they show where.
void SettleLists(Mirror& mirror);

/// Puts a control and its record into the mirror and shows the record. The control bears the name from then on.
void Reflect(Mirror& mirror, const std::string& name, wxStaticText* window, Label& record);
void Reflect(Mirror& mirror, const std::string& name, wxTextCtrl* window, TextBox& record);
void Reflect(Mirror& mirror, const std::string& name, wxButton* window, Button& record);
void Reflect(Mirror& mirror, const std::string& name, wxCheckBox* window, CheckBox& record);
void Reflect(Mirror& mirror, const std::string& name, ListWindow* window, ListView& record);
void Reflect(Mirror& mirror, const std::string& name, wxNotebook* window, TabStrip& record);

/// Puts a control that is none of these into the mirror, under its name.
/// @param show brings what it shows to what its record says; returns whether it may now want another size
void Reflect(Mirror& mirror, const std::string& name, wxWindow* window, std::function<bool()> show);

/// Names a control that has no record, so that the layout file tells where it is.
void Name(Mirror& mirror, const std::string& name, wxWindow* window);

}  // namespace oravin::gui
