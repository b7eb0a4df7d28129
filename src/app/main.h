#pragma once

#include "app/about_tab.h"
#include "catalogue/installation.h"
#include "convert/convert_panel.h"
#include "desk/controls.h"
#include "desk/host.h"
#include "hog/FAT_Editor.h"
#include "hog/hog_tab.h"
#include "pack/Fighter_PACK.h"
#include "platform/installation_lock.h"
#include "ships/stats_tab.h"
#include "switcher/import_tab.h"
#include "switcher/ship_list_form.h"
#include "switcher/swap.h"
#include "switcher/switcher_tab.h"
#include "texture/tcache_tab.h"

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
