#include "app/main.h"

#include "tabs/archive_tab.h"
#include "tabs/imported_list.h"
#include "tabs/stats_show.h"

namespace oravin {

Main::Main()
    : switcher(NewSwitcherTab()),
      stats(NewStatsTab()),
      imports(NewImportTab()),
      convert(NewConvertPanel()),
      hog(NewHogTab()),
      tcache(NewTcacheTab()),
      about(NewAboutTab()),
      tableEditor(NewFatEditor()),
      importForm(NewFighterPack()),
      shipListForm(NewShipListForm()) {
  tabStrip.captions = {"Switcher", "Ship Stats / Guns", "Import Ships", "Hog Editor", "Tcache Editor", "About"};
}

Main::~Main() {
  platform::UnlockFolder(gameLock);
  platform::UnlockFolder(programLock);
}

void CloseOpenFiles(Main& main) {
  if (main.hog.cmdCloseHog.enabled) cmdCloseHog_Click(main.hog);
}

}  // namespace oravin
