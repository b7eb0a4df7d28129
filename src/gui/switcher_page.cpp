#include <wx/panel.h>
#include <wx/sizer.h>

#include <string>

#include "gui/pages.h"
#include "gui/ship_legend.h"

namespace oravin::gui {

namespace {

constexpr int betweenWidth = 152;  // fixed, so that a changed caption does not move the lists
constexpr const char* doubleClick = "switcher.swapOrgList.DblClick";

ListWindow* NewShipList(wxWindow* parent, const SwitcherTab& tab, const ListView& record) {
  auto* list = new ListWindow(parent, record, [&tab](const ListRow& row) { return PictureOf(row, tab.shown); });
  list->SetSmallImages(ShipPictures());
  list->SetMinSize(parent->FromDIP(wxSize(220, 200)));
  return list;
}

}  // namespace

void FillSwitcherPage(wxPanel* page, const Surroundings& surroundings) {
  SwitcherTab& tab = surroundings.main.switcher;
  Mirror& mirror = surroundings.mirror;

  // In Tab order.
  wxWindow* left = NewEdge(page);
  ListWindow* targets = NewShipList(left, tab, tab.swapOrgList);
  Enframe(left, targets);
  Reflect(mirror, "switcher.swapOrgList", targets, tab.swapOrgList);
  targets->Bind(wxEVT_LIST_ITEM_ACTIVATED, [press = surroundings.press](wxListEvent&) { press(doubleClick); });
  targets->selectionChanged = [press = surroundings.press] { press("switcher.swapOrgList.ItemClick"); };
  wxButton* swap = NewButton(page, surroundings, "switcher.cmdSwap", tab.cmdSwap);
  wxButton* unswap = NewButton(page, surroundings, "switcher.cmdUnswap", tab.cmdUnswap);
  wxButton* unswapAll = NewButton(page, surroundings, "switcher.cmdUnswapAll", tab.cmdUnswapAll);
  wxButton* toggle = NewButton(page, surroundings, "switcher.cmdToggle", tab.cmdToggle);
  wxWindow* right = NewEdge(page);
  ListWindow* sources = NewShipList(right, tab, tab.swapToList);
  Enframe(right, sources);
  Reflect(mirror, "switcher.swapToList", sources, tab.swapToList);
  sources->selectionChanged = [press = surroundings.press] { press("switcher.swapToList.ItemClick"); };
  auto* legend = new ShipLegend(page);
  Name(mirror, "switcher.legend", legend);
  wxButton* enable = NewButton(page, surroundings, "switcher.cmdEnable", tab.cmdEnable);
  wxButton* disable = NewButton(page, surroundings, "switcher.cmdDisable", tab.cmdDisable);

  const int space = page->FromDIP(gap);
  auto* between = new wxBoxSizer(wxVERTICAL);
  between->SetMinSize(page->FromDIP(wxSize(betweenWidth, -1)));
  between->AddStretchSpacer();
  between->Add(swap, wxSizerFlags().Expand());
  between->AddSpacer(space);
  between->Add(unswap, wxSizerFlags().Expand());
  between->AddSpacer(3 * space);
  between->Add(unswapAll, wxSizerFlags().Expand());
  between->AddSpacer(3 * space);
  between->Add(toggle, wxSizerFlags().Expand());
  between->AddStretchSpacer();

  auto* lists = new wxBoxSizer(wxHORIZONTAL);
  lists->Add(left, wxSizerFlags(5).Expand());
  lists->Add(between, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, page->FromDIP(pageMargin)));
  lists->Add(right, wxSizerFlags(3).Expand());

  auto* belowLeft = new wxBoxSizer(wxHORIZONTAL);
  belowLeft->Add(legend);
  LayOutPage(page, lists, belowLeft, enable, disable);
}

}  // namespace oravin::gui
