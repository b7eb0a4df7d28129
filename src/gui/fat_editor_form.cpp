#include "gui/fat_editor_form.h"

#include <wx/sizer.h>

#include <array>

#include "gui/pages.h"

namespace oravin::gui {

namespace {

constexpr int fieldWidth = 360;

struct Field {
  wxStaticText* label = nullptr;
  wxTextCtrl* text = nullptr;
};

Field NewField(wxDialog& dialog, Mirror& mirror, const std::string& name, Label& label, TextBox& text) {
  Field field;
  field.label = NewLabel(&dialog, mirror, "FAT_Editor.lbl" + name, label);
  field.text = NewText(&dialog, mirror, "FAT_Editor.txt" + name, text);
  return field;
}

wxSizer* NewFields(wxDialog& dialog, Mirror& mirror, FatEditor& record) {
  const std::array<Field, 3> fields = {{NewField(dialog, mirror, "Name", record.lblName, record.txtName),
                                        NewField(dialog, mirror, "Offset", record.lblOffset, record.txtOffset),
                                        NewField(dialog, mirror, "Size", record.lblSize, record.txtSize)}};
  // The monospace font alone would make the field taller than the others.
  const wxSize size(dialog.FromDIP(fieldWidth), fields[0].text->GetBestSize().GetHeight());
  Monospace(fields[1].text);
  Monospace(fields[2].text);
  const int space = dialog.FromDIP(gap);
  auto* grid = new wxFlexGridSizer(2, space, space);
  grid->AddGrowableCol(1);
  for (const Field& field : fields) {
    grid->Add(field.label, wxSizerFlags().CentreVertical());
    field.text->SetMinSize(size);
    grid->Add(field.text, wxSizerFlags().Expand());
  }
  return grid;
}

}  // namespace

void ShowFatEditor(Window& window, Main& main) {
  FatEditor& record = main.tableEditor;
  wxDialog dialog(window.frame, wxID_ANY, "Table Editor", wxDefaultPosition, wxDefaultSize,
                  wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER);
  Form form{fatEditorForm, &dialog, {}, [&record] { return record.shown; }};
  const Surroundings surroundings{main, form.mirror,
                                  [&](const std::string& action) { Press(window, main, action, &form); }};
  wxSizer* fields = NewFields(dialog, form.mirror, record);
  wxStaticText* remark = NewLabel(&dialog, form.mirror, "FAT_Editor.lblRemark", record.lblRemark);
  wxButton* save = NewButton(&dialog, surroundings, "FAT_Editor.cmdSave", record.cmdSave);
  wxButton* cancel = NewButton(&dialog, surroundings, "FAT_Editor.cmdCancel", record.cmdCancel);
  dialog.SetAffirmativeId(save->GetId());
  dialog.SetEscapeId(cancel->GetId());
  save->SetDefault();

  const int space = dialog.FromDIP(gap);
  auto* buttons = new wxBoxSizer(wxHORIZONTAL);
  buttons->AddStretchSpacer();
  buttons->Add(save);
  buttons->Add(cancel, wxSizerFlags().Border(wxLEFT, space));
  auto* whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(fields, wxSizerFlags().Expand());
  whole->Add(remark, wxSizerFlags().Expand().Border(wxTOP, space));
  whole->AddStretchSpacer();
  whole->Add(buttons, wxSizerFlags().Expand().Border(wxTOP, 2 * space));
  auto* framed = new wxBoxSizer(wxVERTICAL);
  framed->Add(whole, wxSizerFlags(1).Expand().Border(wxALL, dialog.FromDIP(pageMargin)));
  dialog.SetSizerAndFit(framed);
  dialog.CentreOnParent();
  ShowModally(window, form);
}

}  // namespace oravin::gui
