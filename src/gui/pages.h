#pragma once

#include <wx/sizer.h>

#include <functional>
#include <string>
#include <vector>

#include "app/main.h"
#include "gui/mirror.h"
#include "gui/pictures.h"

/// The pages of the window, one per tab.
namespace oravin::gui {

/// Runs a handler by its name.
using Action = std::function<void(const std::string&)>;

/// Context for making a page or a form.
struct Surroundings {
  Main& main;      ///< the records that the page shows
  Mirror& mirror;  ///< gets its controls
  Action press;
  std::function<void(const std::string& path)> importFile = {};  ///< imports a ship model or a ship pack
};

/// Distances in pixels at 100 %.
inline constexpr int pageMargin = 12;
inline constexpr int gap = 8;

/// Makes a button that runs the handler of the same name.
wxButton* NewButton(wxWindow* parent, const Surroundings& surroundings, const std::string& name, Button& record);

/// Makes a check box.
/// @param changed called after the user has changed it and its record is updated; may be empty
wxCheckBox* NewCheckBox(wxWindow* parent, Mirror& mirror, const std::string& name, CheckBox& record,
                        const std::function<void()>& changed);

/// A panel that leaves access keys to its parent.
wxPanel* NewPanel(wxWindow* parent);

/// A panel that draws the border of a list or picture: made first, as its parent, and laid out by Enframe.
wxWindow* NewEdge(wxWindow* parent);

/// Fills a border panel with its list. Of several lists, only one may be visible at a time.
void Enframe(wxWindow* edge, wxWindow* list);

/// Makes a frame with a caption; its contents are children of its static box.
wxStaticBoxSizer* NewFrame(wxWindow* page, const Label& caption);

/// Gives buttons the width of the widest one.
void EqualWidths(const std::vector<wxButton*>& buttons);

/// A field with its label before it and its buttons after it.
struct FieldLine {
  wxStaticText* label = nullptr;
  wxSizer* field = nullptr;
  std::vector<wxButton*> buttons;  ///< the first belongs to the field, the others have a larger gap
};

/// Lays out lines with labels, fields and buttons in columns.
wxSizer* NewFieldLines(wxWindow* page, const std::vector<FieldLine>& lines);

/// A text box as the field of a line.
wxSizer* FieldOf(wxTextCtrl* text);

/// Lays out a page: its content, and below it a line with something on the left and two buttons on the right.
void LayOutPage(wxWindow* page, wxSizer* content, wxSizer* belowLeft, wxButton* enable, wxButton* disable);

/// Makes a label. With an ellipsizing style it takes the available width.
wxStaticText* NewLabel(wxWindow* parent, Mirror& mirror, const std::string& name, Label& record, long style = 0);

/// Makes a text box.
wxTextCtrl* NewText(wxWindow* parent, Mirror& mirror, const std::string& name, TextBox& record, long style = 0);

/// Uses a monospace font in a text box.
void Monospace(wxTextCtrl* text);

/// Uses a larger font for a label.
void Enlarge(wxStaticText* label, float factor, bool bold = false);

/// Each makes the contents of its page. The page is a child of the notebook, but perhaps not yet one of its tabs.
void FillSwitcherPage(wxPanel* page, const Surroundings& surroundings);
void FillStatsPage(wxPanel* page, const Surroundings& surroundings);
void FillImportPage(wxPanel* page, const Surroundings& surroundings);
void FillHogPage(wxPanel* page, const Surroundings& surroundings);
void FillTcachePage(wxPanel* page, const Surroundings& surroundings);
void FillAboutPage(wxPanel* page, const Surroundings& surroundings);

}  // namespace oravin::gui
