#include "app/import_file.h"

#include "actions/import_ships.h"
#include "base/text.h"
#include "desk/dialogs.h"
#include "files/look_up.h"
#include "tabs/swap.h"
#include "tabs/switcher_tab.h"

namespace oravin {

void ImportFile(Main& main, const std::string& path) {
  const std::string chosen = Trim(path);
  if (chosen.empty()) return;
  if (!FileExists(main.host.files, chosen))
    return Show(main.host, "This file was not found:\n" + chosen, Icon::exclamation);
  main.imports.txtImportFighter.text = chosen;
  if (!CanBeImportedInto(main.host, main.installation)) return;
  if (!LoadPack(main.host, main.Fighter_PACK, main.installation, chosen)) return;
  main.Fighter_PACK.shown = true;
  ShowForm(main.host, fighterPackForm);
}

void cmdImportShips_Click(Main& main) {
  FighterPack& form = main.Fighter_PACK;
  if (!CanImport(main.host, main.installation, form.source.ships)) return;
  CloseOpenFiles(main);
  const auto result = ImportShips(main.host, main.installation, form.source.ships);
  if (!result) return;
  RefillShipLists(main);
  const auto switches = SuggestedSwitches(main.installation.ships, *result);
  if (!switches.empty() && AskForSwitches(main.host)) {
    SwapDesk desk = SwapDeskOf(main);
    cmdUnswapAll_Click(desk, main.switcher);
    SwapPairs(desk, switches);
    RefillShipLists(main);
  }
  form.done = true;
  form.shown = false;
  ShowImportResult(main.host, *result);
  StartShipTool(main.host.files, main.installation, *result);
}

void RefillShipLists(Main& main) {
  // The kind of ships that the switcher shows stays.
  const bool capitalShips = main.switcher.cmdToggle.caption != NewSwitcherTab().cmdToggle.caption;
  ShowShipsOnTabs(main, DisplaySwitcher(main.host, main.switcher, main.installation, capitalShips));
}

}  // namespace oravin
