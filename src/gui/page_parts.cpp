#include <wx/panel.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/statbox.h>
#ifdef __WXMSW__
#include <wx/msw/wrapwin.h>
#endif

#include <algorithm>

#include "gui/pages.h"
#include "gui/text_edge.h"

namespace oravin::gui {

namespace {

#ifdef __WXMSW__
/// Skip painting the border of a borderless control: Windows would create a device context for it.
template <typename Control>
class Borderless : public Control {
 public:
  using Control::Control;
  WXLRESULT MSWWindowProc(WXUINT message, WXWPARAM wide, WXLPARAM longer) override {
    return message == WM_NCPAINT ? 0 : Control::MSWWindowProc(message, wide, longer);
  }
};

/// Leaves access keys to its parent: Windows looks for them only in the panel that it asks, and takes the key from all
/// others.
class Panel : public Borderless<wxPanel> {
 public:
  using Borderless<wxPanel>::Borderless;
  bool MSWProcessMessage(WXMSG* message) override {
    return message->message != WM_SYSCHAR && wxPanel::MSWProcessMessage(message);
  }
};
#else
template <typename Control>
using Borderless = Control;
using Panel = wxPanel;
#endif

/// GTK's box asks for the current size of its contents, so nothing around it could shrink; use the sizer's minimum
/// instead.
class FrameBox : public wxStaticBox {
 public:
  using wxStaticBox::wxStaticBox;

 private:
  wxSize DoGetBestSize() const override { return GetTextExtent(GetLabelText()) + FromDIP(wxSize(2 * gap, gap)); }
};

}  // namespace

wxButton* NewButton(wxWindow* parent, const Surroundings& surroundings, const std::string& name, Button& record) {
  auto* button = new Borderless<wxButton>(parent, wxID_ANY);
  Reflect(surroundings.mirror, name, button, record);
  button->Bind(wxEVT_BUTTON, [press = surroundings.press, name](wxCommandEvent&) { press(name); });
  return button;
}

wxCheckBox* NewCheckBox(wxWindow* parent, Mirror& mirror, const std::string& name, CheckBox& record,
                        const std::function<void()>& changed) {
  auto* box = new wxCheckBox(parent, wxID_ANY, ToScreen(record.caption));
  Reflect(mirror, name, box, record);
  box->Bind(wxEVT_CHECKBOX, [box, &record, changed](wxCommandEvent&) {
    Take(*box, record);
    if (changed) changed();
  });
  return box;
}

wxPanel* NewPanel(wxWindow* parent) { return new Panel(parent); }

wxWindow* NewEdge(wxWindow* parent) {
  wxPanel* edge = NewPanel(parent);
  edge->SetSize(parent->FromDIP(wxSize(220, 200)));  // large enough for a scroll bar from the start
  edge->SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNSHADOW));
  return edge;
}

void Enframe(wxWindow* edge, wxWindow* list) {
  if (edge->GetSizer() == nullptr) edge->SetSizer(new wxBoxSizer(wxVERTICAL));
  edge->GetSizer()->Add(list, wxSizerFlags(1).Expand().Border(wxALL, edge->FromDIP(1)));
}

wxStaticBoxSizer* NewFrame(wxWindow* page, const Label& caption) {
  return new wxStaticBoxSizer(new FrameBox(page, wxID_ANY, ToScreen(caption.caption)), wxVERTICAL);
}

void EqualWidths(const std::vector<wxButton*>& buttons) {
  int width = 0;
  for (const wxButton* button : buttons) width = std::max(width, button->GetBestSize().GetWidth());
  for (wxButton* button : buttons) button->SetMinSize({width, -1});
}

wxSizer* NewFieldLines(wxWindow* page, const std::vector<FieldLine>& lines) {
  const int space = page->FromDIP(gap);
  std::size_t columns = 0;
  for (const FieldLine& line : lines) columns = std::max(columns, line.buttons.size());
  auto* grid = new wxFlexGridSizer(2 + static_cast<int>(columns), space, space);
  grid->AddGrowableCol(1);
  for (const FieldLine& line : lines) {
    grid->Add(line.label, wxSizerFlags().CentreVertical());
    grid->Add(line.field, wxSizerFlags().Expand());
    for (std::size_t i = 0; i < columns; ++i) {
      // A larger gap between the field's own button and actions on the file.
      const wxSizerFlags flags = wxSizerFlags().CentreVertical().Border(wxLEFT, i == 1 ? space : 0);
      if (i < line.buttons.size()) {
        grid->Add(line.buttons[i], flags);
      } else {
        grid->AddSpacer(0);
      }
    }
  }
  return grid;
}

wxSizer* FieldOf(wxTextCtrl* text) {
  auto* sizer = new wxBoxSizer(wxHORIZONTAL);
  sizer->Add(text, wxSizerFlags(1).CentreVertical());
  return sizer;
}

void LayOutPage(wxWindow* page, wxSizer* content, wxSizer* belowLeft, wxButton* enable, wxButton* disable) {
  auto* below = new wxBoxSizer(wxHORIZONTAL);
  below->Add(belowLeft, wxSizerFlags().CentreVertical());
  below->AddStretchSpacer();
  for (wxButton* button : {enable, disable}) {
    below->Add(button, wxSizerFlags().CentreVertical().Border(wxLEFT, page->FromDIP(gap)));
  }

  auto* whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(content, wxSizerFlags(1).Expand());
  whole->AddSpacer(page->FromDIP(pageMargin));
  whole->Add(below, wxSizerFlags().Expand());
  auto* framed = new wxBoxSizer(wxVERTICAL);
  framed->Add(whole, wxSizerFlags(1).Expand().Border(wxALL, page->FromDIP(pageMargin)));
  page->SetSizer(framed);
}

wxStaticText* NewLabel(wxWindow* parent, Mirror& mirror, const std::string& name, Label& record, long style) {
  const bool cut = (style & wxST_ELLIPSIZE_MASK) != 0;
  const long resizing = cut ? long{wxST_NO_AUTORESIZE} : 0L;
  auto* label = new wxStaticText(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, style | resizing);
  Reflect(mirror, name, label, record);
  if (cut) label->SetMinSize({parent->FromDIP(gap), parent->GetTextExtent("X").GetHeight()});
  return label;
}

wxTextCtrl* NewText(wxWindow* parent, Mirror& mirror, const std::string& name, TextBox& record, long style) {
  auto* text = new wxTextCtrl(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, style);
  Reflect(mirror, name, text, record);
  return text;
}

void Monospace(wxTextCtrl* text) {
  text->SetFont(wxFont(wxFontInfo(text->GetFont().GetPointSize()).Family(wxFONTFAMILY_TELETYPE)));
}

void Enlarge(wxStaticText* label, float factor, bool bold) {
  const wxFont larger = label->GetFont().Scaled(factor);
  label->SetFont(bold ? larger.Bold() : larger);
  // Before the window is shown, a label still reports its size in the old font.
  const int rounding = label->FromDIP(2);
  label->SetMinSize(label->GetTextExtent(label->GetLabelText()) + wxSize(rounding, 0));
}

}  // namespace oravin::gui
