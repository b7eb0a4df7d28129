#include "app/handlers.h"

#include <array>
#include <stdexcept>
#include <string>
#include <vector>

#include "app/disable.h"
#include "app/enable.h"
#include "app/hog_handlers.h"
#include "app/import_handlers.h"
#include "app/ship_list_handlers.h"
#include "app/stats_handlers.h"
#include "app/tcache_handlers.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "desk/program_end.h"
#include "platform/start_program.h"

namespace oravin {

namespace {

void Swap(Main& main) {
  SwapDesk desk = SwapDeskOf(main);
  cmdSwap_Click(desk, main.switcher);
}

void Unswap(Main& main) {
  SwapDesk desk = SwapDeskOf(main);
  cmdUnSwap_Click(desk, main.switcher);
}

void UnswapAll(Main& main) {
  SwapDesk desk = SwapDeskOf(main);
  cmdUnswapAll_Click(desk, main.switcher);
}

void Toggle(Main& main) { cmdToggle_Click(main.host, main.switcher, main.installation); }

void SelectShips(Main& main) { EnableSwitcherControls(main.switcher, main.installation); }

void ViewSelected(Main& main) { ViewModel(main.host.files, main.switcher.swapOrgList, main.installation); }

void Readme(Main& main) {
  const std::string readme = main.installation.manualPath();
  if (platform::StartProgram("notepad " + readme)) return;
  Show(main.host, "The readme could not be opened. It is this file:\n" + readme, Icon::exclamation);
}

void Exit(Main&) { throw ProgramEnd(); }

constexpr std::array<Handler, 13> mainHandlers = {{{"switcher.cmdSwap", Swap, true},
                                                   {"switcher.cmdUnswap", Unswap, true},
                                                   {"switcher.cmdUnswapAll", UnswapAll, true},
                                                   {"switcher.cmdToggle", Toggle, false},
                                                   {"switcher.cmdEnable", cmdEnable_Click, true},
                                                   {"switcher.cmdDisable", cmdDisable_Click, true},
                                                   {"switcher.swapOrgList.ItemClick", SelectShips, false},
                                                   {"switcher.swapToList.ItemClick", SelectShips, false},
                                                   {"switcher.swapOrgList.DblClick", ViewSelected, false},
                                                   {"stats.cmdEnable2", cmdEnable_Click, true},
                                                   {"stats.CmdDisable2", cmdDisable_Click, true},
                                                   {"about.cmdReadme", Readme, false},
                                                   {"about.cmdExit", Exit, false}}};

}  // namespace

std::span<const Handler> Handlers() {
  static const std::vector<Handler> handlers = [] {
    std::vector<Handler> all(mainHandlers.begin(), mainHandlers.end());
    for (const std::span<const Handler> tab :
         {StatsHandlers(), ImportHandlers(), ShipListHandlers(), HogHandlers(), TcacheHandlers()}) {
      all.insert(all.end(), tab.begin(), tab.end());
    }
    return all;
  }();
  return handlers;
}

void Run(Main& main, std::string_view name) {
  for (const Handler& handler : Handlers()) {
    if (handler.name != name) continue;
    if (handler.changesFiles && main.onlyLooks) {
      Show(main.host, "Another copy of Oravin works on this installation, so nothing can be changed here now.",
           Icon::exclamation);
      return;
    }
    // What a handler does not catch itself ends it with a box, never the program.
    Trap(main.host, std::string(name), [&] { handler.run(main); });
    return;
  }
  throw std::out_of_range("no action " + std::string(name));
}

}  // namespace oravin
