#include "cli/ship_names.h"

namespace oravin {

void SayUnknownShip(Session& session, const std::string& name) {
  const bool empty = session.main.installation.ships.empty();
  SayError(session.console,
           "no ship is named \"" + name + "\"" + (empty ? "; the catalogue is empty, \"enable\" fills it" : ""));
}

}  // namespace oravin
