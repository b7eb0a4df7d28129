#include "gui/ship_list_window.h"

#include <wx/panel.h>
#include <wx/sizer.h>

#include <array>

#include "gui/form_parts.h"
#include "gui/pages.h"
#include "gui/text_edge.h"

namespace oravin::gui {

namespace {

constexpr int purposeWidth = 780;

/// The list of lines.
ListWindow* NewLines(wxWindow* edge, const Surroundings& surroundings) {
  ShipListForm& record = surroundings.main.shipListForm;
  auto* list = new ListWindow(edge, record.lstShips, {});
  Enframe(edge, list);
  Reflect(surroundings.mirror, "ShipList.lstShips", list, record.lstShips);
  list->SetShares({0.17, 0.13, 0.06, 0.1, 0.11, 0.11, 0.32});
  LetShrink(*list, {600, 120});
  list->selectionChanged = [press = surroundings.press] { press("ShipList.lstShips.ItemClick"); };
  return list;
}

/// The fields of the selected line, in two rows of three; Enter applies them.
wxSizer* NewLineFields(wxWindow* panel, const Surroundings& surroundings) {
  ShipListForm& record = surroundings.main.shipListForm;
  struct Field {
    const char* name;
    Label& label;
    TextBox& text;
  };
  const std::array<Field, 6> fields = {{{"Name", record.lblName, record.txtName},
                                        {"Kind", record.lblKind, record.txtKind},
                                        {"Texture0", record.lblTexture0, record.txtTexture0},
                                        {"File", record.lblFile, record.txtFile},
                                        {"Stats", record.lblStats, record.txtStats},
                                        {"Texture1", record.lblTexture1, record.txtTexture1}}};
  const int space = panel->FromDIP(gap);
  constexpr std::array<int, 3> shares = {5, 2, 4};
  auto* grid = new wxFlexGridSizer(static_cast<int>(2 * shares.size()), space, space);
  for (std::size_t i = 0; i < shares.size(); ++i) grid->AddGrowableCol(2 * i + 1, shares.at(i));
  for (const Field& field : fields) {
    const std::string name = field.name;
    wxStaticText* label = NewLabel(panel, surroundings.mirror, "ShipList.lbl" + name, field.label);
    wxTextCtrl* text = NewText(panel, surroundings.mirror, "ShipList.txt" + name, field.text, wxTE_PROCESS_ENTER);
    text->Bind(wxEVT_TEXT_ENTER, [press = surroundings.press](wxCommandEvent&) { press("ShipList.cmdApply"); });
    grid->Add(label, wxSizerFlags().CentreVertical());
    grid->Add(text, wxSizerFlags().Expand());
  }
  return grid;
}

/// The buttons for the selected line.
wxSizer* NewLineButtons(wxWindow* panel, const Surroundings& surroundings) {
  ShipListForm& record = surroundings.main.shipListForm;
  const std::vector<wxButton*> buttons = {
      NewButton(panel, surroundings, "ShipList.cmdApply", record.cmdApply),
      NewButton(panel, surroundings, "ShipList.cmdRemoveLine", record.cmdRemoveLine),
      NewButton(panel, surroundings, "ShipList.cmdMoveUp", record.cmdMoveUp),
      NewButton(panel, surroundings, "ShipList.cmdMoveDown", record.cmdMoveDown)};
  EqualWidths(buttons);
  auto* line = new wxBoxSizer(wxHORIZONTAL);
  line->AddStretchSpacer();
  for (wxButton* button : buttons) {
    line->Add(button, wxSizerFlags().Border(wxLEFT, button == buttons.front() ? 0 : panel->FromDIP(gap)));
  }
  return line;
}

}  // namespace

void ShowShipList(Window& window, Main& main) {
  ShipListForm& record = main.shipListForm;
  wxDialog dialog(window.frame, wxID_ANY, ToScreen(record.caption), wxDefaultPosition, wxDefaultSize,
                  wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER);
  Form form{shipListForm, &dialog, {}, [&record] { return record.shown; }};
  const Surroundings surroundings{main, form.mirror,
                                  [&](const std::string& action) { Press(window, main, action, &form); }};
  auto* content = NewPanel(&dialog);
  const int space = dialog.FromDIP(gap);
  wxStaticText* purpose = NewLabel(content, form.mirror, "ShipList.lblPurpose", record.lblPurpose);
  purpose->Wrap(dialog.FromDIP(purposeWidth));
  wxWindow* edge = NewEdge(content);
  ListWindow* list = NewLines(edge, surroundings);
  auto* whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(purpose, wxSizerFlags().Expand());
  whole->Add(edge, wxSizerFlags(1).Expand().Border(wxTOP | wxBOTTOM, space));
  whole->Add(NewLineFields(content, surroundings), wxSizerFlags().Expand());
  whole->Add(NewLineButtons(content, surroundings), wxSizerFlags().Expand().Border(wxTOP, space));
  content->SetSizer(whole);
  LayOutForm(form, surroundings, content, {"ShipList.cmdSave", record.cmdSave},
             {"ShipList.cmdCancel", record.cmdCancel});
  SizeForm(dialog, wxSize(1020, 620), wxSize(820, 420));
  list->SetFocus();
  ShowModally(window, form);
}

}  // namespace oravin::gui
