#include "actions/ship_list_file.h"

#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "lists/ship_list_text.h"

namespace oravin {

std::vector<ListedShip> LoadShipList(Host& host, const Installation& installation) {
  return Trapped(host, "ReadShipList", std::vector<ListedShip>(),
                 [&] { return ReadShipList(host.files, installation.shipListPath()); });
}

bool SaveShipList(Host& host, const std::string& path, std::span<const ListedShip> ships) {
  if (const auto fault = WhyUnreadable(ships)) {
    Show(host, fault->text + "\nThe ship list was not saved.", Icon::exclamation, "Ship list");
    return false;
  }
  return Trap(host, "SaveShipList", [&] { ReplaceShipList(host.files, path, ships); });
}

}  // namespace oravin
