#pragma once

#include "desk/controls.h"

namespace oravin {

/// The controls of the "Import Ships" tab.
struct ImportTab {
  Label purpose;  ///< what the tab is for, in one line
};

ImportTab NewImportTab();

}  // namespace oravin
