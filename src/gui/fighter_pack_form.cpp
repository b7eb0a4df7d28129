#include "gui/fighter_pack_form.h"

#include <wx/panel.h>
#include <wx/sizer.h>

#include "gui/form_parts.h"
#include "gui/pages.h"
#include "gui/picture_pane.h"
#include "gui/text_edge.h"

namespace oravin::gui {

namespace {

/// The list of ships, which has focus first, and the buttons that check all or none.
wxSizer* NewShips(wxWindow* panel, const Surroundings& surroundings) {
  FighterPack& record = surroundings.main.importForm;
  const Action& press = surroundings.press;
  const int space = panel->FromDIP(gap);
  wxStaticText* label = NewLabel(panel, surroundings.mirror, "Fighter_PACK.lblPack", record.lblPack);
  wxWindow* edge = NewEdge(panel);
  auto* list = new ListWindow(edge, record.lstPack, {});
  Enframe(edge, list);
  Reflect(surroundings.mirror, "Fighter_PACK.lstPack", list, record.lstPack);
  list->SetShares({0.34, 0.14, 0.28, 0.24});
  LetShrink(*list, {320, 90});
  list->selectionChanged = [press] { press("Fighter_PACK.lstPack.ItemClick"); };
  OnLabelEdited(*list, record.lstPack, [press] { press("Fighter_PACK.lstPack.AfterLabelEdit"); });
  OnChecked(*list, record.lstPack, [press] { press("Fighter_PACK.lstPack.ItemCheck"); });
  wxButton* all = NewButton(panel, surroundings, "Fighter_PACK.cmdCheckAll", record.cmdCheckAll);
  wxButton* none = NewButton(panel, surroundings, "Fighter_PACK.cmdCheckNone", record.cmdCheckNone);
  EqualWidths({all, none});

  list->SetFocus();
  auto* checking = new wxBoxSizer(wxVERTICAL);
  checking->Add(all, wxSizerFlags().Expand());
  checking->Add(none, wxSizerFlags().Expand().Border(wxTOP, space));
  auto* ships = new wxBoxSizer(wxHORIZONTAL);
  ships->Add(edge, wxSizerFlags(1).Expand());
  ships->Add(checking, wxSizerFlags().Border(wxLEFT, space));
  auto* whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(label, wxSizerFlags().Expand());
  whole->Add(ships, wxSizerFlags(1).Expand().Border(wxTOP, space));
  return whole;
}

/// The textures of the selected ship and their pictures.
wxSizer* NewTextures(wxWindow* panel, const Surroundings& surroundings) {
  FighterPack& record = surroundings.main.importForm;
  const Action& press = surroundings.press;
  const int space = panel->FromDIP(gap);
  wxStaticText* label = NewLabel(panel, surroundings.mirror, "Fighter_PACK.lblTextures", record.lblTextures);
  wxWindow* edge = NewEdge(panel);
  auto* list = new ListWindow(edge, record.lstTextures, {});
  Enframe(edge, list);
  Reflect(surroundings.mirror, "Fighter_PACK.lstTextures", list, record.lstTextures);
  list->SetShares({0.2, 0.23, 0.23, 0.19, 0.15});
  LetShrink(*list, {320, 90});
  list->selectionChanged = [press] { press("Fighter_PACK.lstTextures.ItemClick"); };
  list->Bind(wxEVT_LIST_ITEM_ACTIVATED, [press, &record](wxListEvent&) {
    if (record.cmdFindBitmap.enabled) press("Fighter_PACK.cmdFindBitmap");
  });
  wxButton* find = NewButton(panel, surroundings, "Fighter_PACK.cmdFindBitmap", record.cmdFindBitmap);

  auto* listed = new wxBoxSizer(wxVERTICAL);
  listed->Add(label, wxSizerFlags().Expand());
  listed->Add(edge, wxSizerFlags(1).Expand().Border(wxTOP | wxBOTTOM, space));
  listed->Add(find, wxSizerFlags().Right());
  auto* whole = new wxBoxSizer(wxHORIZONTAL);
  whole->Add(listed, wxSizerFlags(3).Expand());
  whole->Add(NewPreview(panel, surroundings, "Fighter_PACK.preview", record.preview, false),
             wxSizerFlags(2).Expand().Border(wxLEFT, 2 * space));
  return whole;
}

}  // namespace

void ShowFighterPack(Window& window, Main& main) {
  FighterPack& record = main.importForm;
  wxDialog dialog(window.frame, wxID_ANY, ToScreen(record.caption), wxDefaultPosition, wxDefaultSize,
                  wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER);
  Form form{fighterPackForm, &dialog, {}, [&record] { return record.shown; }};
  const Surroundings surroundings{main, form.mirror,
                                  [&](const std::string& action) { Press(window, main, action, &form); }};
  auto* content = NewPanel(&dialog);
  auto* whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(NewShips(content, surroundings), wxSizerFlags(5).Expand());
  whole->Add(NewTextures(content, surroundings), wxSizerFlags(6).Expand().Border(wxTOP, dialog.FromDIP(pageMargin)));
  content->SetSizer(whole);
  LayOutForm(form, surroundings, content, {"Fighter_PACK.cmdImportShips", record.cmdImportShips},
             {"Fighter_PACK.cmdImportCancel", record.cmdImportCancel});
  SizeForm(dialog, wxSize(860, 600), wxSize(700, 470));
  ShowModally(window, form);
  record.shown = false;
}

}  // namespace oravin::gui
