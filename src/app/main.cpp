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
      FAT_Editor(NewFatEditor()),
      Fighter_PACK(NewFighterPack()),
      ShipList(NewShipListForm()) {
  TabStrip1.captions = {"Switcher", "Ship Stats / Guns", "Import Ships", "Hog Editor", "Tcache Editor", "About"};
}

Main::~Main() {
  platform::UnlockFolder(gameLock);
  platform::UnlockFolder(programLock);
}

void CloseOpenFiles(Main& main) {
  if (main.hog.cmdCloseHog.enabled) cmdCloseHog_Click(main.hog);
}

SwapDesk SwapDeskOf(Main& main) {
  return {main.host, main.installation, main.stats, [&main] { CloseOpenFiles(main); }};
}

void ShowShipsOnTabs(Main& main, const ModelClasses& known) {
  DisplayShipEdit(main.stats, main.installation.ships);
  ShowShipAgain(main.host, main.stats, main.installation);
  DisplayImported(main.host, main.imports, main.installation, known);
}

void FillLists(Main& main) {
  main.switcher.cmdToggle = NewSwitcherTab().cmdToggle;
  ShowShipsOnTabs(main, DisplaySwitcher(main.host, main.switcher, main.installation, false));
}

void EmptyLists(Main& main) {
  main.switcher.cmdToggle = NewSwitcherTab().cmdToggle;
  ClearRows(main.switcher.swapOrgList);
  ClearRows(main.switcher.swapToList);
  EnableSwitcherControls(main.switcher, main.installation);
  ShowShipsOnTabs(main);
}

}  // namespace oravin
