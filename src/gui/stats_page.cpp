#include <wx/panel.h>
#include <wx/sizer.h>

#include "gui/pages.h"

namespace oravin::gui {

wxWindow* NewStatsPage(wxWindow* parent, const Surroundings& surroundings) {
  StatsTab& tab = surroundings.main.stats;
  Mirror& mirror = surroundings.mirror;
  auto* page = new wxPanel(parent);

  auto* purpose = new wxStaticText(page, wxID_ANY, wxString());
  Reflect(mirror, "stats.purpose", purpose, tab.purpose);
  wxWindow* edge = NewEdge(page);
  auto* ships = new ListWindow(edge, tab.shipEditingList, {});
  ships->SetMinSize(page->FromDIP(wxSize(220, 200)));
  Reflect(mirror, "stats.shipEditingList", ships, tab.shipEditingList);
  Enframe(edge, ships);
  auto* weapons = new wxStaticText(page, wxID_ANY, wxString());
  Reflect(mirror, "stats.lblWeapons", weapons, tab.lblWeapons);
  wxButton* enable = NewButton(page, surroundings, "stats.cmdEnable2", tab.cmdEnable2);
  wxButton* disable = NewButton(page, surroundings, "stats.CmdDisable2", tab.CmdDisable2);

  const int space = page->FromDIP(gap);
  auto* below = new wxBoxSizer(wxHORIZONTAL);
  below->Add(weapons, wxSizerFlags().CentreVertical());
  below->AddStretchSpacer();
  below->Add(enable, wxSizerFlags().CentreVertical().Border(wxLEFT, space));
  below->Add(disable, wxSizerFlags().CentreVertical().Border(wxLEFT, space));

  auto* whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(purpose);
  whole->AddSpacer(space);
  whole->Add(edge, wxSizerFlags(1).Expand());
  whole->AddSpacer(page->FromDIP(pageMargin));
  whole->Add(below, wxSizerFlags().Expand());
  auto* framed = new wxBoxSizer(wxVERTICAL);
  framed->Add(whole, wxSizerFlags(1).Expand().Border(wxALL, page->FromDIP(pageMargin)));
  page->SetSizer(framed);
  return page;
}

}  // namespace oravin::gui
