#include "gui/window_desk.h"

#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/filedlg.h>
#include <wx/textbuf.h>

#include "desk/message_length.h"
#include "gui/layout_file.h"
#include "gui/long_message.h"
#include "gui/native_dialogs.h"
#include "gui/progress.h"
#include "gui/text_edge.h"

namespace oravin::gui {

namespace {

Answer ShowBox(Window& window, const Message& box) {
  ShowLabels(window.mirror);  // labels changed before the message box
  window.box = &box;
  ++window.boxesShown;
  KeepLayout(window);
  const Answer answer = IsLong(box) ? ShowLongMessage(OnTop(window), box) : ShowMessage(OnTop(window), box);
  window.box = nullptr;
  KeepLayout(window);
  return answer;
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
  wxTheClipboard->Flush();  // so that it stays after the program ends
}

}  // namespace

Desk WindowDesk(Window& window) {
  Desk desk;
  desk.showBox = [&window](const Message& box) { return ShowBox(window, box); };
  desk.browseForFolder = [&window](const std::string& prompt) { return AskForFolder(OnTop(window), prompt); };
  desk.openDialog = [&window](const FileQuestion& question) { return OpenDialog(window, question); };
  desk.showProgress = [&window](const Progress& progress) { ShowProgress(window, progress); };
  desk.stopAsked = [&window] { return StopAsked(window); };
  desk.showForm = [&window](const std::string& name) { ShowForm(window, name); };
  desk.putOnClipboard = PutOnClipboard;
  return desk;
}

}  // namespace oravin::gui
