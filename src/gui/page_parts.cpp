#include <wx/panel.h>
#include <wx/settings.h>
#include <wx/sizer.h>

#include "gui/pages.h"

namespace oravin::gui {

wxButton* NewButton(wxWindow* parent, const Surroundings& surroundings, const std::string& name, Button& record) {
  auto* button = new wxButton(parent, wxID_ANY);
  Reflect(surroundings.mirror, name, button, record);
  button->Bind(wxEVT_BUTTON, [press = surroundings.press, name](wxCommandEvent&) { press(name); });
  return button;
}

wxWindow* NewEdge(wxWindow* parent) {
  // Large enough from the start for a scroll bar to find its room.
  auto* edge = new wxPanel(parent, wxID_ANY, wxDefaultPosition, parent->FromDIP(wxSize(220, 200)));
  edge->SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNSHADOW));
  return edge;
}

void Enframe(wxWindow* edge, ListWindow* list) {
  auto* sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(list, wxSizerFlags(1).Expand().Border(wxALL, edge->FromDIP(1)));
  edge->SetSizer(sizer);
}

void LayOutPage(wxWindow* page, wxSizer* content, wxSizer* belowLeft, wxButton* enable, wxButton* disable) {
  auto* below = new wxBoxSizer(wxHORIZONTAL);
  below->Add(belowLeft, wxSizerFlags().CentreVertical());
  below->AddStretchSpacer();
  for (wxButton* button : {enable, disable}) {
    below->Add(button, wxSizerFlags().CentreVertical().Border(wxLEFT, page->FromDIP(gap)));
  }

  auto* whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(content, wxSizerFlags(1).Expand());
  whole->AddSpacer(page->FromDIP(pageMargin));
  whole->Add(below, wxSizerFlags().Expand());
  auto* framed = new wxBoxSizer(wxVERTICAL);
  framed->Add(whole, wxSizerFlags(1).Expand().Border(wxALL, page->FromDIP(pageMargin)));
  page->SetSizer(framed);
}

wxStaticText* NewLabel(wxWindow* parent, Mirror& mirror, const std::string& name, Label& record, long style) {
  const bool cut = (style & wxST_ELLIPSIZE_MASK) != 0;
  const long resizing = cut ? long{wxST_NO_AUTORESIZE} : 0L;
  auto* label = new wxStaticText(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, style | resizing);
  Reflect(mirror, name, label, record);
  if (cut) label->SetMinSize({parent->FromDIP(gap), parent->GetTextExtent("X").GetHeight()});
  return label;
}

wxTextCtrl* NewText(wxWindow* parent, Mirror& mirror, const std::string& name, TextBox& record, long style) {
  auto* text = new wxTextCtrl(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, style);
  Reflect(mirror, name, text, record);
  return text;
}

void Monospace(wxTextCtrl* text) {
  text->SetFont(wxFont(wxFontInfo(text->GetFont().GetPointSize()).Family(wxFONTFAMILY_TELETYPE)));
}

void Enlarge(wxStaticText* label, float factor, bool bold) {
  const wxFont larger = label->GetFont().Scaled(factor);
  label->SetFont(bold ? larger.Bold() : larger);
  // Before the window is on the screen a label still wants the room of the font that it had.
  const int rounding = label->FromDIP(2);
  label->SetMinSize(label->GetTextExtent(label->GetLabelText()) + wxSize(rounding, 0));
}

}  // namespace oravin::gui
