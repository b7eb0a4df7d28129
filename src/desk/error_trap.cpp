#include "desk/error_trap.h"

#include "desk/dialogs.h"
#include "desk/error_boxes.h"
#include "desk/program_end.h"

namespace oravin {

void ShowTrapped(Host& host, const std::string& procedure, const FileError& error) {
  const ErrorBox* own = FindErrorBox(procedure, error.kind);
  if (own != nullptr) Show(host, std::string(own->text), own->icon, std::string(own->title));
  if (own != nullptr && own->endsProgram) throw ProgramEnd();
  if (own != nullptr && !own->alsoGeneral) return;
  EndProgress(host);
  Show(host, std::string("Error - ") + error.what(), Icon::exclamation, procedure);
}

}  // namespace oravin
