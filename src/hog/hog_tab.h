#pragma once

#include <string>

#include "desk/controls.h"

namespace oravin {

/// The controls of the "Hog Editor" tab.
struct HogTab {
  Label purpose;  ///< what the tab is for, in one line
  TextBox txtHogPath;
};

HogTab NewHogTab();

}  // namespace oravin
