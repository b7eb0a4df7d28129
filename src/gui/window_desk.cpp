#include "gui/window_desk.h"

#include <wx/app.h>
#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/dirdlg.h>
#include <wx/filedlg.h>
#include <wx/msgdlg.h>
#include <wx/textbuf.h>

#include <wx/generic/msgdlgg.h>  // wants wx/msgdlg.h before it

#include <algorithm>
#include <cstdint>

#include "gui/layout_file.h"
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

constexpr std::chrono::milliseconds betweenPaintings(40);

void HideProgress(Window& window) {
  if (!window.progress) return;
  window.progress = false;
  window.gauge->Hide();
  window.status->SetStatusText(wxString());
  window.notebook->Enable();
  if (window.focusBefore) window.focusBefore->SetFocus();
}

/// Disables the controls and takes the keyboard from them.
void BeginProgress(Window& window) {
  window.progress = true;
  window.focusBefore = wxWindow::FindFocus();
  window.notebook->Disable();
  window.keys->SetFocus();
  window.gauge->Show();
}

/// Lets the window draw itself and hear the person.
void Breathe(Window& window) {
  window.progressPainted = std::chrono::steady_clock::now();
  wxTheApp->Yield(true);
}

bool IsTimeToBreathe(const Window& window) {
  return std::chrono::steady_clock::now() - window.progressPainted >= betweenPaintings;
}

/// Actions run on the window's own thread: the status line is painted between their steps, with all controls disabled
/// meanwhile, and not so often that painting slows the action down.
void ShowProgress(Window& window, const Progress& progress) {
  if (window.frame == nullptr) return;
  if (progress.total <= 0) return HideProgress(window);
  if (window.progress && !IsTimeToBreathe(window)) return;
  ++window.progressPaintings;
  if (!window.progress) BeginProgress(window);
  const std::int64_t part = std::int64_t{window.gauge->GetRange()} * progress.done / progress.total;
  window.gauge->SetValue(static_cast<int>(std::clamp<std::int64_t>(part, 0, window.gauge->GetRange())));
  window.status->SetStatusText((window.stoppable ? wxString("Esc stops this.  ") : wxString()) +
                               ToScreen(progress.text));
  ShowLabels(window.mirror);
  window.status->Update();
  Breathe(window);
}

/// An action that asks can be stopped, which the status line tells from then on.
bool StopAsked(Window& window) {
  window.stoppable = true;
  if (window.progress && IsTimeToBreathe(window)) Breathe(window);
  return window.stop;
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
