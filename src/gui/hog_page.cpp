#include <wx/menu.h>
#include <wx/panel.h>
#include <wx/sizer.h>

#include <array>
#include <vector>

#include "gui/file_drop.h"
#include "gui/pages.h"
#include "gui/text_edge.h"

namespace oravin::gui {

namespace {

constexpr int linesOfFirstBytes = 6;

/// The controls of the page.
struct HogParts {
  wxWindow* page = nullptr;
  wxStaticText* lblHogPath = nullptr;
  wxTextCtrl* txtHogPath = nullptr;
  wxButton* cmdBrowseHogPath = nullptr;
  wxButton* cmdOpen = nullptr;
  wxButton* cmdCloseHog = nullptr;
  wxStaticText* lblHogDest = nullptr;
  wxTextCtrl* txtHogDest = nullptr;
  wxButton* cmdBrowseHogDest = nullptr;
  wxButton* cmdExtract = nullptr;
  wxButton* cmdUnpackExtract = nullptr;
  wxStaticText* lblFilter = nullptr;
  wxTextCtrl* txtFilter = nullptr;
  wxButton* cmdSelectAll = nullptr;
  wxButton* cmdSelectNone = nullptr;
  wxButton* cmdBackupFAT = nullptr;
  wxButton* cmdRestoreFAT = nullptr;
  wxWindow* edge = nullptr;
  ListWindow* hogList = nullptr;
  wxStaticText* lblHogSize = nullptr;
  wxStaticText* lblHogFiles = nullptr;
  wxStaticText* lblShown = nullptr;
  wxButton* cmdFirstBytes = nullptr;
  wxTextCtrl* txtFirstBytes = nullptr;
  wxStaticText* lblFilePath = nullptr;
};

wxTextCtrl* NewFirstBytes(wxWindow* page, Mirror& mirror, TextBox& record) {
  wxTextCtrl* text = NewText(page, mirror, "hog.txtFirstBytes", record, wxTE_MULTILINE | wxTE_READONLY | wxTE_DONTWRAP);
  Monospace(text);
  const int line = text->GetTextExtent("0").GetHeight();
  text->SetMinSize({page->FromDIP(100), linesOfFirstBytes * line + page->FromDIP(gap)});
  return text;
}

/// Makes the controls in Tab order; a label's access key leads to the next control.
HogParts NewHogParts(wxWindow* page, const Surroundings& surroundings) {
  HogTab& tab = surroundings.main.hog;
  Mirror& mirror = surroundings.mirror;
  HogParts parts;
  parts.page = page;
  const auto button = [&](const char* name, Button& record) { return NewButton(page, surroundings, name, record); };
  parts.lblHogPath = NewLabel(page, mirror, "hog.lblHogPath", tab.lblHogPath);
  parts.txtHogPath = NewText(page, mirror, "hog.txtHogPath", tab.txtHogPath, wxTE_PROCESS_ENTER);
  parts.cmdBrowseHogPath = button("hog.cmdBrowseHogPath", tab.cmdBrowseHogPath);
  parts.cmdOpen = button("hog.cmdOpen", tab.cmdOpen);
  parts.cmdCloseHog = button("hog.cmdCloseHog", tab.cmdCloseHog);
  parts.lblHogDest = NewLabel(page, mirror, "hog.lblHogDest", tab.lblHogDest);
  parts.txtHogDest = NewText(page, mirror, "hog.txtHogDest", tab.txtHogDest);
  parts.cmdBrowseHogDest = button("hog.cmdBrowseHogDest", tab.cmdBrowseHogDest);
  parts.cmdExtract = button("hog.cmdExtract", tab.cmdExtract);
  parts.cmdUnpackExtract = button("hog.cmdUnpackExtract", tab.cmdUnpackExtract);
  parts.lblFilter = NewLabel(page, mirror, "hog.lblFilter", tab.lblFilter);
  parts.txtFilter = NewText(page, mirror, "hog.txtFilter", tab.txtFilter);
  parts.cmdSelectAll = button("hog.cmdSelectAll", tab.cmdSelectAll);
  parts.cmdSelectNone = button("hog.cmdSelectNone", tab.cmdSelectNone);
  parts.cmdBackupFAT = button("hog.cmdBackupFAT", tab.cmdBackupFAT);
  parts.cmdRestoreFAT = button("hog.cmdRestoreFAT", tab.cmdRestoreFAT);
  parts.edge = NewEdge(page);
  parts.hogList = new ListWindow(parts.edge, tab.hogList, {});
  Enframe(parts.edge, parts.hogList);
  Reflect(mirror, "hog.hogList", parts.hogList, tab.hogList);
  parts.lblHogSize = NewLabel(page, mirror, "hog.lblHogSize", tab.lblHogSize);
  parts.lblHogFiles = NewLabel(page, mirror, "hog.lblHogFiles", tab.lblHogFiles);
  parts.lblShown = NewLabel(page, mirror, "hog.lblShown", tab.lblShown, wxST_ELLIPSIZE_END);
  parts.cmdFirstBytes = button("hog.cmdFirstBytes", tab.cmdFirstBytes);
  parts.txtFirstBytes = NewFirstBytes(page, mirror, tab.txtFirstBytes);
  parts.lblFilePath = NewLabel(page, mirror, "hog.lblFilePath", tab.lblFilePath, wxST_ELLIPSIZE_MIDDLE);
  return parts;
}

/// The three lines above the list, with labels, fields and buttons in columns.
wxSizer* NewTopLines(const HogParts& parts) {
  wxWindow* page = parts.page;
  auto* filter = FieldOf(parts.txtFilter);
  filter->Add(parts.cmdSelectAll, wxSizerFlags().CentreVertical().Border(wxLEFT, page->FromDIP(gap)));
  const std::vector<FieldLine> lines = {
      {parts.lblHogPath, FieldOf(parts.txtHogPath), {parts.cmdBrowseHogPath, parts.cmdOpen, parts.cmdCloseHog}},
      {parts.lblHogDest, FieldOf(parts.txtHogDest), {parts.cmdBrowseHogDest, parts.cmdExtract, parts.cmdUnpackExtract}},
      {parts.lblFilter, filter, {parts.cmdSelectNone, parts.cmdBackupFAT, parts.cmdRestoreFAT}}};
  std::vector<wxButton*> buttons = {parts.cmdSelectAll};
  for (const FieldLine& line : lines) buttons.insert(buttons.end(), line.buttons.begin(), line.buttons.end());
  EqualWidths(buttons);
  return NewFieldLines(page, lines);
}

void LayOut(const HogParts& parts) {
  wxWindow* page = parts.page;
  const int space = page->FromDIP(gap);
  auto* totals = new wxBoxSizer(wxHORIZONTAL);
  totals->Add(parts.lblHogSize, wxSizerFlags().CentreVertical());
  totals->Add(parts.lblHogFiles, wxSizerFlags().CentreVertical().Border(wxLEFT, 3 * space));
  totals->Add(parts.lblShown, wxSizerFlags(1).CentreVertical().Border(wxLEFT, 3 * space));
  totals->Add(parts.cmdFirstBytes, wxSizerFlags().CentreVertical().Border(wxLEFT, space));

  auto* whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(NewTopLines(parts), wxSizerFlags().Expand());
  whole->Add(parts.edge, wxSizerFlags(1).Expand().Border(wxTOP, page->FromDIP(pageMargin)));
  whole->Add(totals, wxSizerFlags().Expand().Border(wxTOP, space));
  whole->Add(parts.txtFirstBytes, wxSizerFlags().Expand().Border(wxTOP, space));
  whole->Add(parts.lblFilePath, wxSizerFlags().Expand().Border(wxTOP, space));
  auto* framed = new wxBoxSizer(wxVERTICAL);
  framed->Add(whole, wxSizerFlags(1).Expand().Border(wxALL, page->FromDIP(pageMargin)));
  page->SetSizer(framed);
}

/// Shows the context menu where the list asked for it.
void ShowPopup(ListWindow& list, const HogTab& tab, const Action& press) {
  // The click that opens the menu may also have selected the row, which changes the menu.
  press("hog.hogList.ItemClick");
  struct Item {
    const MenuItem& record;
    const char* action;
  };
  const std::array<Item, 3> items = {{{tab.pldHogCopy, "hog.pldHogCopy"},
                                      {tab.pldHogPaste, "hog.pldHogPaste"},
                                      {tab.pldHogProperties, "hog.pldHogProperties"}}};
  wxMenu menu;
  for (int i = 0; i < static_cast<int>(items.size()); ++i) {
    const MenuItem& record = items.at(static_cast<std::size_t>(i)).record;
    if (&record == &tab.pldHogProperties) menu.AppendSeparator();
    menu.Append(i, ToScreen(record.caption))->Enable(record.enabled);
  }
  const int chosen = list.GetPopupMenuSelectionFromUser(menu, list.MenuPlace());
  if (chosen != wxID_NONE) press(items.at(static_cast<std::size_t>(chosen)).action);
}

void BindList(ListWindow& list, HogTab& tab, const Action& press) {
  OnHeadingClick(list, tab.hogList, [press] { press("hog.hogList.ColumnClick"); });
  list.selectionChanged = [press] { press("hog.hogList.ItemClick"); };
  list.Bind(wxEVT_LIST_ITEM_ACTIVATED, [press](wxListEvent&) { press("hog.hogList.DblClick"); });
  list.menuAsked = [&list, &tab, press] {
    if (!tab.hogList.rows.empty()) ShowPopup(list, tab, press);
  };
  list.Bind(wxEVT_CHAR_HOOK, [press](wxKeyEvent& event) {
    const bool control = event.GetModifiers() == wxMOD_CONTROL;
    if (control && event.GetKeyCode() == 'A') {
      press("hog.cmdSelectAll");
    } else if (control && event.GetKeyCode() == 'C') {
      press("hog.pldHogCopy");
    } else {
      event.Skip();
    }
  });
}

void BindTexts(const HogParts& parts, const Action& press) {
  parts.txtHogPath->Bind(wxEVT_TEXT_ENTER, [press](wxCommandEvent&) { press("hog.cmdOpen"); });
  // Changes by the record cause no such event.
  parts.txtFilter->Bind(wxEVT_TEXT, [press](wxCommandEvent&) { press("hog.txtFilter.Change"); });
  parts.txtFilter->Bind(wxEVT_CHAR_HOOK, [text = parts.txtFilter](wxKeyEvent& event) {
    if (event.GetKeyCode() == WXK_ESCAPE && !text->IsEmpty()) {
      text->Clear();
    } else {
      event.Skip();
    }
  });
}

/// Opens a dropped file, unless it is one to import.
void AcceptDrops(const HogParts& parts, const Surroundings& surroundings) {
  const auto any = [](const std::string&) { return true; };
  const auto dropped = [text = parts.txtHogPath, surroundings](const std::string& path) {
    if (IsShipFile(path)) return surroundings.importFile(path);
    text->ChangeValue(ToScreen(path));
    surroundings.press("hog.cmdOpen");
  };
  for (wxWindow* window : {parts.page, static_cast<wxWindow*>(parts.hogList)}) OnFileDropped(window, any, dropped);
}

}  // namespace

void FillHogPage(wxPanel* page, const Surroundings& surroundings) {
  const HogParts parts = NewHogParts(page, surroundings);
  parts.hogList->SetShares({0.55, 0.16, 0.16, 0.13});
  LayOut(parts);
  BindList(*parts.hogList, surroundings.main.hog, surroundings.press);
  BindTexts(parts, surroundings.press);
  AcceptDrops(parts, surroundings);
}

}  // namespace oravin::gui
