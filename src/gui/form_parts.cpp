#include "gui/form_parts.h"

#include <wx/display.h>
#include <wx/panel.h>
#include <wx/sizer.h>

#include <algorithm>

namespace oravin::gui {

void LayOutForm(Form& form, const Surroundings& surroundings, wxWindow* content, const FormButton& affirms,
                const FormButton& cancels) {
  wxDialog& dialog = *form.dialog;
  const int space = dialog.FromDIP(gap);
  auto* last = NewPanel(&dialog);
  wxButton* affirm = NewButton(last, surroundings, affirms.name, affirms.record);
  wxButton* cancel = NewButton(last, surroundings, cancels.name, cancels.record);
  EqualWidths({affirm, cancel});
  dialog.SetEscapeId(cancel->GetId());
  auto* buttons = new wxBoxSizer(wxHORIZONTAL);
  buttons->Add(affirm);
  buttons->Add(cancel, wxSizerFlags().Border(wxLEFT, space));
  last->SetSizer(buttons);

  auto* below = new wxBoxSizer(wxHORIZONTAL);
  below->Add(NewProgressLine(&dialog, form.progress, {content, last}), wxSizerFlags(1).CentreVertical());
  below->Add(last, wxSizerFlags().CentreVertical().Border(wxLEFT, space));
  auto* whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(content, wxSizerFlags(1).Expand());
  whole->Add(below, wxSizerFlags().Expand().Border(wxTOP, dialog.FromDIP(pageMargin)));
  auto* framed = new wxBoxSizer(wxVERTICAL);
  framed->Add(whole, wxSizerFlags(1).Expand().Border(wxALL, dialog.FromDIP(pageMargin)));
  dialog.SetSizer(framed);
}

void SizeForm(wxDialog& dialog, const wxSize& wanted, const wxSize& least) {
  const wxWindow* parent = dialog.GetParent();
  const int screen = parent == nullptr ? wxNOT_FOUND : wxDisplay::GetFromWindow(parent);
  wxSize room = wxDisplay(static_cast<unsigned>(std::max(screen, 0))).GetClientArea().GetSize();
  room.DecBy(dialog.FromDIP(wxSize(8, 40)));  // for the title bar and borders
  const wxSize content = dialog.GetSizer()->ComputeFittingClientSize(&dialog);
  wxSize smallest = dialog.FromDIP(least);
  smallest.IncTo(content);
  smallest.DecTo(room);
  wxSize size = dialog.FromDIP(wanted);
  size.IncTo(smallest);
  size.DecTo(room);
  if (parent == nullptr) dialog.SetIcons(ProgramIcon());
  dialog.SetMinClientSize(smallest);
  dialog.SetClientSize(size);
  dialog.Layout();
  dialog.CentreOnParent();
}

}  // namespace oravin::gui
