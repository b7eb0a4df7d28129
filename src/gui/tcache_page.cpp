#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/toplevel.h>
#include <wx/weakref.h>

#include "gui/pages.h"
#include "gui/picture_pane.h"
#include "gui/thumbnail_list.h"

namespace oravin::gui {

namespace {

/// Both are set, so that the text is readable with every desktop theme.
constexpr unsigned long statusGround = 0xB8EAFF;  // 0xBBGGRR
constexpr unsigned long statusText = 0x103040;

/// The controls of the page.
struct TcacheParts {
  wxWindow* page = nullptr;
  wxStaticText* cacheLabel = nullptr;
  wxTextCtrl* txtTcacheSource = nullptr;
  wxButton* cmdBrowseTcacheSource = nullptr;
  wxButton* cmdOpenTcache = nullptr;
  wxButton* cmdCloseTcache = nullptr;
  wxStaticText* destinationLabel = nullptr;
  wxTextCtrl* txtTcacheDestination = nullptr;
  wxButton* cmdBrowseTcacheDestination = nullptr;
  wxButton* cmdExtractTcache = nullptr;
  wxButton* cmdSelectAllTcache = nullptr;
  wxButton* cmdSelectNoneTcache = nullptr;
  wxCheckBox* chkThumbnails = nullptr;
  wxButton* cmdRestoreTCACHE = nullptr;
  wxButton* cmdExit = nullptr;
  wxWindow* edge = nullptr;
  ListWindow* lstTcache = nullptr;
  ThumbnailList* thumbnails = nullptr;
  wxSizer* preview = nullptr;
  wxStaticText* lblTcacheSize = nullptr;
  wxStaticText* lblTcacheStructs = nullptr;
  wxStaticText* lblTcachePath = nullptr;
  wxWindow* status = nullptr;
};

ThumbnailList* NewThumbnails(wxWindow* edge, Main& main) {
  TcacheTab& tab = main.tcache;
  ThumbnailSource source;
  source.contents = [&tab] { return tab.openCache.empty() ? "" : tab.openCache + "?" + std::to_string(tab.seal); };
  source.pictureOf = [&main](const ListRow& row, int side) {
    return ThumbnailOf(main.host, main.tcache, main.installation, row, side);
  };
  auto* thumbnails = new ThumbnailList(edge, tab.lstTcache, source);
  thumbnails->Hide();
  return thumbnails;
}

/// The two views of the list, one of them visible.
void AddLists(TcacheParts& parts, const Surroundings& surroundings) {
  TcacheTab& tab = surroundings.main.tcache;
  parts.edge = NewEdge(parts.page);
  parts.lstTcache = new ListWindow(parts.edge, tab.lstTcache, {});
  parts.lstTcache->SetShares({0.4, 0.2, 0.2, 0.2});
  Reflect(surroundings.mirror, "tcache.lstTcache", parts.lstTcache, tab.lstTcache);
  parts.thumbnails = NewThumbnails(parts.edge, surroundings.main);
  Reflect(surroundings.mirror, "tcache.thumbnails", parts.thumbnails, [thumbnails = parts.thumbnails] {
    thumbnails->ShowRecord();
    return false;
  });
  Enframe(parts.edge, parts.lstTcache);
  Enframe(parts.edge, parts.thumbnails);
}

/// The line shown when the cache has changed on disk, with a button to open it again.
wxWindow* NewStatus(wxWindow* page, const Surroundings& surroundings) {
  TcacheTab& tab = surroundings.main.tcache;
  auto* status = NewPanel(page);
  status->SetBackgroundColour(statusGround);
  wxStaticText* label = NewLabel(status, surroundings.mirror, "tcache.lblTcacheStatus", tab.lblTcacheStatus);
  label->SetForegroundColour(statusText);
  wxButton* reopen = NewButton(status, surroundings, "tcache.cmdReopenTcache", tab.cmdReopenTcache);
  const int space = page->FromDIP(gap);
  auto* sizer = new wxBoxSizer(wxHORIZONTAL);
  sizer->Add(label, wxSizerFlags(1).CentreVertical().Border(wxLEFT, space));
  sizer->Add(reopen, wxSizerFlags().CentreVertical().Border(wxALL, space / 2));
  status->SetSizer(sizer);
  status->Hide();
  surroundings.mirror.reflections.back().show = [status, reopen, &tab] {
    const bool changed = status->Show(!tab.lblTcacheStatus.caption.empty());
    if (changed) status->GetParent()->Layout();
    return Show(*reopen, tab.cmdReopenTcache);
  };
  return status;
}

/// Makes the controls in Tab order; a label's access key leads to the next control.
TcacheParts NewTcacheParts(wxWindow* page, const Surroundings& surroundings) {
  TcacheTab& tab = surroundings.main.tcache;
  Mirror& mirror = surroundings.mirror;
  TcacheParts parts;
  parts.page = page;
  const auto button = [&](const char* name, Button& record) { return NewButton(page, surroundings, name, record); };
  parts.cacheLabel = NewLabel(page, mirror, "tcache.lblTCACHE[1]", tab.lblTCACHE[1]);
  parts.txtTcacheSource = NewText(page, mirror, "tcache.txtTcacheSource", tab.txtTcacheSource, wxTE_PROCESS_ENTER);
  parts.cmdBrowseTcacheSource = button("tcache.cmdBrowseTcacheSource", tab.cmdBrowseTcacheSource);
  parts.cmdOpenTcache = button("tcache.cmdOpenTcache", tab.cmdOpenTcache);
  parts.cmdCloseTcache = button("tcache.cmdCloseTcache", tab.cmdCloseTcache);
  parts.destinationLabel = NewLabel(page, mirror, "tcache.lblTCACHE[0]", tab.lblTCACHE[0]);
  parts.txtTcacheDestination = NewText(page, mirror, "tcache.txtTcacheDestination", tab.txtTcacheDestination);
  parts.cmdBrowseTcacheDestination = button("tcache.cmdBrowseTcacheDestination", tab.cmdBrowseTcacheDestination);
  parts.cmdExtractTcache = button("tcache.cmdExtractTcache", tab.cmdExtractTcache);
  parts.cmdSelectAllTcache = button("tcache.cmdSelectAllTcache", tab.cmdSelectAllTcache);
  parts.cmdSelectNoneTcache = button("tcache.cmdSelectNoneTcache", tab.cmdSelectNoneTcache);
  parts.chkThumbnails = NewCheckBox(page, mirror, "tcache.chkThumbnails", tab.chkThumbnails, {});
  parts.cmdRestoreTCACHE = button("tcache.cmdRestoreTCACHE", tab.cmdRestoreTCACHE);
  parts.cmdExit = button("tcache.cmdExit", tab.cmdExit);
  AddLists(parts, surroundings);
  parts.preview = NewPreview(page, surroundings, "tcache.preview", tab.preview, true);
  parts.lblTcacheSize = NewLabel(page, mirror, "tcache.lblTcacheSize", tab.lblTcacheSize);
  parts.lblTcacheStructs = NewLabel(page, mirror, "tcache.lblTcacheStructs", tab.lblTcacheStructs, wxST_ELLIPSIZE_END);
  parts.lblTcachePath = NewLabel(page, mirror, "tcache.lblTcachePath", tab.lblTcachePath, wxST_ELLIPSIZE_MIDDLE);
  parts.status = NewStatus(page, surroundings);
  return parts;
}

/// The lines above the list.
void AddTopLines(wxSizer* whole, const TcacheParts& parts) {
  const int space = parts.page->FromDIP(gap);
  EqualWidths({parts.cmdBrowseTcacheSource, parts.cmdOpenTcache, parts.cmdCloseTcache, parts.cmdBrowseTcacheDestination,
               parts.cmdExtractTcache, parts.cmdSelectAllTcache, parts.cmdSelectNoneTcache, parts.cmdRestoreTCACHE,
               parts.cmdExit});
  whole->Add(NewFieldLines(parts.page, {{parts.cacheLabel,
                                         FieldOf(parts.txtTcacheSource),
                                         {parts.cmdBrowseTcacheSource, parts.cmdOpenTcache, parts.cmdCloseTcache}},
                                        {parts.destinationLabel,
                                         FieldOf(parts.txtTcacheDestination),
                                         {parts.cmdBrowseTcacheDestination, parts.cmdExtractTcache}}}),
             wxSizerFlags().Expand());
  auto* line = new wxBoxSizer(wxHORIZONTAL);
  line->Add(parts.cmdSelectAllTcache, wxSizerFlags().CentreVertical());
  line->Add(parts.cmdSelectNoneTcache, wxSizerFlags().CentreVertical().Border(wxLEFT, space));
  line->Add(parts.chkThumbnails, wxSizerFlags().CentreVertical().Border(wxLEFT, 2 * space));
  line->AddStretchSpacer();
  line->Add(parts.cmdRestoreTCACHE, wxSizerFlags().CentreVertical());
  line->Add(parts.cmdExit, wxSizerFlags().CentreVertical().Border(wxLEFT, space));
  whole->Add(line, wxSizerFlags().Expand().Border(wxTOP, space));
}

void LayOut(const TcacheParts& parts) {
  wxWindow* page = parts.page;
  const int space = page->FromDIP(gap);
  const int margin = page->FromDIP(pageMargin);
  auto* middle = new wxBoxSizer(wxHORIZONTAL);
  middle->Add(parts.edge, wxSizerFlags(3).Expand());
  middle->Add(parts.preview, wxSizerFlags(2).Expand().Border(wxLEFT, margin));
  auto* totals = new wxBoxSizer(wxHORIZONTAL);
  totals->Add(parts.lblTcacheSize, wxSizerFlags().CentreVertical());
  totals->Add(parts.lblTcacheStructs, wxSizerFlags(2).CentreVertical().Border(wxLEFT, 3 * space));
  totals->Add(parts.lblTcachePath, wxSizerFlags(3).CentreVertical().Border(wxLEFT, space));

  auto* whole = new wxBoxSizer(wxVERTICAL);
  AddTopLines(whole, parts);
  whole->Add(middle, wxSizerFlags(1).Expand().Border(wxTOP, margin));
  whole->Add(totals, wxSizerFlags().Expand().Border(wxTOP, space));
  whole->Add(parts.status, wxSizerFlags().Expand().Border(wxTOP, space));
  auto* framed = new wxBoxSizer(wxVERTICAL);
  framed->Add(whole, wxSizerFlags(1).Expand().Border(wxALL, margin));
  page->SetSizer(framed);
}

/// Both views handle the same keys and run the same actions.
void BindLists(const TcacheParts& parts, TcacheTab& tab, const Action& press) {
  ListWindow& list = *parts.lstTcache;
  ThumbnailList& thumbnails = *parts.thumbnails;
  OnHeadingClick(list, tab.lstTcache, [press] { press("tcache.lstTcache.ColumnClick"); });
  OnLabelEdited(list, tab.lstTcache, [press] { press("tcache.lstTcache.AfterLabelEdit"); });
  list.selectionChanged = [press] { press("tcache.lstTcache.ItemClick"); };
  list.Bind(wxEVT_LIST_ITEM_ACTIVATED, [press](wxListEvent&) { press("tcache.lstTcache.DblClick"); });
  thumbnails.selectionChanged = [&list, press] {
    list.ShowRecord();  // before the list's selection is read
    press("tcache.lstTcache.ItemClick");
  };
  thumbnails.activated = [press] { press("tcache.lstTcache.DblClick"); };
  parts.edge->Bind(wxEVT_CHAR_HOOK, [&list, press](wxKeyEvent& event) {
    const bool all = event.GetModifiers() == wxMOD_CONTROL && event.GetKeyCode() == 'A';
    if (all && list.GetEditControl() == nullptr) {
      press("tcache.cmdSelectAllTcache");
    } else {
      event.Skip();
    }
  });
}

/// Shows the view that the check box selects.
void ShowForm(const TcacheParts& parts, bool pictures) {
  parts.thumbnails->ShowRecord();
  parts.lstTcache->Show(!pictures);
  parts.thumbnails->Show(pictures);
  parts.edge->Layout();
  if (pictures) parts.thumbnails->ShowChosenRow();
}

/// Checks the cache on disk whenever the page is activated: by its tab, or when returning from another program.
void BindArrival(wxWindow* page, const Action& press) {
  const auto arrived = [press, page = wxWeakRef<wxWindow>(page)](bool comes, wxEvent& event) {
    event.Skip();
    if (!comes || !page) return;
    page->CallAfter([press, page] {
      if (page && page->IsShownOnScreen()) press("tcache.Activate");
    });
  };
  page->GetParent()->Bind(wxEVT_NOTEBOOK_PAGE_CHANGED, [arrived](wxBookCtrlEvent& event) { arrived(true, event); });
  wxGetTopLevelParent(page)->Bind(wxEVT_ACTIVATE,
                                  [arrived](wxActivateEvent& event) { arrived(event.GetActive(), event); });
}

}  // namespace

void FillTcachePage(wxPanel* page, const Surroundings& surroundings) {
  TcacheTab& tab = surroundings.main.tcache;
  const TcacheParts parts = NewTcacheParts(page, surroundings);
  LayOut(parts);
  BindLists(parts, tab, surroundings.press);
  parts.chkThumbnails->Bind(wxEVT_CHECKBOX, [parts](wxCommandEvent& event) {
    event.Skip();
    ShowForm(parts, event.IsChecked());
  });
  parts.txtTcacheSource->Bind(wxEVT_TEXT_ENTER, [&tab, press = surroundings.press](wxCommandEvent&) {
    if (tab.cmdOpenTcache.enabled) press("tcache.cmdOpenTcache");
  });
  BindArrival(parts.page, surroundings.press);
}

}  // namespace oravin::gui
