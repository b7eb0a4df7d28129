#pragma once

#include "desk/controls.h"
#include "texture/import_panel.h"

namespace oravin {

/// The controls of the "Import Ships" tab.
struct ImportTab {
  Label purpose;  ///< what the tab is for, in one line
  ImportTexturePanel texture;
};

ImportTab NewImportTab();

}  // namespace oravin
