#include "switcher/import_tab.h"

namespace oravin {

ImportTab NewImportTab() {
  ImportTab tab;
  tab.texture = NewImportTexturePanel();
  tab.purpose.caption = "Here you will import ships and ship packs, and manage the ships that were imported.";
  return tab;
}

}  // namespace oravin
