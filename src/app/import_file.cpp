#include "app/import_file.h"

#include "actions/swap_ships.h"
#include "app/show_changes.h"

#include "actions/import_ships.h"
#include "base/text.h"
#include "desk/dialogs.h"
#include "files/look_up.h"

namespace oravin {

void ImportFile(Main& main, const std::string& path) {
  const std::string chosen = Trim(path);
  if (chosen.empty()) return;
  if (!FileExists(main.host.files, chosen))
    return Show(main.host, "This file was not found:\n" + chosen, Icon::exclamation);
  main.imports.txtImportFighter.text = chosen;
  if (!CanBeImportedInto(main.host, main.installation)) return;
  if (!LoadPack(main.host, main.importForm, main.installation, chosen)) return;
  main.importForm.shown = true;
  ShowForm(main.host, fighterPackForm);
}

void cmdImportShips_Click(Main& main) {
  FighterPack& form = main.importForm;
  if (!CanImport(main.host, main.installation, form.source.ships)) return;
  CloseOpenFiles(main);
  const auto result = ImportShips(main.host, main.installation, form.source.ships);
  if (!result) return;
  RefillShipLists(main);
  const auto switches = SuggestedSwitches(main.installation.ships, *result);
  if (!switches.empty() && AskForSwitches(main.host)) {
    if (UnswapAllShips(main.host, main.installation)) ShowAllUnswapped(main);
    SwapPairs(main.host, main.installation, switches);
    RefillShipLists(main);
  }
  form.done = true;
  form.shown = false;
  ShowImportResult(main.host, *result);
  StartShipTool(main.host.files, main.installation, *result);
}

}  // namespace oravin
