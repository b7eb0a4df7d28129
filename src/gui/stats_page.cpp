#include <wx/panel.h>
#include <wx/sizer.h>

#include "gui/pages.h"
#include "gui/stats_chart_pane.h"
#include "gui/stats_menus.h"
#include "gui/top_view_pane.h"

namespace oravin::gui {

namespace {

/// Minimum widths in pixels at 100 %.
constexpr int smallestShips = 150;
constexpr int smallestWeapons = 220;

/// The controls of the page.
struct StatsParts {
  wxWindow* page = nullptr;
  wxStaticText* lblShips = nullptr;
  wxWindow* shipsEdge = nullptr;
  ListWindow* shipEditingList = nullptr;
  StatsChartLegend* legend = nullptr;
  wxWindow* statsEdge = nullptr;
  ListWindow* shipStatsList = nullptr;
  StatsChartPane* chart = nullptr;
  wxButton* cmdRestoreShipStats = nullptr;
  wxButton* cmdRestoreAllStats = nullptr;
  wxStaticText* lblWeapons = nullptr;
  wxWindow* weaponsEdge = nullptr;
  ListWindow* shipWeaponsList = nullptr;
  wxStaticText* Label2 = nullptr;
  wxWindow* topViewEdge = nullptr;
  TopViewPane* topView = nullptr;
  wxStaticText* lblShipClass = nullptr;
  wxCheckBox* chkHasCloak = nullptr;
  wxButton* cmdRestoreWeapons = nullptr;
  wxButton* cmdEnable2 = nullptr;
  wxButton* CmdDisable2 = nullptr;
};

/// Fits the width of the statistics list to its texts.
void FitStats(ListWindow& list) {
  const wxFont bold = list.GetFont().Bold();
  const int around = 2 * list.FromDIP(gap);
  const auto widthOf = [&](const char* text) {
    int width = 0;
    list.GetTextExtent(text, &width, nullptr, nullptr, nullptr, &bold);
    return width + around;
  };
  const int value = widthOf("0.33333334");
  const int label = widthOf("Afterburner Fuel");
  const int whole = value + label + around;  // including a scroll bar
  list.SetMinSize({whole, list.GetMinSize().GetHeight()});
  list.SetShares({static_cast<double>(value) / (value + label), static_cast<double>(label) / (value + label)});
}

ListWindow* NewList(wxWindow* edge, Mirror& mirror, const std::string& name, ListView& record, int smallest) {
  auto* list = new ListWindow(edge, record, {});
  list->SetMinSize(edge->FromDIP(wxSize(smallest, 100)));
  edge->SetMinSize(wxDefaultSize);  // use the list's minimum
  Reflect(mirror, name, list, record);
  return list;
}

/// Adds a drawn pane to the mirror.
template <typename Pane>
void ReflectPane(Mirror& mirror, const std::string& name, Pane* pane) {
  Reflect(mirror, name, pane, [pane] {
    pane->ShowRecord();
    return false;
  });
}

void AddStats(StatsParts& parts, const Surroundings& surroundings) {
  StatsTab& tab = surroundings.main.stats;
  Mirror& mirror = surroundings.mirror;
  parts.legend = new StatsChartLegend(parts.page, tab);
  ReflectPane(mirror, "stats.legend", parts.legend);
  parts.statsEdge = NewEdge(parts.page);
  parts.shipStatsList = NewList(parts.statsEdge, mirror, "stats.shipStatsList", tab.shipStatsList, 0);
  FitStats(*parts.shipStatsList);
  parts.chart = new StatsChartPane(parts.statsEdge, tab, *parts.shipStatsList);
  ReflectPane(mirror, "stats.chart", parts.chart);
}

void AddWeapons(StatsParts& parts, const Surroundings& surroundings) {
  StatsTab& tab = surroundings.main.stats;
  Mirror& mirror = surroundings.mirror;
  wxWindow* page = parts.page;
  parts.lblWeapons = NewLabel(page, mirror, "stats.lblWeapons", tab.lblWeapons);
  parts.weaponsEdge = NewEdge(page);
  parts.shipWeaponsList =
      NewList(parts.weaponsEdge, mirror, "stats.shipWeaponsList", tab.shipWeaponsList, smallestWeapons);
  parts.Label2 = NewLabel(page, mirror, "stats.Label2", tab.Label2);
  parts.topViewEdge = NewEdge(page);
  parts.topView = new TopViewPane(parts.topViewEdge, tab);
  ReflectPane(mirror, "stats.topView", parts.topView);
  parts.chkHasCloak = NewCheckBox(page, mirror, "stats.chkHasCloak", tab.chkHasCloak,
                                  [press = surroundings.press] { press("stats.chkHasCloak.MouseUp"); });
}

/// Makes the controls in Tab order.
StatsParts NewStatsParts(wxWindow* page, const Surroundings& surroundings) {
  StatsTab& tab = surroundings.main.stats;
  Mirror& mirror = surroundings.mirror;
  StatsParts parts;
  parts.page = page;
  const auto button = [&](const char* name, Button& record) { return NewButton(page, surroundings, name, record); };
  parts.lblShips = NewLabel(page, mirror, "stats.lblShips", tab.lblShips);
  parts.shipsEdge = NewEdge(page);
  parts.shipEditingList = NewList(parts.shipsEdge, mirror, "stats.shipEditingList", tab.shipEditingList, smallestShips);
  parts.lblShipClass = NewLabel(page, mirror, "stats.lblShipClass", tab.lblShipClass, wxST_ELLIPSIZE_END);
  AddStats(parts, surroundings);
  parts.cmdRestoreShipStats = button("stats.cmdRestoreShipStats", tab.cmdRestoreShipStats);
  parts.cmdRestoreAllStats = button("stats.cmdRestoreAllStats", tab.cmdRestoreAllStats);
  AddWeapons(parts, surroundings);
  parts.cmdRestoreWeapons = button("stats.cmdRestoreWeapons", tab.cmdRestoreWeapons);
  parts.cmdEnable2 = button("stats.cmdEnable2", tab.cmdEnable2);
  parts.CmdDisable2 = button("stats.CmdDisable2", tab.CmdDisable2);
  return parts;
}

/// A line below a list, as high as the lines with buttons.
wxSizer* NewLine(const StatsParts& parts) {
  auto* line = new wxBoxSizer(wxHORIZONTAL);
  line->SetMinSize({-1, parts.cmdRestoreShipStats->GetBestSize().GetHeight()});
  return line;
}

wxSizer* LayOutShips(const StatsParts& parts) {
  const int space = parts.page->FromDIP(gap);
  Enframe(parts.shipsEdge, parts.shipEditingList);
  wxSizer* line = NewLine(parts);
  line->Add(parts.lblShipClass, wxSizerFlags(1).CentreVertical());
  auto* whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(parts.lblShips);
  whole->Add(parts.shipsEdge, wxSizerFlags(1).Expand().Border(wxTOP | wxBOTTOM, space));
  whole->Add(line, wxSizerFlags().Expand());
  return whole;
}

/// The list and its chart in one frame, so that the bars look like a column.
wxSizer* LayOutStats(const StatsParts& parts) {
  wxWindow* page = parts.page;
  const int space = page->FromDIP(gap);
  const int line = parts.statsEdge->FromDIP(1);
  auto* framed = new wxBoxSizer(wxHORIZONTAL);
  framed->Add(parts.shipStatsList, wxSizerFlags().Expand().Border(wxLEFT | wxTOP | wxBOTTOM, line));
  framed->Add(parts.chart, wxSizerFlags(1).Expand().Border(wxALL, line));
  parts.statsEdge->SetSizer(framed);

  EqualWidths({parts.cmdRestoreShipStats, parts.cmdRestoreAllStats});
  wxSizer* buttons = NewLine(parts);
  buttons->Add(parts.cmdRestoreShipStats, wxSizerFlags().CentreVertical());
  buttons->Add(parts.cmdRestoreAllStats, wxSizerFlags().CentreVertical().Border(wxLEFT, space));

  auto* whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(parts.legend, wxSizerFlags().Expand());
  whole->Add(parts.statsEdge, wxSizerFlags(1).Expand().Border(wxTOP | wxBOTTOM, space));
  whole->Add(buttons, wxSizerFlags().Expand());
  return whole;
}

wxSizer* LayOutWeapons(const StatsParts& parts) {
  wxWindow* page = parts.page;
  const int space = page->FromDIP(gap);
  Enframe(parts.weaponsEdge, parts.shipWeaponsList);
  Enframe(parts.topViewEdge, parts.topView);
  wxSizer* cloak = NewLine(parts);
  cloak->Add(parts.chkHasCloak, wxSizerFlags().CentreVertical());
  cloak->AddStretchSpacer();
  cloak->Add(parts.cmdRestoreWeapons, wxSizerFlags().CentreVertical().Border(wxLEFT, space));

  auto* whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(parts.lblWeapons);
  whole->Add(parts.weaponsEdge, wxSizerFlags(1).Expand().Border(wxTOP, space));
  whole->Add(parts.Label2, wxSizerFlags().Border(wxTOP | wxBOTTOM, space / 2));
  whole->Add(parts.topViewEdge, wxSizerFlags(1).Expand());
  whole->Add(cloak, wxSizerFlags().Expand().Border(wxTOP, space));
  return whole;
}

void LayOut(const StatsParts& parts) {
  wxWindow* page = parts.page;
  const int margin = page->FromDIP(pageMargin);
  auto* content = new wxBoxSizer(wxHORIZONTAL);
  content->Add(LayOutShips(parts), wxSizerFlags(4).Expand());
  content->Add(LayOutStats(parts), wxSizerFlags(11).Expand().Border(wxLEFT | wxRIGHT, margin));
  content->Add(LayOutWeapons(parts), wxSizerFlags(5).Expand());
  LayOutPage(page, content, new wxBoxSizer(wxHORIZONTAL), parts.cmdEnable2, parts.CmdDisable2);
}

void BindLists(const StatsParts& parts, StatsTab& tab, const Action& press) {
  parts.shipEditingList->selectionChanged = [press] { press("stats.shipEditingList.ItemClick"); };
  ListWindow& stats = *parts.shipStatsList;
  OnLabelEdited(stats, tab.shipStatsList, [press] { press("stats.shipStatsList.AfterLabelEdit"); });
  stats.Bind(wxEVT_LIST_ITEM_ACTIVATED, [&stats](wxListEvent& event) {
    // The click itself would take the focus from the text at once.
    stats.CallAfter([&stats, row = event.GetIndex()] { stats.EditLabel(row); });
  });
  stats.menuAsked = [&stats, &tab, press] { ShowStatsMenu(stats, tab, press); };
  ListWindow& weapons = *parts.shipWeaponsList;
  weapons.selectionChanged = [press] { press("stats.shipWeaponsList.ItemClick"); };
  weapons.menuAsked = [&weapons, &tab, press] { ShowWeaponMenu(weapons, tab, press); };
  parts.topView->clicked = [&weapons, &tab, press](std::size_t row) {
    SelectOnly(tab.shipWeaponsList, row);
    weapons.ShowRecord();  // before the list's selection is read
    press("stats.shipWeaponsList.ItemClick");
  };
}

}  // namespace

void FillStatsPage(wxPanel* page, const Surroundings& surroundings) {
  const StatsParts parts = NewStatsParts(page, surroundings);
  LayOut(parts);
  BindLists(parts, surroundings.main.stats, surroundings.press);
}

}  // namespace oravin::gui
