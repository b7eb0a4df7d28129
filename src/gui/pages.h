#pragma once

#include <functional>
#include <string>

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
};

/// Distances in pixels at 100 %.
inline constexpr int pageMargin = 12;
inline constexpr int gap = 8;

/// Makes a button that runs the action of its own name.
wxButton* NewButton(wxWindow* parent, const Surroundings& surroundings, const std::string& name, Button& record);

/// A panel for a list, which draws its edge: made before the list, as its parent, and laid out by Enframe.
wxWindow* NewEdge(wxWindow* parent);

/// Fills an edge with its list.
void Enframe(wxWindow* edge, ListWindow* list);

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

/// Makes a page that says in one line what it is for, below a picture.
/// @param picture drawn in the size purposePictureSize
wxWindow* NewPurposePage(wxWindow* parent, const Surroundings& surroundings, const std::string& name, Label& purpose,
                         const wxBitmapBundle& picture);
inline constexpr int purposePictureSize = 96;

wxWindow* NewSwitcherPage(wxWindow* parent, const Surroundings& surroundings);
wxWindow* NewStatsPage(wxWindow* parent, const Surroundings& surroundings);
wxWindow* NewImportPage(wxWindow* parent, const Surroundings& surroundings);
wxWindow* NewHogPage(wxWindow* parent, const Surroundings& surroundings);
wxWindow* NewTcachePage(wxWindow* parent, const Surroundings& surroundings);
wxWindow* NewAboutPage(wxWindow* parent, const Surroundings& surroundings);

}  // namespace oravin::gui
