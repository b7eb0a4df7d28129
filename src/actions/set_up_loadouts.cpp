#include "actions/set_up_loadouts.h"

#include "actions/learn_loadout.h"
#include "actions/loadout_companions.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/look_up.h"

namespace oravin {

bool ReadyLoadoutMaps(Host& host, const Installation& installation) {
  if (!FileExists(host.files, installation.cachePath())) return false;
  return Trapped(host, learnTitle, false, [&] { return ProvideLoadoutMaps(host, installation).has_value(); });
}

void SetUpLoadouts(Host& host, const Installation& installation) {
  const std::string cache = installation.cachePath();
  if (!FileExists(host.files, cache)) return;
  const Ships lacking =
      Trapped(host, "LoadoutSetup", Ships(), [&] { return LackingCompanions(host.files, cache, installation.ships); });
  if (lacking.empty()) return;
  ShowProgress(host, "Making loadout textures", 0, 1);
  LoadoutSetup(host, installation, lacking);
}

}  // namespace oravin
