#include "gui/options.h"

#include <CLI/CLI.hpp>
#include <sstream>

#include "gui/native_dialogs.h"
#include "tabs/about_tab.h"

namespace oravin::gui {

std::optional<int> ReadOptions(const std::vector<std::string>& words, Options& options) {
  CLI::App parser{"Edits the installed files of StarLancer, in a window."};
  parser.name("oravin");
  parser.add_option("--game", options.folders.game, "The game folder; searched for if not given")->type_name("DIR");
  parser.add_option("--program", options.folders.program, "The program folder; searched for if not given")
      ->type_name("DIR");
  parser
      .add_option(
          "FILE", options.file,
          "A file to open: an archive (.hog) on the Hog Editor tab, a texture cache (.dat) on the Tcache Editor "
          "tab; or to import: a ship model (.shp) or a ship pack (.pak)")
      ->type_name(" ");
  parser
      .add_option("--layout", options.layoutFile,
                  "For tests: maintains a JSON file with the window's state and the screen position of every control")
      ->type_name("FILE");
  parser.add_flag("--exit-when-painted", options.exitWhenPainted,
                  "For benchmarks: exits as soon as the window has been painted once");
  parser.set_version_flag("--version", "Oravin " + PlainVersion(), "Prints the version");
  try {
    parser.parse(std::vector<std::string>(words.rbegin(), words.rend()));  // the parser expects reverse order
  } catch (const CLI::ParseError& error) {
    constexpr int wrongUse = 2;
    std::ostringstream said;
    const bool wrong = parser.exit(error, said, said) != 0;
    TellStarter(said.str(), wrong);
    return wrong ? wrongUse : 0;
  }
  return std::nullopt;
}

}  // namespace oravin::gui
