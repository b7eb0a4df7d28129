#include "app/switcher_handlers.h"

#include <array>

#include "actions/disable.h"
#include "actions/enable.h"
#include "app/show_changes.h"
#include "desk/dialogs.h"
#include "installation/kept_models.h"

namespace oravin {

namespace {

constexpr const char* enableQuestion =
    "Enabling these features will require about 6 MB of storage space\n"
    "and will make reversable modifications to key StarLancer files.\n"
    "StarLancer must not be open and it may take up to 20 seconds\n"
    "to make all the Necessary changes. \n"
    "You should read the readme.txt before enabling these options.\n"
    "Are you sure you want to continue?";

constexpr const char* enabledMessage =
    "Options Enabled. If you haven't read the readme.txt file, do so and \n"
    "use the ''Disable / Restore'' button BEFORE uninstalling.\n"
    "If you have any suggestions or bug reports, please send the to me.";

constexpr const char* disableQuestion =
    "This will restore all files back to their previous state.\n"
    "This will also remove all StarLancer fighters from the\n"
    "StarLancer\\Ships\\ folder.\n"
    "If you want to keep any of these files make copies of them.\n"
    "Are you sure you want to continue?";

void cmdSwap_Click(Main& main) {
  const int target = OnlySelectedItem(main.switcher.swapOrgList);
  const int source = OnlySelectedItem(main.switcher.swapToList);
  if (!CanSwap(main.host, main.installation, target, source)) return;
  CloseOpenFiles(main);
  ShowChanges(main, SwapShip(main.host, main.installation, target, source));
}

void cmdUnSwap_Click(Main& main) {
  const int target = OnlySelectedItem(main.switcher.swapOrgList);
  if (!CanUnswap(main.host, main.installation, target)) return;
  CloseOpenFiles(main);
  ShowChanges(main, UnswapShip(main.host, main.installation, target));
}

void cmdUnswapAll_Click(Main& main) {
  CloseOpenFiles(main);
  if (UnswapAllShips(main.host, main.installation)) ShowAllUnswapped(main);
}

void Toggle(Main& main) { cmdToggle_Click(main.host, main.switcher, main.installation); }

void SelectShips(Main& main) { EnableSwitcherControls(main.switcher, main.installation); }

void ViewSelected(Main& main) { ViewModel(main.host.files, main.switcher.swapOrgList, main.installation); }

void cmdEnable_Click(Main& main) {
  if (!AskYesNo(main.host, enableQuestion)) return;
  CloseOpenFiles(main);
  const EnableResult result = EnableFeatures(main.host, main.installation);
  if (result.enabled) {
    FillLists(main);
    ShowSuccess(main.host, enabledMessage, Icon::none);
  } else if (result.unswapped) {
    ShowAllUnswapped(main);
  }
}

void cmdDisable_Click(Main& main) {
  using Outcome = DisableResult::Outcome;
  if (!AskYesNo(main.host, disableQuestion)) return;
  CloseOpenFiles(main);
  const Outcome outcome = DisableFeatures(main.host, main.installation).outcome;
  if (outcome == Outcome::refused) return;
  main.stats.lblWeapons.caption = NewStatsTab().lblWeapons.caption;
  if (outcome == Outcome::catalogueKept) {
    Show(main.host,
         "Not everything could be restored, as the messages before this one say. Put that right and use \"Disable / "
         "Restore\" again: the ship catalogue has been kept for it.",
         Icon::exclamation);
    return;
  }
  EmptyLists(main);
  if (outcome == Outcome::restored) {
    ShowSuccess(main.host, "Restoration complete", Icon::information);
    return;
  }
  Show(main.host,
       "The game's files are restored, but not all of your own models could be restored, as the message before this "
       "one says. They are kept in\n" +
           KeptModelsFolder(main.installation) + "\nPut that right and use \"Disable / Restore\" again.",
       Icon::exclamation);
}

constexpr std::array<Handler, 11> switcherHandlers = {{{"switcher.cmdSwap", cmdSwap_Click, true},
                                                       {"switcher.cmdUnswap", cmdUnSwap_Click, true},
                                                       {"switcher.cmdUnswapAll", cmdUnswapAll_Click, true},
                                                       {"switcher.cmdToggle", Toggle, false},
                                                       {"switcher.cmdEnable", cmdEnable_Click, true},
                                                       {"switcher.cmdDisable", cmdDisable_Click, true},
                                                       {"switcher.swapOrgList.ItemClick", SelectShips, false},
                                                       {"switcher.swapToList.ItemClick", SelectShips, false},
                                                       {"switcher.swapOrgList.DblClick", ViewSelected, false},
                                                       {"stats.cmdEnable2", cmdEnable_Click, true},
                                                       {"stats.CmdDisable2", cmdDisable_Click, true}}};

}  // namespace

std::span<const Handler> SwitcherHandlers() { return switcherHandlers; }

}  // namespace oravin
