#pragma once

#include "desk/controls.h"

namespace oravin {

/// The controls of the "Tcache Editor" tab.
struct TcacheTab {
  Label purpose;  ///< what the tab is for, in one line
  TextBox txtTcacheSource;
};

TcacheTab NewTcacheTab();

}  // namespace oravin
