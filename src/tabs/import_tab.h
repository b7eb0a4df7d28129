#pragma once

#include <set>

#include "desk/controls.h"
#include "tabs/texture_import_panel.h"

namespace oravin {

/// The controls of the "Import Ships" tab: the imported ships, and the panel that imports single textures.
struct ImportTab {
  Label frameImport;           ///< the caption of the frame around the next five
  ListView lstImported;        ///< the imported ships; their names can be edited in place
  std::set<int> capitalShips;  ///< indices of those whose models are capital ships
  TextBox txtImportFighter;
  Button cmdImportFighterBrowse;
  Button cmdRemoveShips;
  Button cmdRemoveAll;

  ImportTexturePanel texture;
};

ImportTab NewImportTab();

}  // namespace oravin
