#include "gui/native_dialogs.h"

#include <wx/msw/wrapwin.h>

#include <shlobj.h>  // must follow wx/msw/wrapwin.h

#include <array>
#include <cstdio>
#include <memory>

#include "gui/text_edge.h"

namespace oravin::gui {

namespace {

HWND HandleOf(const wxWindow* window) { return window == nullptr ? nullptr : window->GetHWND(); }

UINT StyleOf(const Message& box) {
  UINT style = MB_SETFOREGROUND;
  switch (box.buttons) {
    case Buttons::ok:
      style |= MB_OK;
      break;
    case Buttons::okCancel:
      style |= MB_OKCANCEL;
      break;
    case Buttons::yesNo:
      style |= MB_YESNO;
      break;
    case Buttons::yesNoCancel:
      style |= MB_YESNOCANCEL;
      break;
  }
  switch (box.icon) {
    case Icon::none:
      return style;
    case Icon::exclamation:
      return style | MB_ICONEXCLAMATION;
    case Icon::critical:
      return style | MB_ICONHAND;
    case Icon::question:
      return style | MB_ICONQUESTION;
    case Icon::information:
      return style | MB_ICONASTERISK;
  }
  return style;
}

}  // namespace

Answer ShowMessage(wxWindow* owner, const Message& box) {
  const int pressed =
      MessageBoxW(HandleOf(owner), ToScreen(box.text).wc_str(), ToScreen(box.title).wc_str(), StyleOf(box));
  switch (pressed) {
    case IDOK:
      return Answer::ok;
    case IDYES:
      return Answer::yes;
    case IDNO:
      return Answer::no;
    case IDCANCEL:
      return Answer::cancel;
    default:  // could not be shown
      break;
  }
  if (box.buttons == Buttons::ok) return Answer::ok;
  return box.buttons == Buttons::yesNo ? Answer::no : Answer::cancel;
}

std::string AskForFolder(wxWindow* owner, const std::string& prompt) {
  const wxString title = ToScreen(prompt);
  BROWSEINFOW question = {};
  question.hwndOwner = HandleOf(owner);
  question.lpszTitle = title.wc_str();
  question.ulFlags = BIF_RETURNONLYFSDIRS;
  const std::unique_ptr<ITEMIDLIST, decltype(&CoTaskMemFree)> item(SHBrowseForFolderW(&question), &CoTaskMemFree);
  std::array<wchar_t, MAX_PATH> path = {};
  if (item == nullptr || SHGetPathFromIDListW(item.get(), path.data()) == FALSE) return {};
  return FromDialogPath(wxString(path.data()));
}

void TellStarter(const std::string& text, bool wrong) {
  // A GUI program has standard streams only if they were redirected.
  const HANDLE stream = GetStdHandle(wrong ? STD_ERROR_HANDLE : STD_OUTPUT_HANDLE);
  if (stream != nullptr && stream != INVALID_HANDLE_VALUE && GetFileType(stream) != FILE_TYPE_UNKNOWN) {
    std::fputs(text.c_str(), wrong ? stderr : stdout);
    return;
  }
  const UINT icon = wrong ? MB_ICONEXCLAMATION : 0U;
  MessageBoxW(nullptr, wxString::FromUTF8(text).wc_str(), wxString(programTitle).wc_str(), MB_OK | icon);
}

}  // namespace oravin::gui
