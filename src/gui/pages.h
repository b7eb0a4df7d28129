#pragma once

#include <wx/sizer.h>

#include <functional>
#include <string>
#include <vector>

#include "app/main.h"
#include "gui/mirror.h"
#include "gui/pictures.h"

/// The pages of the window, one a tab.
namespace oravin::gui {

/// Runs an action of the handler table by its name.
using Action = std::function<void(const std::string&)>;

/// What a page is made with, and a form.
struct Surroundings {
  Main& main;      ///< the records that the page shows
  Mirror& mirror;  ///< where its controls are put
  Action press;
  std::function<void(const std::string& path)> importFile = {};  ///< opens the import of a ship model or a ship pack
};

/// Distances in pixels at 100 %.
inline constexpr int pageMargin = 12;
inline constexpr int gap = 8;

/// Makes a button that runs the action of its own name.
wxButton* NewButton(wxWindow* parent, const Surroundings& surroundings, const std::string& name, Button& record);

/// Makes a check box.
/// @param changed called after a person has changed it, when its record says so already; may be empty
wxCheckBox* NewCheckBox(wxWindow* parent, Mirror& mirror, const std::string& name, CheckBox& record,
                        const std::function<void()>& changed);

/// A panel that leaves access keys to the window around it.
wxPanel* NewPanel(wxWindow* parent);

/// A panel for a list or a picture, which draws its edge: made before that, as its parent, and laid out by Enframe.
wxWindow* NewEdge(wxWindow* parent);

/// Fills an edge with its list. Of several, one is to be in sight at a time.
void Enframe(wxWindow* edge, wxWindow* list);

/// Makes a frame with a caption; what it holds is made as children of its box.
wxStaticBoxSizer* NewFrame(wxWindow* page, const Label& caption);

/// Makes buttons as wide as the widest of them.
void EqualWidths(const std::vector<wxButton*>& buttons);

/// A field with its name before it and its buttons behind it.
struct FieldLine {
  wxStaticText* label = nullptr;
  wxSizer* field = nullptr;
  std::vector<wxButton*> buttons;  ///< the first belongs to the field, the others stand a little apart
};

/// Lays lines out below each other, so that names, fields and buttons stand in columns.
wxSizer* NewFieldLines(wxWindow* page, const std::vector<FieldLine>& lines);

/// A text box as the field of a line.
wxSizer* FieldOf(wxTextCtrl* text);

/// Lays a page out: what it shows, and below that a line with something on the left and the two buttons on the right.
void LayOutPage(wxWindow* page, wxSizer* content, wxSizer* belowLeft, wxButton* enable, wxButton* disable);

/// Makes a label. With a style that cuts it short it takes the room that it is given.
wxStaticText* NewLabel(wxWindow* parent, Mirror& mirror, const std::string& name, Label& record, long style = 0);

/// Makes a text box.
wxTextCtrl* NewText(wxWindow* parent, Mirror& mirror, const std::string& name, TextBox& record, long style = 0);

/// Shows a text box's text in a font whose characters are all equally wide.
void Monospace(wxTextCtrl* text);

/// Shows a label's text larger.
void Enlarge(wxStaticText* label, float factor, bool bold = false);

/// Each makes what its page holds. The page is a child of the notebook, though perhaps not one of its tabs yet.
void FillSwitcherPage(wxPanel* page, const Surroundings& surroundings);
void FillStatsPage(wxPanel* page, const Surroundings& surroundings);
void FillImportPage(wxPanel* page, const Surroundings& surroundings);
void FillHogPage(wxPanel* page, const Surroundings& surroundings);
void FillTcachePage(wxPanel* page, const Surroundings& surroundings);
void FillAboutPage(wxPanel* page, const Surroundings& surroundings);

}  // namespace oravin::gui
