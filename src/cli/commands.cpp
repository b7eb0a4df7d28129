#include "cli/commands.h"

namespace oravin {

std::span<const Command> Commands() {
  static const std::vector<Command> commands = {
      {"", "status", {}, "Shows the folders, the state and the game's files.", TellStatus},
      {"", "enable", {}, "Enables the editing features. Asks first.", Enable},
      {"", "disable", {}, "Disables the editing features and restores the game's files. Asks first.", Disable},
      {"ships", "list", {}, "Lists the ships of the catalogue.", ListShips},
      {"ships",
       "swap",
       {{"TARGET", "the name of the ship to change, one of the game's own"},
        {"SOURCE", "the name of the ship that is to fly in its place"}},
       "Makes the ship SOURCE fly in place of the ship TARGET.",
       SwapShips},
      {"ships", "unswap", {{"TARGET", "the name of the ship to put back"}}, "Puts the ship TARGET back.", UnswapOne},
      {"ships", "unswap-all", {}, "Puts every changed ship back.", UnswapAll},
      {"stats", "show", {{"SHIP", "the ship's name"}}, "Shows the 15 statistics of a ship.", ShowStats}};
  return commands;
}

std::string NameOf(const Command& command) {
  return command.group.empty() ? command.verb : command.group + " " + command.verb;
}

}  // namespace oravin
