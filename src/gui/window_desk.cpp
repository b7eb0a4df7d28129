#include "gui/window_desk.h"

#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/dirdlg.h>
#include <wx/filedlg.h>
#include <wx/msgdlg.h>
#include <wx/textbuf.h>

#include <wx/generic/msgdlgg.h>  // wants wx/msgdlg.h before it

#include "gui/layout_file.h"
#include "gui/progress.h"
#include "gui/text_edge.h"

namespace oravin::gui {

namespace {

long StyleOf(const MessageBox& box) {
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
      return style;  // wxICON_NONE is no icon that the dialog knows
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

/// The answer that a dialog's result stands for. A box that was closed without a button is answered safely.
Answer AnswerOf(const MessageBox& box, int result) {
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

Answer ShowBox(Window& window, const MessageBox& box) {
  ShowLabels(window.mirror);  // what was said before the box
  // GTK's own message dialog leaves the icon out.
  wxGenericMessageDialog dialog(OnTop(window), ToScreen(box.text), ToScreen(box.title), StyleOf(box));
  // Escape and the title bar's cross would otherwise press the affirmative button of a box without Cancel.
  if (box.buttons == Buttons::yesNo) dialog.SetEscapeId(wxID_NO);
  window.box = &box;
  ++window.boxesShown;
  KeepLayout(window);
  const int result = dialog.ShowModal();
  window.box = nullptr;
  KeepLayout(window);
  return AnswerOf(box, result);
}

std::string BrowseForFolder(Window& window, const std::string& prompt) {
  wxDirDialog dialog(OnTop(window), ToScreen(prompt), wxString(), wxDD_DEFAULT_STYLE | wxDD_DIR_MUST_EXIST);
  return dialog.ShowModal() == wxID_OK ? FromDialogPath(dialog.GetPath()) : std::string();
}

std::string OpenDialog(Window& window, const FileQuestion& question) {
  wxFileDialog dialog(OnTop(window), ToScreen(question.title), ToDialogPath(question.folder), ToScreen(question.name),
                      ToScreen(question.filter), wxFD_OPEN | wxFD_FILE_MUST_EXIST);
  return dialog.ShowModal() == wxID_OK ? FromDialogPath(dialog.GetPath()) : std::string();
}

void ShowForm(Window& window, const std::string& name) {
  const auto form = window.forms.find(name);
  if (form != window.forms.end()) form->second();
}

void PutOnClipboard(const std::string& text) {
  const wxClipboardLocker clipboard;
  if (!clipboard) return;
  wxTheClipboard->SetData(new wxTextDataObject(wxTextBuffer::Translate(ToScreen(text))));
  wxTheClipboard->Flush();  // so that it outlives the program
}

}  // namespace

Desk WindowDesk(Window& window) {
  Desk desk;
  desk.showBox = [&window](const MessageBox& box) { return ShowBox(window, box); };
  desk.browseForFolder = [&window](const std::string& prompt) { return BrowseForFolder(window, prompt); };
  desk.openDialog = [&window](const FileQuestion& question) { return OpenDialog(window, question); };
  desk.showProgress = [&window](const Progress& progress) { ShowProgress(window, progress); };
  desk.stopAsked = [&window] { return StopAsked(window); };
  desk.showForm = [&window](const std::string& name) { ShowForm(window, name); };
  desk.putOnClipboard = PutOnClipboard;
  return desk;
}

}  // namespace oravin::gui
