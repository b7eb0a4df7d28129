#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>

#include "desk/message_box.h"
#include "gui/pages.h"

namespace oravin::gui {

namespace {

constexpr int emblemSize = 128;
constexpr int textWidth = 560;

wxSizer* NewHeading(wxPanel* page, const Surroundings& surroundings) {
  AboutTab& tab = surroundings.main.about;
  auto* name = new wxStaticText(page, wxID_ANY, programTitle);
  Enlarge(name, 2.2F, true);
  auto* version = new wxStaticText(page, wxID_ANY, wxString());
  Reflect(surroundings.mirror, "about.lblVersion", version, tab.lblVersion);
  Enlarge(version, 1.1F);
  auto* purpose = new wxStaticText(page, wxID_ANY, wxString());
  Reflect(surroundings.mirror, "about.lblPurpose", purpose, tab.lblPurpose);
  purpose->Wrap(page->FromDIP(textWidth));

  auto* texts = new wxBoxSizer(wxVERTICAL);
  texts->Add(name);
  texts->AddSpacer(page->FromDIP(gap / 2));
  texts->Add(version);
  texts->AddSpacer(page->FromDIP(2 * gap));
  texts->Add(purpose);

  auto* emblem = new wxStaticBitmap(page, wxID_ANY, Emblem({emblemSize, emblemSize}));
  auto* heading = new wxBoxSizer(wxHORIZONTAL);
  heading->Add(emblem, wxSizerFlags().Top());
  heading->AddSpacer(page->FromDIP(3 * gap));
  heading->Add(texts, wxSizerFlags(1).CentreVertical());
  return heading;
}

void AddFolder(wxPanel* page, wxSizer* grid, const wxString& caption, const Surroundings& surroundings,
               const std::string& name, TextBox& record) {
  // Made directly before its text box: a label's access key leads to the next control.
  auto* label = new wxStaticText(page, wxID_ANY, caption);
  auto* box = new wxTextCtrl(page, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, wxTE_READONLY);
  Reflect(surroundings.mirror, name, box, record);
  grid->Add(label, wxSizerFlags().CentreVertical());
  grid->Add(box, wxSizerFlags(1).Expand());
}

}  // namespace

void FillAboutPage(wxPanel* page, const Surroundings& surroundings) {
  AboutTab& tab = surroundings.main.about;
  const int space = page->FromDIP(gap);

  auto* block = new wxBoxSizer(wxVERTICAL);
  block->Add(NewHeading(page, surroundings));
  block->AddSpacer(4 * space);
  auto* folders = new wxFlexGridSizer(2, space, space);
  folders->AddGrowableCol(1);
  AddFolder(page, folders, "&Game folder:", surroundings, "about.txtSLPath", tab.txtSLPath);
  AddFolder(page, folders, "&Program folder:", surroundings, "about.txtProgramPath", tab.txtProgramPath);
  block->Add(folders, wxSizerFlags().Expand());
  block->AddSpacer(2 * space);
  auto* buttons = new wxBoxSizer(wxHORIZONTAL);
  buttons->AddStretchSpacer();
  buttons->Add(NewButton(page, surroundings, "about.cmdReadme", tab.cmdReadme));
  buttons->Add(NewButton(page, surroundings, "about.cmdExit", tab.cmdExit), wxSizerFlags().Border(wxLEFT, space));
  block->Add(buttons, wxSizerFlags().Expand());

  auto* whole = new wxBoxSizer(wxVERTICAL);
  whole->AddStretchSpacer(2);
  whole->Add(block, wxSizerFlags().CentreHorizontal().Border(wxALL, page->FromDIP(pageMargin)));
  whole->AddStretchSpacer(3);
  page->SetSizer(whole);
}

}  // namespace oravin::gui
