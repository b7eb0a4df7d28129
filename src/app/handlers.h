#pragma once

#include <span>
#include <string_view>

#include "app/main.h"

/// Every action once, by its name: "tab.control" or "tab.control.event". The window binds by it, the command line calls
/// through it, and the tests walk it.
namespace oravin {

struct Handler {
  std::string_view name;
  void (*run)(Main&);
  bool changesFiles;
};

std::span<const Handler> Handlers();

/// Runs an action. One that changes files is refused with a message box while another Oravin is using the installation.
/// @throws std::out_of_range when there is no such action; ProgramEnd when the action ends the program
void Run(Main& main, std::string_view name);

}  // namespace oravin
