#include "gui/import_texture_frame.h"

#include <wx/sizer.h>
#include <wx/statbox.h>

#include "gui/picture_pane.h"

namespace oravin::gui {

namespace {

/// The bitmap's properties, in two lines of two.
wxSizer* NewInfo(wxWindow* frame, const Surroundings& surroundings) {
  auto& labels = surroundings.main.imports.texture.lblBMPinfo;
  auto* grid = new wxGridSizer(2, frame->FromDIP(gap / 2), frame->FromDIP(gap));
  for (std::size_t i = 0; i < labels.size(); ++i) {
    const std::string name = "imports.lblBMPinfo[" + std::to_string(i) + "]";
    wxStaticText* label = NewLabel(frame, surroundings.mirror, name, labels.at(i));
    // Fixed width, so that the next label does not move.
    label->SetMinSize({frame->GetTextExtent("Blocks: 00000").GetWidth(), -1});
    grid->Add(label);
  }
  return grid;
}

/// The fields in Tab order, with the import button below them.
struct Fields {
  wxSizer* lines = nullptr;
  wxSizer* below = nullptr;
};

wxTextCtrl* NewName(wxWindow* frame, const Surroundings& surroundings) {
  ImportTexturePanel& panel = surroundings.main.imports.texture;
  wxTextCtrl* name = NewText(frame, surroundings.mirror, "imports.txtImportTextureName", panel.txtImportTextureName);
  surroundings.mirror.reflections.back().show = [name, &panel] {
    GiveFocus(name, panel.nameTakesFocus);
    return Show(*name, panel.txtImportTextureName);
  };
  return name;
}

Fields NewFields(wxWindow* frame, const Surroundings& surroundings) {
  ImportTexturePanel& panel = surroundings.main.imports.texture;
  Mirror& mirror = surroundings.mirror;
  const int space = frame->FromDIP(gap);
  wxStaticText* nameLabel = NewLabel(frame, mirror, "imports.lbl3DConv[0]", panel.lbl3DConv[0]);
  wxTextCtrl* name = NewName(frame, surroundings);
  wxStaticText* pathLabel = NewLabel(frame, mirror, "imports.lbl3DConv[1]", panel.lbl3DConv[1]);
  wxTextCtrl* path = NewText(frame, mirror, "imports.txtImportTexturePath", panel.txtImportTexturePath);
  path->Bind(wxEVT_KILL_FOCUS, [path, press = surroundings.press](wxFocusEvent& event) {
    event.Skip();
    path->CallAfter([press] { press("imports.txtImportTexturePath.LostFocus"); });
  });
  wxButton* browse = NewButton(frame, surroundings, "imports.cmdImportTextureBrowse", panel.cmdImportTextureBrowse);
  wxCheckBox* fighter = NewCheckBox(frame, mirror, "imports.chkForFighter", panel.chkForFighter, {});
  wxButton* import = NewButton(frame, surroundings, "imports.cmdImportTexture", panel.cmdImportTexture);

  auto* below = new wxBoxSizer(wxVERTICAL);
  below->Add(NewInfo(frame, surroundings));
  below->AddStretchSpacer();
  below->Add(fighter, wxSizerFlags().Border(wxTOP, space));
  below->Add(import, wxSizerFlags().Expand().Border(wxTOP, space));
  return {NewFieldLines(frame, {{nameLabel, FieldOf(name), {}}, {pathLabel, FieldOf(path), {browse}}}), below};
}

}  // namespace

void GiveFocus(wxTextCtrl* text, bool& wanted) {
  if (!wanted) return;
  wanted = false;
  text->CallAfter([text] { text->SetFocus(); });  // after the action, which restores the old focus
}

wxSizer* NewTextureFrame(wxWindow* page, const Surroundings& surroundings) {
  ImportTexturePanel& panel = surroundings.main.imports.texture;
  wxStaticBoxSizer* framed = NewFrame(page, panel.frameTextureImport);
  wxWindow* frame = framed->GetStaticBox();
  const int space = page->FromDIP(gap);
  const Fields fields = NewFields(frame, surroundings);
  auto* lower = new wxBoxSizer(wxHORIZONTAL);
  lower->Add(fields.below, wxSizerFlags().Expand());
  lower->Add(NewPreview(frame, surroundings, "imports.preview", panel.preview, false),
             wxSizerFlags(1).Expand().Border(wxLEFT, 2 * space));
  auto* whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(fields.lines, wxSizerFlags().Expand());
  whole->Add(lower, wxSizerFlags(1).Expand().Border(wxTOP, space));
  framed->Add(whole, wxSizerFlags(1).Expand().Border(wxALL, space));
  return framed;
}

}  // namespace oravin::gui
