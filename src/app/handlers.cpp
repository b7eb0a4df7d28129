#include "app/handlers.h"

#include <array>
#include <stdexcept>
#include <string>
#include <vector>

#include "app/hog_handlers.h"
#include "app/import_handlers.h"
#include "app/ship_list_handlers.h"
#include "app/stats_handlers.h"
#include "app/switcher_handlers.h"
#include "app/tcache_handlers.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "desk/program_end.h"
#include "platform/start_program.h"

namespace oravin {

namespace {

void Readme(Main& main) {
  const std::string readme = main.installation.manualPath();
  if (platform::StartProgram("notepad " + readme)) return;
  Show(main.host, "The readme could not be opened. It is this file:\n" + readme, Icon::exclamation);
}

void Exit(Main&) { throw ProgramEnd(); }

constexpr std::array<Handler, 2> mainHandlers = {{{"about.cmdReadme", Readme, false}, {"about.cmdExit", Exit, false}}};

}  // namespace

std::span<const Handler> Handlers() {
  static const std::vector<Handler> handlers = [] {
    std::vector<Handler> all(mainHandlers.begin(), mainHandlers.end());
    for (const std::span<const Handler> tab :
         {SwitcherHandlers(), StatsHandlers(), ImportHandlers(), ShipListHandlers(), HogHandlers(), TcacheHandlers()}) {
      all.insert(all.end(), tab.begin(), tab.end());
    }
    return all;
  }();
  return handlers;
}

void Run(Main& main, std::string_view name) {
  for (const Handler& handler : Handlers()) {
    if (handler.name != name) continue;
    if (handler.changesFiles && main.readOnly) {
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
