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

  auto* list = new wxBoxSizer(wxVERTICAL);
  list->Add(purpose);
  list->AddSpacer(page->FromDIP(gap));
  list->Add(edge, wxSizerFlags(1).Expand());
  auto* below = new wxBoxSizer(wxHORIZONTAL);
  below->Add(weapons, wxSizerFlags().CentreVertical());
  LayOutPage(page, list, below, enable, disable);
  return page;
}

}  // namespace oravin::gui
