#pragma once

#include <string>

#include "desk/controls.h"

namespace oravin {

/// The controls of the "About" tab.
struct AboutTab {
  Label lblVersion;
  Label lblPurpose;
  TextBox txtSLPath;       ///< the game folder
  TextBox txtProgramPath;  ///< the program's own folder
  Button cmdReadme;
  Button cmdExit;
};

AboutTab NewAboutTab();

/// The version label. Intentional: there is no point before the revision, so version 2.1.3 reads "Version 2.13".
std::string VersionText(int major, int minor, int revision);

/// The version for the command line: 2.1.3.
std::string PlainVersion();

}  // namespace oravin
