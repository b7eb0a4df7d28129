#include "gui/long_message.h"

#include <wx/artprov.h>
#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "gui/form_parts.h"
#include "gui/text_edge.h"

namespace oravin::gui {

namespace {

/// A button and its answer.
using Choice = std::pair<int, Answer>;

std::vector<Choice> ChoicesOf(Buttons buttons) {
  switch (buttons) {
    case Buttons::okCancel:
      return {{wxID_OK, Answer::ok}, {wxID_CANCEL, Answer::cancel}};
    case Buttons::yesNo:
      return {{wxID_YES, Answer::yes}, {wxID_NO, Answer::no}};
    case Buttons::yesNoCancel:
      return {{wxID_YES, Answer::yes}, {wxID_NO, Answer::no}, {wxID_CANCEL, Answer::cancel}};
    case Buttons::ok:
      break;
  }
  return {{wxID_OK, Answer::ok}};
}

wxArtID PictureOf(Icon icon) {
  switch (icon) {
    case Icon::exclamation:
      return wxART_WARNING;
    case Icon::critical:
      return wxART_ERROR;
    case Icon::question:
      return wxART_QUESTION;
    case Icon::information:
      return wxART_INFORMATION;
    case Icon::none:
      break;
  }
  return {};
}

/// The icon and the text side by side.
wxTextCtrl* AddContent(wxDialog& dialog, wxSizer* whole, const Message& box) {
  const int margin = dialog.FromDIP(pageMargin);
  auto* content = new wxBoxSizer(wxHORIZONTAL);
  if (const wxArtID picture = PictureOf(box.icon); !picture.empty()) {
    auto* icon = new wxStaticBitmap(&dialog, wxID_ANY, wxArtProvider::GetBitmapBundle(picture, wxART_MESSAGE_BOX));
    content->Add(icon, wxSizerFlags().Border(wxRIGHT, margin));
  }
  auto* text = new wxTextCtrl(&dialog, wxID_ANY, ToScreen(box.text), wxDefaultPosition, wxDefaultSize,
                              wxTE_MULTILINE | wxTE_READONLY);
  text->SetName("message");
  content->Add(text, wxSizerFlags(1).Expand());
  whole->Add(content, wxSizerFlags(1).Expand().Border(wxALL, margin));
  return text;
}

/// The buttons. The first has focus and is pressed by Enter, the last is pressed by Escape.
void AddButtons(wxDialog& dialog, wxSizer* whole, const std::vector<Choice>& choices) {
  auto* line = new wxStdDialogButtonSizer;
  for (const auto& [id, answer] : choices) {
    auto* button = new wxButton(&dialog, id);
    button->Bind(wxEVT_BUTTON, [&dialog, id = id](wxCommandEvent&) { dialog.EndModal(id); });
    line->AddButton(button);
    if (id != choices.front().first) continue;
    button->SetDefault();
    button->SetFocus();
  }
  line->Realize();
  dialog.SetEscapeId(choices.back().first);
  whole->Add(line, wxSizerFlags().Right().Border(wxLEFT | wxRIGHT | wxBOTTOM, dialog.FromDIP(pageMargin)));
}

/// Scrolls the text while a button has the focus.
void ScrollByKey(wxTextCtrl& text, wxKeyEvent& event) {
  if (text.HasFocus() || event.HasAnyModifiers()) return event.Skip();
  switch (event.GetKeyCode()) {
    case WXK_UP:
      text.ScrollLines(-1);
      break;
    case WXK_DOWN:
      text.ScrollLines(1);
      break;
    case WXK_PAGEUP:
      text.ScrollPages(-1);
      break;
    case WXK_PAGEDOWN:
      text.ScrollPages(1);
      break;
    default:
      event.Skip();
  }
}

}  // namespace

Answer ShowLongMessage(wxWindow* owner, const Message& box) {
  wxDialog dialog(owner, wxID_ANY, ToScreen(box.title), wxDefaultPosition, wxDefaultSize,
                  wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER);
  const std::vector<Choice> choices = ChoicesOf(box.buttons);
  auto* whole = new wxBoxSizer(wxVERTICAL);
  wxTextCtrl* text = AddContent(dialog, whole, box);
  AddButtons(dialog, whole, choices);
  dialog.Bind(wxEVT_CHAR_HOOK, [text](wxKeyEvent& event) { ScrollByKey(*text, event); });
  dialog.SetSizer(whole);
  SizeForm(dialog, {640, 460}, {360, 220});
  text->ShowPosition(0);
  const int pressed = dialog.ShowModal();
  const auto choice =
      std::find_if(choices.begin(), choices.end(), [pressed](const Choice& one) { return one.first == pressed; });
  return choice == choices.end() ? choices.back().second : choice->second;
}

}  // namespace oravin::gui
