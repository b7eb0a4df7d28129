#include "app/import_file.h"

#include "base/text.h"
#include "desk/dialogs.h"
#include "files/look_up.h"
#include "tabs/import_run.h"

namespace oravin {

void ImportFile(Main& main, const std::string& path) {
  std::string chosen = Trim(path);
  if (chosen.empty()) return;
  TrimInPlace(chosen);
  if (!FileExists(main.host.files, chosen))
    return Show(main.host, "This file was not found:\n" + chosen, Icon::exclamation);
  main.imports.txtImportFighter.text = chosen;
  if (!CanBeImportedInto(main.host, main.installation)) return;
  if (!LoadPack(main.host, main.Fighter_PACK, main.installation, chosen)) return;
  main.Fighter_PACK.shown = true;
  ShowForm(main.host, fighterPackForm);
}

}  // namespace oravin
