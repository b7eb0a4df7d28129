// oravin-cli: Oravin without its window.
#include <iostream>

#include "cli/run_command.h"
#include "platform/arguments.h"
#include "platform/terminal.h"

int main(int argc, char** argv) {
  oravin::platform::PrepareStreams();
  return oravin::RunCommand(oravin::platform::Arguments(argc, argv), std::cout, std::cerr, std::cin,
                            oravin::platform::PersonAtTerminal());
}
