#pragma once

#include "desk/controls.h"
#include "desk/host.h"
#include "installation/installation.h"
#include "platform/installation_lock.h"
#include "tabs/about_tab.h"
#include "tabs/archive_tab.h"
#include "tabs/convert_panel.h"
#include "tabs/import_form.h"
#include "tabs/import_tab.h"
#include "tabs/ship_list_form.h"
#include "tabs/stats_tab.h"
#include "tabs/swap.h"
#include "tabs/switcher_tab.h"
#include "tabs/table_editor.h"
#include "tabs/texture_tab.h"

namespace oravin {

/// The main window: the one record of all state. A front end makes it once and hands it down.
struct Main {
  Main();
  Main(const Main&) = delete;
  Main& operator=(const Main&) = delete;
  ~Main();

  Host host;
  Installation installation;

  TabStrip TabStrip1;
  SwitcherTab switcher;
  StatsTab stats;
  ImportTab imports;
  ConvertPanel convert;  ///< on the "Import Ships" tab
  HogTab hog;
  TcacheTab tcache;
  AboutTab about;
  FatEditor FAT_Editor;
  FighterPack Fighter_PACK;
  ShipListForm ShipList;

  bool onlyLooks = false;  ///< another copy of the program works on the installation
  platform::FolderLock gameLock;
  platform::FolderLock programLock;
};

/// Closes the files that the archive's and the texture cache's tabs hold open, and the archive in its tab with them.
void CloseOpenFiles(Main& main);

/// The records that a swap works on.
SwapDesk SwapDeskOf(Main& main);

/// Shows the catalogue in the stats tab's list and in the list of imported ships.
/// @param known as for DisplayImported
void ShowShipsOnTabs(Main& main, const ModelClasses& known = {});

/// Fills the switcher's lists, with the fighters, and the other tabs' lists of ships from the catalogue.
void FillLists(Main& main);

/// Empties these lists.
void EmptyLists(Main& main);

}  // namespace oravin
