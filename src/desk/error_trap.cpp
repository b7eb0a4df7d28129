#include "desk/error_trap.h"

#include "desk/dialogs.h"

namespace oravin {

void ShowTrapped(Host& host, const std::string& procedure, const RunTimeError& error) {
  EndProgress(host);
  Show(host, std::string("Error - ") + error.what(), Icon::exclamation, procedure);
}

}  // namespace oravin
