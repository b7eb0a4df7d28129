#include "gui/native_dialogs.h"

#include <wx/dirdlg.h>
#include <wx/msgdlg.h>

#include <wx/generic/msgdlgg.h>  // must follow wx/msgdlg.h

#include <cstdio>

#include "gui/text_edge.h"

namespace oravin::gui {

namespace {

long StyleOf(const Message& box) {
  long style = wxCENTRE;
  switch (box.buttons) {
    case Buttons::ok:
      style |= wxOK;
      break;
    case Buttons::okCancel:
      style |= wxOK | wxCANCEL;
      break;
    case Buttons::yesNo:
      style |= wxYES_NO;
      break;
    case Buttons::yesNoCancel:
      style |= wxYES_NO | wxCANCEL;
      break;
  }
  switch (box.icon) {
    case Icon::none:
      return style;  // the dialog does not know wxICON_NONE
    case Icon::exclamation:
      return style | wxICON_EXCLAMATION;
    case Icon::critical:
      return style | wxICON_ERROR;
    case Icon::question:
      return style | wxICON_QUESTION;
    case Icon::information:
      return style | wxICON_INFORMATION;
  }
  return style;
}

Answer AnswerOf(const Message& box, int result) {
  switch (result) {
    case wxID_OK:
      return Answer::ok;
    case wxID_YES:
      return Answer::yes;
    case wxID_NO:
      return Answer::no;
    default:
      break;
  }
  if (box.buttons == Buttons::ok) return Answer::ok;
  return box.buttons == Buttons::yesNo ? Answer::no : Answer::cancel;
}

}  // namespace

Answer ShowMessage(wxWindow* owner, const Message& box) {
  // GTK's own message dialog has no icon.
  wxGenericMessageDialog dialog(owner, ToScreen(box.text), ToScreen(box.title), StyleOf(box));
  // Otherwise, without Cancel, Escape and the close button would press the affirmative button.
  if (box.buttons == Buttons::yesNo) dialog.SetEscapeId(wxID_NO);
  return AnswerOf(box, dialog.ShowModal());
}

std::string AskForFolder(wxWindow* owner, const std::string& prompt) {
  wxDirDialog dialog(owner, ToScreen(prompt), wxString(), wxDD_DEFAULT_STYLE | wxDD_DIR_MUST_EXIST);
  return dialog.ShowModal() == wxID_OK ? FromDialogPath(dialog.GetPath()) : std::string();
}

void TellStarter(const std::string& text, bool wrong) { std::fputs(text.c_str(), wrong ? stderr : stdout); }

}  // namespace oravin::gui
