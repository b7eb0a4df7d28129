#include "tabs/import_tab.h"

namespace oravin {

ImportTab NewImportTab() {
  ImportTab tab;
  tab.frameImport.caption = "&Import ships into and manage switcher:";
  tab.lstImported.columns = {{"Imported ships:", false}};
  tab.lstImported.severalSelectable = true;
  tab.lstImported.labelsEditable = true;
  tab.txtImportFighter.tooltip = "The ship model or ship pack that was imported last";
  tab.cmdImportFighterBrowse = {"Bro&wse", "Chooses a ship model or ship pack to import", true};
  tab.cmdRemoveShips = {"&Remove Ship(s)", "Removes All Fighters", true};
  tab.cmdRemoveAll = {"&Remove All", "Remove All Imported Fighters", true};
  tab.texture = NewImportTexturePanel();
  return tab;
}

}  // namespace oravin
