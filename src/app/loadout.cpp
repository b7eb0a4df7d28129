#include "app/loadout.h"

#include "actions/learn_loadout.h"
#include "actions/loadout_companions.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/look_up.h"

namespace oravin {

bool ReadyLoadoutMaps(Main& main) {
  const Installation& installation = main.installation;
  if (!FileExists(main.host.files, installation.cachePath())) return false;
  return Trapped(main.host, learnTitle, false, [&] { return ProvideLoadoutMaps(main.host, installation).has_value(); });
}

void SetUpLoadouts(Main& main) {
  const Installation& installation = main.installation;
  const std::string cache = installation.cachePath();
  if (!FileExists(main.host.files, cache)) return;
  const Ships lacking = Trapped(main.host, "LoadoutSetup", Ships(),
                                [&] { return LackingCompanions(main.host.files, cache, installation.ships); });
  if (lacking.empty()) return;
  ShowProgress(main.host, "Making loadout textures", 0, 1);
  LoadoutSetup(main.host, installation, lacking);
}

}  // namespace oravin
