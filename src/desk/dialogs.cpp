#include "desk/dialogs.h"

#include "base/text.h"

#include "files/look_up.h"
#include "files/path.h"

namespace oravin {

void Show(Host& host, const std::string& text, Icon icon, const std::string& title) {
  host.desk.showBox({text, title, icon, Buttons::ok, false});
}

void ShowSuccess(Host& host, const std::string& text, Icon icon, const std::string& title) {
  host.desk.showBox({text, title, icon, Buttons::ok, true});
}

bool AskYesNo(Host& host, const std::string& text, const std::string& title) {
  return host.desk.showBox({text, title, Icon::question, Buttons::yesNo, false}) == Answer::yes;
}

std::string BrowseForFolder(Host& host, const std::string& prompt) {
  return host.desk.browseForFolder ? host.desk.browseForFolder(prompt) : std::string();
}

std::string ChooseFile(Host& host, const std::string& title, const std::string& folder, const std::string& name,
                       const std::string& filter) {
  if (!host.desk.openDialog) return {};
  std::string chosen = host.desk.openDialog({title, AddBackslash(folder), name, filter});
  TrimInPlace(chosen);
  return FileExists(host.files, chosen) ? chosen : std::string();
}

void ShowProgress(Host& host, const std::string& text, int done, int total) {
  if (host.desk.showProgress) host.desk.showProgress({text, done, total});
}

void EndProgress(Host& host) {
  if (host.desk.showProgress) host.desk.showProgress({});
}

bool StopAsked(Host& host) { return host.desk.stopAsked && host.desk.stopAsked(); }

void ShowForm(Host& host, const std::string& form) {
  if (host.desk.showForm) host.desk.showForm(form);
}

void PutOnClipboard(Host& host, const std::string& text) {
  if (host.desk.putOnClipboard) host.desk.putOnClipboard(text);
}

}  // namespace oravin
