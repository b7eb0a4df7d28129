// oravin-cli: Oravin without its window.
#include <iostream>
#include <string>
#include <vector>

#include "cli/run_command.h"
#include "platform/terminal.h"

int main(int argc, char** argv) {
  const std::vector<std::string> words(argv + (argc > 0 ? 1 : 0), argv + argc);
  return oravin::RunCommand(words, std::cout, std::cerr, std::cin, oravin::platform::PersonAtTerminal());
}
