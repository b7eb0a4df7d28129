#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>

#include "gui/pages.h"

namespace oravin::gui {

wxWindow* NewPurposePage(wxWindow* parent, const Surroundings& surroundings, const std::string& name, Label& purpose,
                         const wxBitmapBundle& picture) {
  auto* page = new wxPanel(parent);
  auto* line = new wxStaticText(page, wxID_ANY, wxString());
  Reflect(surroundings.mirror, name, line, purpose);
  Enlarge(line, 1.2F);

  auto* sizer = new wxBoxSizer(wxVERTICAL);
  sizer->AddStretchSpacer(2);
  sizer->Add(new wxStaticBitmap(page, wxID_ANY, picture), wxSizerFlags().CentreHorizontal());
  sizer->AddSpacer(page->FromDIP(2 * gap));
  sizer->Add(line, wxSizerFlags().CentreHorizontal().Border(wxLEFT | wxRIGHT, page->FromDIP(pageMargin)));
  sizer->AddStretchSpacer(3);
  page->SetSizer(sizer);
  return page;
}

}  // namespace oravin::gui
