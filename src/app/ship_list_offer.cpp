#include "app/ship_list_offer.h"

#include "actions/draft_ship_list.h"
#include "desk/dialogs.h"
#include "files/look_up.h"
#include "lists/ship_list.h"

namespace oravin {

bool OfferShipList(Main& main, const std::string& game, const std::string& program) {
  const Installation installation = PlacesIn(game, program);
  if (!FolderExists(main.host.files, program) || !FileExists(main.host.files, installation.archivePath())) return false;
  if (!AskYesNo(main.host, std::string("This folder has no ship list (") + shipListName + "), which Oravin needs:\n" +
                               program +
                               "\n\nOravin can draft one from the game's own files. You can look through it and change "
                               "it before it is saved.\n\nShall it do that?")) {
    return false;
  }
  const ShipListDraft draft = DraftShipList(main.host, installation);
  EndProgress(main.host);
  if (draft.ships.empty()) {
    if (!draft.stopped) Show(main.host, "No ship models were found in the game's archive.", Icon::exclamation);
    return false;
  }
  return EditShipList(main.host, main.shipListForm, draft, installation.shipListPath());
}

}  // namespace oravin
