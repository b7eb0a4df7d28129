#include "app/ship_list_handlers.h"

#include <array>

namespace oravin {

namespace {

using OnForm = void (*)(ShipListForm&);
using OnHostAndForm = void (*)(Host&, ShipListForm&);

template <OnForm action>
void Do(Main& main) {
  action(main.ShipList);
}

template <OnHostAndForm action>
void Do(Main& main) {
  action(main.host, main.ShipList);
}

// The list is written into a folder that is no installation yet, or to a file of the person's choice: a copy that only
// looks may do that.
constexpr std::array<Handler, 7> handlers = {{{"ShipList.lstShips.ItemClick", Do<lstShips_ItemClick>, false},
                                              {"ShipList.cmdApply", Do<cmdApply_Click>, false},
                                              {"ShipList.cmdRemoveLine", Do<cmdRemoveLine_Click>, false},
                                              {"ShipList.cmdMoveUp", Do<cmdMoveUp_Click>, false},
                                              {"ShipList.cmdMoveDown", Do<cmdMoveDown_Click>, false},
                                              {"ShipList.cmdSave", Do<cmdSave_Click>, false},
                                              {"ShipList.cmdCancel", Do<cmdCancel_Click>, false}}};

}  // namespace

std::span<const Handler> ShipListHandlers() { return handlers; }

}  // namespace oravin
