#include "app/ship_list_handlers.h"

#include <array>

namespace oravin {

namespace {

using OnShipListForm = void (*)(ShipListForm&);
using OnHostAndShipListForm = void (*)(Host&, ShipListForm&);

template <OnShipListForm action>
void DoInShipList(Main& main) {
  action(main.shipListForm);
}

template <OnHostAndShipListForm action>
void DoInShipList(Main& main) {
  action(main.host, main.shipListForm);
}

// A read-only window may do all of this: the list is written to a folder that is no installation yet, or to a file of
// the user's choice.
constexpr std::array<Handler, 7> shipListHandlers = {
    {{"ShipList.lstShips.ItemClick", DoInShipList<lstShips_ItemClick>, false},
     {"ShipList.cmdApply", DoInShipList<cmdApply_Click>, false},
     {"ShipList.cmdRemoveLine", DoInShipList<cmdRemoveLine_Click>, false},
     {"ShipList.cmdMoveUp", DoInShipList<cmdMoveUp_Click>, false},
     {"ShipList.cmdMoveDown", DoInShipList<cmdMoveDown_Click>, false},
     {"ShipList.cmdSave", DoInShipList<cmdSave_Click>, false},
     {"ShipList.cmdCancel", DoInShipList<cmdCancel_Click>, false}}};

}  // namespace

std::span<const Handler> ShipListHandlers() { return shipListHandlers; }

}  // namespace oravin
