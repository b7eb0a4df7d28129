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

  TabStrip tabStrip;
  SwitcherTab switcher;
  StatsTab stats;
  ImportTab imports;
  ConvertPanel convert;  ///< on the "Import Ships" tab
  HogTab hog;
  TcacheTab tcache;
  AboutTab about;
  FatEditor tableEditor;
  FighterPack importForm;
  ShipListForm shipListForm;

  bool readOnly = false;  ///< another Oravin is using the installation
  platform::FolderLock gameLock;
  platform::FolderLock programLock;
};

/// Closes the archive that the Hog Editor tab has open.
void CloseOpenFiles(Main& main);

}  // namespace oravin
