#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/statbox.h>

#include "gui/file_drop.h"
#include "gui/import_texture_frame.h"
#include "gui/pages.h"
#include "gui/text_edge.h"

namespace oravin::gui {

namespace {

ListWindow* NewImportedList(wxWindow* edge, const Surroundings& surroundings) {
  ListView& record = surroundings.main.imports.lstImported;
  const Action& press = surroundings.press;
  // All ships here are imported; their class alone determines the picture.
  auto* list = new ListWindow(edge, record, [](const ListRow& row) { return PictureOf(row, ShipsShown::fighters); });
  list->SetSmallImages(ShipPictures());
  LetShrink(*list, {220, 120});
  Reflect(surroundings.mirror, "imports.lstImported", list, record);
  list->selectionChanged = [press] { press("imports.lstImported.ItemClick"); };
  OnLabelEdited(*list, record, [press] { press("imports.lstImported.AfterLabelEdit"); });
  list->Bind(wxEVT_LIST_ITEM_ACTIVATED, [press](wxListEvent&) { press("imports.lstImported.DblClick"); });
  list->Bind(wxEVT_CHAR_HOOK, [list, press](wxKeyEvent& event) {
    const bool removes = event.GetKeyCode() == WXK_DELETE && !event.HasModifiers() && list->GetEditControl() == nullptr;
    if (removes && list->GetSelectedItemCount() > 0) {
      press("imports.cmdRemoveShips");
    } else {
      event.Skip();
    }
  });
  return list;
}

/// The file to import, and below it the list of imported ships.
wxSizer* NewShipsFrame(wxWindow* page, const Surroundings& surroundings) {
  ImportTab& tab = surroundings.main.imports;
  wxStaticBoxSizer* framed = NewFrame(page, tab.frameImport);
  wxWindow* frame = framed->GetStaticBox();
  const int space = page->FromDIP(gap);
  wxTextCtrl* path =
      NewText(frame, surroundings.mirror, "imports.txtImportFighter", tab.txtImportFighter, wxTE_PROCESS_ENTER);
  path->SetHint("A ship model or ship pack");
  path->Bind(wxEVT_TEXT_ENTER,
             [press = surroundings.press](wxCommandEvent&) { press("imports.txtImportFighter.Enter"); });
  OnFileDropped(path, IsShipFile, surroundings.importFile);  // else the text box would take the file
  wxButton* browse = NewButton(frame, surroundings, "imports.cmdImportFighterBrowse", tab.cmdImportFighterBrowse);
  wxWindow* edge = NewEdge(frame);
  Enframe(edge, NewImportedList(edge, surroundings));
  wxButton* remove = NewButton(frame, surroundings, "imports.cmdRemoveShips", tab.cmdRemoveShips);
  wxButton* removeAll = NewButton(frame, surroundings, "imports.cmdRemoveAll", tab.cmdRemoveAll);
  EqualWidths({remove, removeAll});

  auto* given = new wxBoxSizer(wxHORIZONTAL);
  given->Add(path, wxSizerFlags(1).CentreVertical());
  given->Add(browse, wxSizerFlags().CentreVertical().Border(wxLEFT, space));
  auto* removing = new wxBoxSizer(wxHORIZONTAL);
  removing->AddStretchSpacer();
  removing->Add(remove);
  removing->Add(removeAll, wxSizerFlags().Border(wxLEFT, space));
  auto* whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(given, wxSizerFlags().Expand());
  whole->Add(edge, wxSizerFlags(1).Expand().Border(wxTOP | wxBOTTOM, space));
  whole->Add(removing, wxSizerFlags().Expand());
  framed->Add(whole, wxSizerFlags(1).Expand().Border(wxALL, space));
  return framed;
}

/// A text box of the converter, which an action may focus.
wxTextCtrl* NewMeshText(wxWindow* frame, Mirror& mirror, const std::string& name, TextBox& record, bool& takesFocus) {
  wxTextCtrl* text = NewText(frame, mirror, name, record);
  mirror.reflections.back().show = [text, &record, &takesFocus] {
    GiveFocus(text, takesFocus);
    return Show(*text, record);
  };
  return text;
}

/// The frame for converting a mesh.
wxSizer* NewConvertFrame(wxWindow* page, const Surroundings& surroundings) {
  ConvertPanel& panel = surroundings.main.convert;
  Mirror& mirror = surroundings.mirror;
  wxStaticBoxSizer* framed = NewFrame(page, panel.frame3DConversion);
  wxWindow* frame = framed->GetStaticBox();
  const auto button = [&](const char* name, Button& record) { return NewButton(frame, surroundings, name, record); };
  wxStaticText* sourceLabel = NewLabel(frame, mirror, "convert.lbl3DSource", panel.lbl3DSource);
  wxTextCtrl* source = NewMeshText(frame, mirror, "convert.txt3DSource", panel.txt3DSource, panel.sourceTakesFocus);
  wxButton* browse = button("convert.cmd3DSourceBrowse", panel.cmd3DSourceBrowse);
  wxStaticText* destinationLabel = NewLabel(frame, mirror, "convert.lbl3DDest", panel.lbl3DDest);
  wxTextCtrl* destination =
      NewMeshText(frame, mirror, "convert.txt3DDest", panel.txt3DDest, panel.destinationTakesFocus);
  wxButton* convert = button("convert.cmdConvert3dsToSL", panel.cmdConvert3dsToSL);
  wxButton* readme = button("convert.cmd3d2SLReadme", panel.cmd3d2SLReadme);
  EqualWidths({browse, convert, readme});
  wxSizer* lines = NewFieldLines(
      frame, {{sourceLabel, FieldOf(source), {browse, readme}}, {destinationLabel, FieldOf(destination), {convert}}});
  framed->Add(lines, wxSizerFlags().Expand().Border(wxALL, page->FromDIP(gap)));
  return framed;
}

}  // namespace

void FillImportPage(wxPanel* page, const Surroundings& surroundings) {
  const int margin = page->FromDIP(pageMargin);
  auto* upper = new wxBoxSizer(wxHORIZONTAL);
  wxSizer* ships = NewShipsFrame(page, surroundings);
  wxSizer* convert = NewConvertFrame(page, surroundings);  // before the rarely used controls in Tab order
  wxSizer* textures = NewTextureFrame(page, surroundings);
  upper->Add(ships, wxSizerFlags(4).Expand());
  upper->Add(textures, wxSizerFlags(5).Expand().Border(wxLEFT, margin));
  auto* whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(upper, wxSizerFlags(1).Expand());
  whole->Add(convert, wxSizerFlags().Expand().Border(wxTOP, page->FromDIP(gap)));
  auto* framed = new wxBoxSizer(wxVERTICAL);
  framed->Add(whole, wxSizerFlags(1).Expand().Border(wxALL, margin));
  page->SetSizer(framed);
}

}  // namespace oravin::gui
