#include "tabs/about_tab.h"

namespace oravin {

AboutTab NewAboutTab() {
  AboutTab tab;
  tab.lblPurpose.caption =
      "Oravin edits the installed files of StarLancer: it switches ships, edits their statistics and weapons, works on "
      "the game's archive and texture cache, and imports ships. \"Disable / Restore\" undoes everything.";
  tab.txtSLPath.readOnly = true;
  tab.txtProgramPath.readOnly = true;
  tab.cmdReadme = {"&View Readme", "Opens the readme in your text editor", true};
  tab.cmdExit = {"E&xit", "Closes Oravin", true};
  return tab;
}

std::string VersionText(int major, int minor, int revision) {
  return "Version " + std::to_string(major) + "." + std::to_string(minor) + std::to_string(revision);
}

std::string PlainVersion() {
  return std::to_string(ORAVIN_VERSION_MAJOR) + "." + std::to_string(ORAVIN_VERSION_MINOR) + "." +
         std::to_string(ORAVIN_VERSION_REVISION);
}

}  // namespace oravin
