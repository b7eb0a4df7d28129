#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/statbox.h>

#include <array>

#include "gui/pages.h"
#include "gui/picture_pane.h"
#include "gui/text_edge.h"

namespace oravin::gui {

namespace {

constexpr int purposePictureSize = 64;

/// What the page is for, behind a picture.
wxSizer* NewPurpose(wxWindow* page, const Surroundings& surroundings) {
  auto* picture = new wxStaticBitmap(page, wxID_ANY, ImportPicture({purposePictureSize, purposePictureSize}));
  wxStaticText* line = NewLabel(page, surroundings.mirror, "imports.purpose", surroundings.main.imports.purpose);
  Enlarge(line, 1.2F);
  auto* sizer = new wxBoxSizer(wxHORIZONTAL);
  sizer->Add(picture, wxSizerFlags().CentreVertical());
  sizer->AddSpacer(page->FromDIP(2 * gap));
  sizer->Add(line, wxSizerFlags(1).CentreVertical());
  return sizer;
}

/// What the bitmap says of itself, in one line.
wxSizer* NewInfo(wxWindow* frame, const Surroundings& surroundings) {
  auto& labels = surroundings.main.imports.texture.lblBMPinfo;
  auto* sizer = new wxBoxSizer(wxHORIZONTAL);
  for (std::size_t i = 0; i < labels.size(); ++i) {
    const std::string name = "imports.lblBMPinfo[" + std::to_string(i) + "]";
    wxStaticText* label = NewLabel(frame, surroundings.mirror, name, labels.at(i));
    // Wide enough for what comes behind it, so that the next one stays where it is.
    label->SetMinSize({frame->GetTextExtent("Blocks: 00000").GetWidth(), -1});
    sizer->Add(label, wxSizerFlags().Border(wxRIGHT, frame->FromDIP(gap)));
  }
  return sizer;
}

/// Has the name's box take the keyboard when its record wants that, once.
void GiveFocus(wxTextCtrl* name, ImportTexturePanel& panel) {
  if (!panel.nameTakesFocus) return;
  panel.nameTakesFocus = false;
  name->CallAfter([name] { name->SetFocus(); });  // after the action, which gives it back to what had it
}

wxSizer* NewFields(wxWindow* frame, const Surroundings& surroundings) {
  ImportTexturePanel& panel = surroundings.main.imports.texture;
  Mirror& mirror = surroundings.mirror;
  const int space = frame->FromDIP(gap);
  wxStaticText* nameLabel = NewLabel(frame, mirror, "imports.lbl3DConv[0]", panel.lbl3DConv[0]);
  wxTextCtrl* name = NewText(frame, mirror, "imports.txtImportTextureName", panel.txtImportTextureName);
  mirror.reflections.back().show = [name, &panel] {
    GiveFocus(name, panel);
    return Show(*name, panel.txtImportTextureName);
  };
  wxStaticText* pathLabel = NewLabel(frame, mirror, "imports.lbl3DConv[1]", panel.lbl3DConv[1]);
  wxTextCtrl* path = NewText(frame, mirror, "imports.txtImportTexturePath", panel.txtImportTexturePath);
  path->Bind(wxEVT_KILL_FOCUS, [path, press = surroundings.press](wxFocusEvent& event) {
    event.Skip();
    path->CallAfter([press] { press("imports.txtImportTexturePath.LostFocus"); });
  });
  wxButton* browse = NewButton(frame, surroundings, "imports.cmdImportTextureBrowse", panel.cmdImportTextureBrowse);
  wxCheckBox* fighter = NewCheckBox(frame, mirror, "imports.chkForFighter", panel.chkForFighter, {});
  wxButton* import = NewButton(frame, surroundings, "imports.cmdImportTexture", panel.cmdImportTexture);
  EqualWidths({browse, import});

  auto* action = new wxBoxSizer(wxHORIZONTAL);
  action->Add(fighter, wxSizerFlags().CentreVertical());
  action->AddStretchSpacer();
  action->Add(import, wxSizerFlags().CentreVertical());
  auto* whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(NewFieldLines(frame, {{nameLabel, FieldOf(name), {}}, {pathLabel, FieldOf(path), {browse}}}),
             wxSizerFlags().Expand());
  whole->Add(action, wxSizerFlags().Expand().Border(wxTOP, space));
  whole->AddSpacer(2 * space);
  whole->Add(NewInfo(frame, surroundings), wxSizerFlags().Expand());
  return whole;
}

wxSizer* NewTexturePanel(wxWindow* page, const Surroundings& surroundings) {
  ImportTexturePanel& panel = surroundings.main.imports.texture;
  auto* whole = new wxStaticBoxSizer(wxHORIZONTAL, page, ToScreen(panel.frameTextureImport.caption));
  wxWindow* frame = whole->GetStaticBox();
  const int margin = page->FromDIP(pageMargin);
  whole->Add(NewFields(frame, surroundings), wxSizerFlags(3).Expand().Border(wxALL, margin));
  whole->Add(NewPreview(frame, surroundings, "imports.preview", panel.preview, false),
             wxSizerFlags(2).Expand().Border(wxTOP | wxRIGHT | wxBOTTOM, margin));
  return whole;
}

}  // namespace

wxWindow* NewImportPage(wxWindow* parent, const Surroundings& surroundings) {
  auto* page = new wxPanel(parent);
  const int margin = page->FromDIP(pageMargin);
  auto* whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(NewPurpose(page, surroundings), wxSizerFlags().Expand().Border(wxALL, margin));
  whole->AddStretchSpacer(1);
  whole->Add(NewTexturePanel(page, surroundings), wxSizerFlags(4).Expand().Border(wxALL, margin));
  page->SetSizer(whole);
  return page;
}

}  // namespace oravin::gui
