#include "desk/error_trap.h"

#include "desk/dialogs.h"
#include "desk/error_boxes.h"
#include "desk/program_end.h"

namespace oravin {

namespace {

bool ShowOwnWords(Host& host, const ErrorBox* own) {
  if (own != nullptr) Show(host, std::string(own->text), own->icon, std::string(own->title));
  return own != nullptr;
}

}  // namespace

void ShowTrapped(Host& host, const std::string& procedure, const FileError& error) {
  const ErrorBox* own = FindErrorBox(procedure, error.kind);
  if (ShowOwnWords(host, own)) {
    if (own->endsProgram) throw ProgramEnd();
    return;
  }
  EndProgress(host);
  Show(host, std::string("Error - ") + error.what(), Icon::exclamation, procedure);
}

void ShowWarning(Host& host, const std::string& procedure, ErrorKind kind) {
  ShowOwnWords(host, FindErrorBox(procedure, kind));
}

}  // namespace oravin
